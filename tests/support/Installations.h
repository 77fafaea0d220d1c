#pragma once

#include "discovery/HalconInstallation.h"

/// HALCON 20.11.1.3 in a directory that need not exist.
inline HalconInstallation installationIn(const QString &installDir, const QString &arch = "x64-win64",
                                         const QString &exampleRoot = QString())
{
    HalconInstallation installation(20, 11, 1, 3);
    installation.installDir = installDir;
    installation.arch = arch;
    installation.exampleRoot = exampleRoot;
    return installation;
}

/// HALCON 20.11.1 Progress with examples.
inline HalconInstallation progressInstallation(const QString &arch)
{
    HalconInstallation installation(20, 11, 1, 0);
    installation.setSuffix("Progress");
    installation.arch = arch;
    installation.installDir = R"(C:\Program Files\HALCON 20.11)";
    installation.setExampleRoot(R"(D:\Examples)");
    return installation;
}
