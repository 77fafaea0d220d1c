#include "app/MainWindowTexts.h"

#include "base/HtmlLink.h"
#include "base/MakerAddresses.h"

#include <QCoreApplication>
#include <QGuiApplication>

namespace {

/// Translates in the main window's context.
struct Window {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

} // namespace

QString footerTemplate()
{
    const QString feedback = QStringLiteral("mailto:") + MakerAddresses::feedbackAddress() +
                             QStringLiteral("?subject=Feedback %5");
    return QStringLiteral("<p style=\"font-size:8pt;\">") +
           Window::tr("%1 (%2) - Please find more information about our HALCON services at ") +
           htmlLink(QStringLiteral("%3"), QStringLiteral("%3")) + Window::tr(" or our products at ") +
           htmlLink(QStringLiteral("%4"), QStringLiteral("%4")) + Window::tr(". We are happy to receive ") +
           htmlLink(feedback, Window::tr("feedback")) + Window::tr(" from you.") + QStringLiteral("</p>");
}

QString filledFooter(const QString &html)
{
    const QString product = QGuiApplication::applicationDisplayName();
    const QString version = QGuiApplication::applicationVersion();
    const QString encodedSpace = QStringLiteral("%20");
    // One argument at a time and in this order: the last one contains "%20", which looks like a placeholder.
    return html.arg(QGuiApplication::organizationName() + QLatin1Char(' ') + product)
        .arg(version)
        .arg(QStringLiteral("http://www.") + QGuiApplication::organizationDomain() + QLatin1Char('/'))
        .arg(MakerAddresses::shop())
        .arg(QString(product).replace(QLatin1Char(' '), encodedSpace) + encodedSpace + version);
}

QString noInstallationHtml()
{
    return Window::tr("Could not find any HALCON installation. Please install HALCON first.<br><br><hr>"
                      "<small>If you think this is an error in this program, please contact us via<br>"
                      "<a href=\"%1\">%1</a>.</small>")
        .arg(MakerAddresses::contactPage());
}
