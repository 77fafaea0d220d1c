#pragma once

#include "devenv/VisualStudioVersion.h"
#include "discovery/HalconInstallation.h"

#include <QStringList>

/// Looks for the IDE of @p version below its product directory and sets its name and path. When there is none, both
/// keep their values. Each path that was tried goes to the debug log.
void findIdeExecutable(VisualStudioVersion &version);

/// Starts the IDE of @p visualStudio with the environment of @p installation. Returns false and appends to @p errors
/// (unless null) when it could not be started, which includes that there is none.
bool startDevEnv(const HalconInstallation &installation, const VisualStudioVersion &visualStudio,
                 QStringList *errors);
