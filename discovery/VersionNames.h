#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>

#include <optional>

/// The result of reading the name of a registry key that may name a HALCON version.
struct VersionName {
    bool matches = false;                           ///< the name has the form of a version
    std::optional<HalconInstallation> installation; ///< absent when a number does not fit into 32 bits
};

/// Reads the name of a group of HALCON's product key, such as "20.11-Progress" or "13.0".
VersionName parseProductKeyName(const QString &name);

/// Reads the name of a group of an uninstall key, such as "MVTec HALCON 20.11 Progress".
VersionName parseUninstallKeyName(const QString &name);

/// The log line about a name that is not a version.
QString invalidVersionText(const QString &name);
