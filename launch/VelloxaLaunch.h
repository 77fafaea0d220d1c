#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>
#include <QStringList>

/// Starts Velloxa, in the build that fits the installation's architecture, for the installation's HALCON
/// version.
///
/// Returns false without an error line when Velloxa is not installed, and with one appended to @p errors
/// (unless null) when it could not be started.
bool startVelloxa(const HalconInstallation &installation, QStringList *errors);

/// Where the 64-bit Velloxa is installed, or an empty string. Looked up once for each build, at the first
/// use; an installation made later is not noticed while the program runs.
QString velloxaInstallDir();

/// Full path of the 64-bit Velloxa, or an empty string while it does not exist. Kept once found.
QString velloxaExecutable64();

/// Full path of the 32-bit Velloxa, or an empty string while it does not exist. Kept once found.
QString velloxaExecutable32();
