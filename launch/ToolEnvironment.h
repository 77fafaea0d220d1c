#pragma once

#include "discovery/HalconInstallation.h"

#include <QMap>
#include <QString>

#include <memory>

/// The environment variables that a tool of @p installation gets instead of the program's own: HALCON's
/// variables and a PATH that begins with the installation's executables. HALCONIMAGES and HALCONEXAMPLES are
/// absent when the installation has no example root.
QMap<QString, QString> variableOverrides(const HalconInstallation &installation);

/// The program's own environment with @p overrides, as CreateProcessW expects it: UTF-16 "NAME=value"
/// strings, each terminated by a 0, and one more 0 at the end. The buffer is freed with its last owner.
std::shared_ptr<char16_t[]> buildEnvironmentBlock(const QMap<QString, QString> &overrides);
