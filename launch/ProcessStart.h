#pragma once

#include "base/LastWindowsError.h"
#include "discovery/HalconInstallation.h"
#include "launch/ToolEnvironment.h"

#include <QString>
#include <QStringList>

/// Starts @p executable with the environment of @p installation, see ToolEnvironment.h, and does not wait for
/// it.
///
/// @p arguments is the child's whole command line, passed unchanged. On failure returns false and appends the
/// reason to @p errors, unless that is null.
bool startProcess(const QString &executable, const QString &arguments, const HalconInstallation &installation,
                  QStringList *errors);
