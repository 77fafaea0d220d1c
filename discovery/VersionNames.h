#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>

#include <optional>

/// What became of the name of a registry key that may stand for a HALCON version.
struct VersionName {
    bool matches = false;                           ///< the name has the form of a version
    std::optional<HalconInstallation> installation; ///< absent when a number does not fit into 32 bits
};

/// Reads the name of a group of HALCON's product key, such as "20.11-Progress" or "13.0".
VersionName parseProductKeyName(const QString &name);

/// Reads the name of a group of an uninstall key, such as "MVTec HALCON 20.11 Progress".
VersionName parseUninstallKeyName(const QString &name);

/// What is reported of a name that is no version.
QString invalidVersionText(const QString &name);

/// One copy of @p base for each runtime among its components, with arch set and the components of other
/// architectures left out. Logs each runtime found.
QList<HalconInstallation> installationsPerRuntime(const HalconInstallation &base);
