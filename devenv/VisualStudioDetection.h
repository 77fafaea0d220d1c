#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// The Visual Studio installations (before 2017) below one registry key such as
/// "HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VisualStudio": for each, one record per architecture that has a
/// build script, and one without architecture. @p express tells whether the key is one of the Express
/// products.
QList<VisualStudioVersion> detectVisualStudioInRegistry(const QString &rootKey, bool express);

/// The Visual Studio installations (2017 and later) that vswhere.exe, beside the program, reports; none
/// without it. Waits for it up to five seconds.
QList<VisualStudioVersion> detectVisualStudioViaVswhere();

/// The records of a report of vswhere.exe, in its order: for each complete installation, one record per
/// architecture that has a build script on this machine, and one without architecture.
QList<VisualStudioVersion> parseVswhereReport(const QByteArray &report);

/// Every Visual Studio on the machine, without duplicates, newest first. Searches at each call.
QList<VisualStudioVersion> detectVisualStudioVersions();

/// The result of detectVisualStudioVersions(), which runs at the first call only.
QList<VisualStudioVersion> visualStudioVersions();
