#include "launch/VelloxaLaunch.h"

#include "launch/ProcessStart.h"

namespace {

/// The one that the program asks.
Velloxa &installedVelloxa()
{
    static Velloxa velloxa;
    return velloxa;
}

} // namespace

bool startVelloxa(Velloxa &velloxa, const HalconInstallation &installation, QStringList *errors)
{
    const QString executable = velloxa.executableFor(installation.arch);
    if (executable.isEmpty()) {
        return false;
    }
    const QString version = QStringLiteral("%1.%2").arg(installation.major).arg(installation.minor);
    return startProcess(executable, QStringLiteral("--halconversion=%1").arg(version), installation, errors);
}

bool startVelloxa(const HalconInstallation &installation, QStringList *errors)
{
    return startVelloxa(installedVelloxa(), installation, errors);
}

QString velloxaInstallDir()
{
    return installedVelloxa().installDir();
}

QString velloxaExecutable64()
{
    return installedVelloxa().executable64();
}

QString velloxaExecutable32()
{
    return installedVelloxa().executable32();
}
