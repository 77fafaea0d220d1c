#pragma once

#include "devenv/VisualStudioVersion.h"
#include "discovery/HalconInstallation.h"

#include <QList>
#include <QString>

/// Background colour of the card of a major version, as "#rrggbb".
QString cardColour(int major);

/// The card's style sheet, which fills it with @p colour.
QString cardStyleSheet(const QString &colour);

/// The large version number: major alone for old versions, major and minor for newer ones and Progress
/// editions. From 17 on the minor number has two digits.
QString majorText(const HalconInstallation &installation);

/// The text of the badge in the version number's corner, such as "x64".
QString architectureBadgeText(const QString &arch);

/// Style sheet of the badge in the version number's corner; its colour tells the architecture.
QString architectureBadgeStyleSheet(const QString &arch);

/// Style sheet of the badge on the HDevelop XL button.
QString xlBadgeStyleSheet();

/// The details beside the version number, as rich text. A directory that does not exist is marked as not
/// found; one that does is a link, whose target names the kind of directory, not its path.
QString detailsHtml(const HalconInstallation &installation, bool installDirExists, bool exampleRootExists);

/// Those of the records that build for @p arch, in their order.
QList<VisualStudioVersion> versionsForArchitecture(const QList<VisualStudioVersion> &versions,
                                                   const QString &arch);

/// The rows of the card's list: the display names of @p versions, where records without architecture count
/// once for each IDE.
QStringList visualStudioRows(const QList<VisualStudioVersion> &versions);
