#include "launch/VelloxaLaunch.h"

#include "base/RegistryReader.h"
#include "launch/ProcessStart.h"

namespace {

QString registeredDirectory()
{
    return RegistryReader(QStringLiteral(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)"))
        .value(QStringLiteral("InstallDir"))
        .toString();
}

/// The machine's Velloxa; the process has only this one.
Velloxa &installedVelloxa()
{
    static Velloxa velloxa(registeredDirectory);
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
