#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>
#include <QStringList>

/// Starts Velloxa, in the build that fits the installation's architecture, for the installation's HALCON version.
///
/// Returns false without an error line when Velloxa is not installed, and with one appended to @p errors (unless
/// null) when it could not be started.
bool startVelloxa(const HalconInstallation &installation, QStringList *errors);

/// Where Velloxa is installed, or an empty text. Looked up once; an installation made while the program runs is not
/// noticed.
QString velloxaInstallDir();

/// Full path of the 64-bit Velloxa, or an empty text while it does not exist. Kept once found.
QString velloxaExecutable64();

/// Full path of the 32-bit Velloxa, or an empty text while it does not exist. Kept once found.
QString velloxaExecutable32();
