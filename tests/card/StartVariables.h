#pragma once

#include "discovery/HalconInstallation.h"
#include "tests/support/EchoChild.h"

#include <QStringList>

/// What a child gets from an installation: the four variables and the first directory of its search path.
inline QStringList receivedVariables(const EchoRecord &found)
{
    return {found.variable("HALCONROOT"), found.variable("HALCONARCH"), found.variable("HALCONEXAMPLES"),
            found.variable("HALCONIMAGES"), found.variable("PATH").section(';', 0, 0)};
}

/// What a child started for @p installation must have.
inline QStringList expectedVariables(const HalconInstallation &installation)
{
    return {installation.installDir, installation.arch, installation.exampleRoot + "\\examples",
            installation.exampleRoot + "\\examples\\images",
            installation.installDir + "\\bin\\" + installation.arch};
}
