#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QList>
#include <QString>

/// One copy of @p product for each of the two build scripts that exists, and one more without architecture.
/// Logs for each script whether it was found.
QList<VisualStudioVersion> recordsPerArchitecture(const VisualStudioVersion &product, const QString &script64,
                                                  const QString &script32);
