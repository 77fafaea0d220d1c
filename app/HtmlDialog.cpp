#include "app/HtmlDialog.h"

#include "app/InertDocument.h"
#include "base/DebugLogger.h"

#include <QDesktopServices>
#include <QDialog>
#include <QGuiApplication>
#include <QTextBrowser>

namespace {

/// Opens @p link on the desktop when it leads to the web or to a mail; any other could start a program.
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
    // The browser would go to a link without a scheme, or to a file, itself.
    browser.setOpenLinks(false);
    QObject::connect(&browser, &QTextBrowser::anchorClicked, &openOutside);
    dialog.setWindowTitle(QGuiApplication::applicationDisplayName());
}
