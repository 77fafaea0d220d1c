#pragma once

#include "devenv/VisualStudioVersion.h"
#include "discovery/HalconInstallation.h"

#include <QStringList>

/// Starts the IDE of @p visualStudio with the environment of @p installation. Returns false and appends to @p
/// errors (unless null) when it could not be started, which includes that there is none.
bool startDevEnv(const HalconInstallation &installation, const VisualStudioVersion &visualStudio,
                 QStringList *errors);
