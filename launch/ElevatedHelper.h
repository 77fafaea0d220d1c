#pragma once

#include <QString>

/// The path of the elevated helper, beside the program. It need not exist.
QString helperExecutablePath();

/// The sentence that tells the user why there is no helper; empty when one is expected.
///
/// The installer leaves the helper out of an installation for one user. Any program of that user could
/// replace it there, and the user would grant the replacement administrator rights. The installer puts the
/// file qz_com_helper.txt there instead.
QString reasonForMissingHelper();

/// Starts @p executable through the shell, which asks the user for consent when the executable's manifest
/// wants administrator rights. @p arguments is passed unchanged; @p show tells whether the process may show a
/// window.
///
/// Returns -1 when it could not be started or the user declined. Otherwise returns the process's exit code
/// when @p wait is true, without a time limit, or 0 at once.
int runElevated(const QString &executable, const QString &arguments, bool show, bool wait);

/// Runs the helper with @p arguments through runElevated() and waits for it. Also returns -1 when there is a
/// reasonForMissingHelper(): then it does not ask the shell, which would show an error box.
int runHelper(const QString &arguments, bool show);
