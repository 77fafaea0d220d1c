#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>

/// The details beside the version number, as rich text. A directory that does not exist is marked as not
/// found; one that does is a link, whose target names the kind of directory, not its path.
QString detailsHtml(const HalconInstallation &installation, bool installDirExists, bool exampleRootExists);
