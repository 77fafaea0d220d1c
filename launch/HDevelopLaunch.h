#pragma once

#include "discovery/HalconInstallation.h"

#include <QStringList>

/// The path at which the installation has its HDevelop, or HDevelop XL when @p xl is true. The file need not
/// exist.
QString hdevelopExecutable(const HalconInstallation &installation, bool xl);

/// Starts the installation's HDevelop, or HDevelop XL when @p xl is true. Returns false and appends to @p
/// errors (unless null) when it could not be started.
bool startHDevelop(const HalconInstallation &installation, bool xl, QStringList *errors);
