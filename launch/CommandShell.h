#pragma once

#include "devenv/VisualStudioVersion.h"
#include "discovery/HalconInstallation.h"

#include <QString>
#include <QStringList>

/// The command interpreter's arguments for a shell that sets up the build environment of @p visualStudio,
/// says in its title and three coloured lines what it is for, and starts in the root directory of @p
/// installation.
QString shellArguments(const HalconInstallation &installation, const VisualStudioVersion &visualStudio);

/// Opens that shell with the environment of @p installation. Returns false and appends to @p errors (unless
/// null) when the interpreter could not be started; errors in the shell itself are shown there.
bool startShell(const HalconInstallation &installation, const VisualStudioVersion &visualStudio,
                QStringList *errors);
