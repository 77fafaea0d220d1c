#pragma once

#include "discovery/HalconInstallation.h"

class QWidget;

/// Lets the user choose a licence file and puts it into @p installation: asks before it overwrites another,
/// and says what became of it. The dialog and the boxes belong to @p card. Returns when the user has answered
/// the last of them.
void installLicenseFile(const HalconInstallation &installation, QWidget *card);
