#pragma once

#include "base/LastWindowsError.h"
#include "discovery/HalconInstallation.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

/// The environment variables that a tool of @p installation gets in place of the program's own: HALCON's variables
/// and a PATH that begins with the installation's executables. HALCONIMAGES and HALCONEXAMPLES are absent when the
/// installation has no example root.
QMap<QString, QString> variableOverrides(const HalconInstallation &installation);

/// The program's own environment with @p overrides in it, as CreateProcessW wants it: UTF-16 "NAME=value" strings,
/// each ended by a 0, and one more 0 at the end. The buffer is freed with its last owner.
std::shared_ptr<char16_t[]> buildEnvironmentBlock(const QMap<QString, QString> &overrides);

/// Starts @p executable with the environment of @p installation and does not wait for it.
///
/// @p arguments is the child's whole command line, used as it stands. Returns false when the process could not be
/// created; then a line that says why is appended to @p errors, unless that is null.
bool startProcess(const QString &executable, const QString &arguments, const HalconInstallation &installation,
                  QStringList *errors);
