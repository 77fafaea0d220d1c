#pragma once

#include <QString>

/// Where the helper is expected that does what needs administrator rights: beside the program. It need not exist.
QString helperExecutablePath();

/// Starts @p executable through the shell, which asks the user for consent when the executable's manifest wants
/// administrator rights. @p arguments is passed as it stands; @p show tells whether the process may show itself.
///
/// Returns -1 when it could not be started or the user declined. Otherwise the process's exit code when @p wait is
/// true, for which there is no time limit, or 0 at once.
int runElevated(const QString &executable, const QString &arguments, bool show, bool wait);
