#include "card/CardTexts.h"

#include "base/HtmlLink.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

/// Translates in the card's context.
struct Card {
    Q_DECLARE_TR_FUNCTIONS(SingleHalconVersionFrame)
};

QString directoryLink(const QString &target, const QString &directory)
{
    return QStringLiteral("<b>") + htmlLink(target, directory.toHtmlEscaped()) + QStringLiteral("</b>");
}

QString missingDirectory(const QString &directory, const QString &remark)
{
    return directory.toHtmlEscaped() + QStringLiteral(" <span style=\"color:#ff0000;\">") + remark +
           QStringLiteral("</span>");
}

} // namespace

QString cardColour(int major)
{
    static const QString ofVersion7 = QStringLiteral("#ffebbd");
    static const QHash<int, QString> colours{
        {7, ofVersion7},
        {8, QStringLiteral("#ccffbd")},
        {9, QStringLiteral("#fefbbe")},
        {10, QStringLiteral("#fed6be")},
        {11, QStringLiteral("#ffbdbd")},
        {12, QStringLiteral("#f3bffd")},
        {13, QStringLiteral("#c6bdff")},
        {14, QStringLiteral("#bee1fe")},
    };
    return colours.value(major, ofVersion7);
}

QString cardStyleSheet(const QString &colour)
{
    // The duplicate rule and the missing semicolon are deliberate.
    return QStringLiteral("SingleHalconVersionFrame {  background-color: %1;  border: 2px solid  black;}"
                          "QGroupBox {  border: 1px solid gray;}"
                          "QPushButton:focus.myPushButton {  border: none;  outline: none;}"
                          "QPushButton#pbMajor {  font: bold 64pt \"Consolas\";"
                          " background-color: #33FF0000; border: none;}"
                          "QPushButton#pbHelp::menu-indicator {    image: none;}"
                          "QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}"
                          "QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}"
                          "QTextBrowser#textBrowser {  font: small \"Consolas\";  border: 1px solid gray;}")
        .arg(colour);
}

QString majorText(const HalconInstallation &installation)
{
    constexpr int firstMajorWithMinor = 17;
    if (installation.suffix != QLatin1String("Progress") && installation.major < firstMajorWithMinor) {
        return QString::number(installation.major);
    }
    // From 17 on HALCON's own version names have two digits there: 17.12, 20.05.
    const int digits = installation.major < firstMajorWithMinor ? 1 : 2;
    return QStringLiteral("%1.%2")
        .arg(installation.major)
        .arg(installation.minor, digits, 10, QLatin1Char('0'));
}

QString architectureBadgeText(const QString &arch)
{
    static const QRegularExpression platform(QStringLiteral("-[a-zA-Z0-9_]*$"));
    return QString(arch).remove(platform);
}

QString architectureBadgeStyleSheet(const QString &arch)
{
    struct Colours {
        QString background = QStringLiteral("#CCFF0000");
        QString border = QStringLiteral("#FFFF0000");
    };
    static const QHash<QString, Colours> colours{
        {QStringLiteral("x86-win32"), {QStringLiteral("#CC00FF00"), QStringLiteral("#FF00FF00")}},
        {QStringLiteral("x86sse2-win32"), {QStringLiteral("#CC0000FF"), QStringLiteral("#FF0000FF")}},
    };
    const Colours chosen = colours.value(arch);
    return QStringLiteral(
               "background-color: %1; border: 1px solid %2; color: white; font: bold; margin: 5px; "
               "padding: 1px 3px; ")
        .arg(chosen.background, chosen.border);
}

QString xlBadgeStyleSheet()
{
    return QStringLiteral(
               "QPushButton {background-color: %1; border: 1px solid %2; color: white; font: bold; "
               "margin: 5px; padding: 1px 3px; }")
        .arg(QStringLiteral("#CC00FF00"), QStringLiteral("#FF00FF00"));
}

QString detailsHtml(const HalconInstallation &installation, bool installDirExists, bool exampleRootExists)
{
    const QStringList lines{
        QStringLiteral("<b>") + Card::tr("Details:") + QStringLiteral("</b>"),
        Card::tr("Version: %1"),
        Card::tr("InstallDir: %2"),
        Card::tr("ExampleRoot: %3"),
    };
    // Deliberate: "(not found)" is bold for one directory only.
    const QString installDir =
        installDirExists ? directoryLink(QStringLiteral("file:///installDir"), installation.installDir)
                         : missingDirectory(installation.installDir, QStringLiteral("<b>(not found)</b>"));
    const QString exampleRoot =
        exampleRootExists ? directoryLink(QStringLiteral("file:///exampleRoot"), installation.exampleRoot)
                          : missingDirectory(installation.exampleRoot, QStringLiteral("(not found)"));
    // In one call, because a path may contain what looks like a placeholder.
    return lines.join(QStringLiteral("<br>"))
        .arg(QStringLiteral("<b>") + installation.versionText() + QStringLiteral("</b>"), installDir,
             exampleRoot);
}

QList<VisualStudioVersion> versionsForArchitecture(const QList<VisualStudioVersion> &versions,
                                                   const QString &arch)
{
    QList<VisualStudioVersion> matching;
    std::copy_if(versions.begin(), versions.end(), std::back_inserter(matching),
                 [&](const VisualStudioVersion &version) { return matchesArchitecture(version, arch); });
    return matching;
}

QStringList visualStudioRows(const QList<VisualStudioVersion> &versions)
{
    QStringList rows;
    QSet<QString> shownIdes;
    for (const VisualStudioVersion &version : versions) {
        if (!version.architecture.isEmpty() || !shownIdes.contains(version.idePath)) {
            shownIdes.insert(version.idePath);
            rows.append(displayName(version));
        }
    }
    return rows;
}
