#include "app/HtmlDialog.h"

#include "app/InertDocument.h"
#include "base/DebugLogger.h"

#include <QDesktopServices>
#include <QDialog>
#include <QGuiApplication>
#include <QTextBrowser>

namespace {

/// Opens web and mail links with the desktop's handler. Any other link could start a program.
void openOutside(const QUrl &link)
{
    static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"),
                                     QStringLiteral("mailto")};
    if (schemes.contains(link.scheme())) {
        QDesktopServices::openUrl(link);
    }
}

} // namespace

void setUpHtmlDialog(QDialog &dialog, QTextBrowser &browser, const QString &logPrefix, const QString &html)
{
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    browser.setDocument(new InertDocument(html, browser.font(), &browser));
    DebugLogger::instance().log(logPrefix + html);
    browser.setOpenExternalLinks(true);
    // By default the browser would itself follow a link to a file or without a scheme.
    browser.setOpenLinks(false);
    QObject::connect(&browser, &QTextBrowser::anchorClicked, &openOutside);
    dialog.setWindowTitle(QGuiApplication::applicationDisplayName());
}
