#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>

/// The large version number: major alone for old versions, major and minor for newer ones and Progress
/// editions. From 17 on the minor number has two digits.
QString majorText(const HalconInstallation &installation);

/// The text of the badge in the version number's corner, such as "x64".
QString architectureBadgeText(const QString &arch);
