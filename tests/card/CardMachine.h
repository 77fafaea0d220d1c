#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>

/// The installations of a machine with @p count HALCON versions, from the oldest.
inline QList<HalconInstallation> installedVersions(int count)
{
    const HalconInstallation versions[] = {
        {9, 0, 0, 0},  {10, 0, 1, 0},  {11, 0, 0, 0},  {12, 0, 0, 0},
        {13, 0, 2, 0}, {17, 12, 0, 0}, {18, 11, 1, 0}, {20, 5, 0, 0},
    };
    QList<HalconInstallation> installed;
    for (int i = int(std::size(versions)) - count; i < int(std::size(versions)); ++i) {
        HalconInstallation version = versions[i];
        version.arch = "x64-win64";
        version.installDir =
            QString("C:\\Program Files\\MVTec\\HALCON-%1.%2").arg(version.major).arg(version.minor);
        version.setExampleRoot("C:\\Users\\Public\\Documents\\MVTec\\HALCON examples");
        installed.append(version);
    }
    return installed;
}
