#include "card/DetailsHtml.h"

#include "base/HtmlLink.h"
#include "card/CardContext.h"

#include <QStringList>

namespace {

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

QString detailsHtml(const HalconInstallation &installation, bool installDirExists, bool exampleRootExists)
{
    const QStringList lines{
        QStringLiteral("<b>") + CardContext::tr("Details:") + QStringLiteral("</b>"),
        CardContext::tr("Version: %1"),
        CardContext::tr("InstallDir: %2"),
        CardContext::tr("ExampleRoot: %3"),
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
