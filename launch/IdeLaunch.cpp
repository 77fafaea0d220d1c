#include "launch/IdeLaunch.h"

#include "launch/ProcessStart.h"

bool startDevEnv(const HalconInstallation &installation, const VisualStudioVersion &visualStudio,
                 QStringList *errors)
{
    return startProcess(visualStudio.idePath, QString(), installation, errors);
}
