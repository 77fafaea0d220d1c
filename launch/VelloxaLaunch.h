#pragma once

#include "discovery/HalconInstallation.h"
#include "launch/Velloxa.h"

#include <QString>
#include <QStringList>

/// Starts @p velloxa, in the build that fits the installation's architecture, for the installation's HALCON
/// version.
///
/// Returns false without an error line when Velloxa is not installed, and with one appended to @p errors
/// (unless null) when it could not be started.
bool startVelloxa(Velloxa &velloxa, const HalconInstallation &installation, QStringList *errors);

/// Starts the Velloxa of this machine. Its directory is looked up in the registry once for each build, at the
/// first use; an installation made later is not noticed while the program runs.
bool startVelloxa(const HalconInstallation &installation, QStringList *errors);

/// Where the machine's 64-bit Velloxa is installed, or an empty string.
QString velloxaInstallDir();

/// Full path of the machine's 64-bit Velloxa, or an empty string while it does not exist. Kept once found.
QString velloxaExecutable64();

/// Full path of the machine's 32-bit Velloxa, or an empty string while it does not exist. Kept once found.
QString velloxaExecutable32();
