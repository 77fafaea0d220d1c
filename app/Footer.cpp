#include "app/Footer.h"

#include "app/MakerAddresses.h"

#include <QGuiApplication>

namespace {

QString link(const QString &target, const QString &text)
{
    return QStringLiteral("<a href=\"") + target +
           QStringLiteral("\"><span style=\"text-decoration: underline; color:#0000ff;\">") + text +
           QStringLiteral("</span></a>");
}

QString translate(const char *text)
{
    return QGuiApplication::translate("MainWindow", text);
}

} // namespace

QString footerTemplate()
{
    const QString feedback = QStringLiteral("mailto:") + MakerAddresses::feedbackAddress() +
                             QStringLiteral("?subject=Feedback %5");
    return QStringLiteral("<p style=\"font-size:8pt;\">") +
           translate("%1 (%2) - Please find more information about our HALCON services at ") +
           link(QStringLiteral("%3"), QStringLiteral("%3")) + translate(" or our products at ") +
           link(QStringLiteral("%4"), QStringLiteral("%4")) + translate(". We are happy to receive ") +
           link(feedback, translate("feedback")) + translate(" from you.") + QStringLiteral("</p>");
}

QString filledFooter(const QString &html)
{
    const QString product = QGuiApplication::applicationDisplayName();
    const QString version = QGuiApplication::applicationVersion();
    const QString encodedBlank = QStringLiteral("%20");
    // One place at a time, because the last text holds what looks like a place itself.
    return html.arg(QGuiApplication::organizationName() + QLatin1Char(' ') + product)
        .arg(version)
        .arg(QStringLiteral("http://www.") + QGuiApplication::organizationDomain() + QLatin1Char('/'))
        .arg(MakerAddresses::shop())
        .arg(QString(product).replace(QLatin1Char(' '), encodedBlank) + encodedBlank + version);
}
