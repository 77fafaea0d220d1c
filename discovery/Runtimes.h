#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>

/// One copy of @p base for each runtime among its components, with arch set and without the components of
/// other architectures. Logs each runtime found.
QList<HalconInstallation> installationsPerRuntime(const HalconInstallation &base);
