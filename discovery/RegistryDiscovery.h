#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QString>

/// Every installed HALCON version, one record per architecture, without duplicates, oldest first.
///
/// Reads the registry at each call and logs each step. What cannot be read is left out.
QList<HalconInstallation> getAllHalconVersions();

/// The installations below one product key of HALCON, such as "HKEY_LOCAL_MACHINE\Software\MVTec\HALCON", in
/// the order in which they are found.
QList<HalconInstallation> readMainHalconKey(const QString &keyPath);

/// The installations below one uninstall key. Their revision and build are unknown, and they are taken to be
/// 64-bit.
QList<HalconInstallation> readUninstallKeys(const QString &keyPath);
