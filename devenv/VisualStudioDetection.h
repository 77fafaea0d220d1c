#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QList>
#include <QString>

/// The Visual Studio installations (before 2017) below one registry key such as
/// "HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VisualStudio": for each, one record per architecture that has a build
/// script, and one without architecture. @p express tells whether the key is one of the Express products.
QList<VisualStudioVersion> detectVisualStudioInRegistry(const QString &rootKey, bool express);

/// Every Visual Studio on the machine, without duplicates, newest first. Looks anew at each call.
QList<VisualStudioVersion> detectVisualStudioVersions();

/// The result of detectVisualStudioVersions(), which runs at the first call only.
QList<VisualStudioVersion> visualStudioVersions();
