#include "app/HtmlDialog.h"

#include "app/DebugLogger.h"

#include <QDialog>
#include <QGuiApplication>
#include <QTextBrowser>

void setUpHtmlDialog(QDialog &dialog, QTextBrowser &browser, const QString &logPrefix, const QString &html)
{
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    browser.setHtml(html);
    DebugLogger::instance().log(logPrefix + html);
    browser.setOpenExternalLinks(true);
    dialog.setWindowTitle(QGuiApplication::applicationDisplayName());
}
