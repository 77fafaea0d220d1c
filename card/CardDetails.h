#pragma once

#include "discovery/HalconInstallation.h"

class QTextBrowser;
class QUrl;

/// Shows in @p browser what @p installation is and where. Its links are left to openDetailsLink().
void showDetails(const HalconInstallation &installation, QTextBrowser &browser);

/// Adds a line on @p latest, the newest release of this version and edition, to the details of
/// @p installation in @p browser, if it is newer. Called again, it replaces that line.
void showRelease(const HalconInstallation &latest, const HalconInstallation &installation,
                 QTextBrowser &browser);

/// Opens the directory of @p installation that @p link names in Explorer, any other link with the desktop's
/// handler.
void openDetailsLink(const QUrl &link, const HalconInstallation &installation);
