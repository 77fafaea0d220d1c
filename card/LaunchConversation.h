#pragma once

#include "discovery/HalconInstallation.h"

class QWidget;
class VisualStudioChoice;

// Each starts a tool of an installation and, when that fails, tells the user why in a box of the card's.
// Returns when the user has closed the box.

/// Starts HDevelop, or HDevelop XL.
void launchHDevelopOrWarn(const HalconInstallation &installation, bool xl, QWidget *card);

/// Opens a shell with the Visual Studio in @p row, or its IDE where it has no build environment.
void launchShellOrWarn(const HalconInstallation &installation, const VisualStudioChoice &visualStudios,
                       int row, QWidget *card);

/// Starts the IDE of the Visual Studio in @p row.
void launchIdeOrWarn(const HalconInstallation &installation, const VisualStudioChoice &visualStudios, int row,
                     QWidget *card);

/// Starts Velloxa; shows its advertisement, not modal and without a parent, when that fails.
void launchVelloxaOrAdvertise(const HalconInstallation &installation);
