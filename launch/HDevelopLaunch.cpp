#include "launch/HDevelopLaunch.h"

#include "launch/ProcessStart.h"

bool startHDevelop(const HalconInstallation &installation, bool xl, QStringList *errors)
{
    const QString fileName = QStringLiteral("hdevelop%1.exe").arg(xl ? QStringLiteral("xl") : QString());
    const QString executable = installation.installDir + QStringLiteral("\\bin\\") + installation.arch +
                               QLatin1Char('\\') + fileName;
    return startProcess(executable, QString(), installation, errors);
}
