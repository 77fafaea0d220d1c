#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Those of the records that build for @p arch, in their order.
QList<VisualStudioVersion> versionsForArchitecture(const QList<VisualStudioVersion> &versions,
                                                   const QString &arch);

/// The rows of the card's list: the display names of @p versions, where records without architecture count
/// once for each IDE.
QStringList visualStudioRows(const QList<VisualStudioVersion> &versions);
