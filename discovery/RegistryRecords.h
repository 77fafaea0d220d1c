#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QVariant>
#include <QVariantMap>

/// What HALCON's product key holds about one version. A value that is missing is invalid.
struct ProductKeyValues {
    QVariantMap components; ///< all values in "InstalledComponents" and below, by name
    QVariant installDir;
    QVariant exampleRoot;
    QVariant installedRevision;
    QVariant installedBuild;
};

/// The installations of @p version, which has the key's name only, one for each runtime among those
/// components that are 1. A revision or build that is missing, no number or beyond 32 bits is 0. Logs each
/// runtime.
QList<HalconInstallation> productKeyInstallations(const HalconInstallation &version,
                                                  const ProductKeyValues &values);

/// The 64-bit installation of @p version, which has the key's name only, in the directory @p installLocation,
/// a string whose double quotes do not count. Logs the runtime.
QList<HalconInstallation> uninstallKeyInstallations(const HalconInstallation &version,
                                                    const QVariant &installLocation);
