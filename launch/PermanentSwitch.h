#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>
#include <QStringList>

/// The elevated helper's command line that makes @p installation the machine's default: its four variables,
/// and, as far as asked for and present, the COM libraries to register. Values are in double quotes and not
/// escaped.
QString helperArguments(const HalconInstallation &installation, bool registerHalconCom,
                        bool registerEngineCom);

/// Makes @p installation the machine's default through the elevated helper and tells all windows. With @p
/// perform false nothing is done and nothing can fail.
///
/// Appends to @p lines (unless null) what would be done, or what was done and what failed. Blocks until the
/// helper has ended.
bool permanentSwitch(const HalconInstallation &installation, bool perform, bool registerHalconCom,
                     bool registerEngineCom, QStringList *lines);
