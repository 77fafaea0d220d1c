#include "launch/CommandShell.h"

#include "base/ProgramDirectory.h"
#include "launch/ProcessStart.h"

namespace {

/// The colour of the banner shows the architecture.
QString colourOption(const QString &arch)
{
    if (arch == QLatin1String("x86-win32")) {
        return QStringLiteral("--fgblue");
    }
    if (arch == QLatin1String("x86sse2-win32")) {
        return QStringLiteral("--fggreen");
    }
    return QStringLiteral("--fgred");
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

QString shellArguments(const HalconInstallation &installation, const VisualStudioVersion &visualStudio)
{
    const QString version = installation.versionArchText();
    const QStringList banner{
        QStringLiteral("HALCON ") + version,
        QStringLiteral("type '") + visualStudio.ideName + QStringLiteral("' to launch ") +
            displayName(visualStudio),
        QStringLiteral("type 'hdevelop.exe' to launch HDevelop (") + version + QLatin1Char(')'),
    };
    const QString colourTool = quoted(besideProgram(QStringLiteral("huebox.exe")));

    QStringList commands{quoted(visualStudio.vcvarsBat), QStringLiteral("title HALCON ") + version};
    for (const QString &line : banner) {
        commands.append(colourTool + QLatin1Char(' ') + colourOption(installation.arch) +
                        QStringLiteral(" --fgint ") + line);
    }
    commands.append(QStringLiteral("cd /d ") + quoted(installation.installDir));
    // The interpreter strips the outer quotes.
    return QStringLiteral("/K ") + quoted(commands.join(QStringLiteral(" & ")));
}

bool startShell(const HalconInstallation &installation, const VisualStudioVersion &visualStudio,
                QStringList *errors)
{
    const QString interpreter = QString::fromLocal8Bit(qgetenv("ComSpec"));
    return startProcess(interpreter, shellArguments(installation, visualStudio), installation, errors);
}
