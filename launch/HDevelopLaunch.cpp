#include "launch/HDevelopLaunch.h"

#include "launch/ProcessStart.h"

QString hdevelopExecutable(const HalconInstallation &installation, bool xl)
{
    const QString fileName = QStringLiteral("hdevelop%1.exe").arg(xl ? QStringLiteral("xl") : QString());
    return binaryDirectory(installation) + QLatin1Char('\\') + fileName;
}

bool startHDevelop(const HalconInstallation &installation, bool xl, QStringList *errors)
{
    return startProcess(hdevelopExecutable(installation, xl), QString(), installation, errors);
}
