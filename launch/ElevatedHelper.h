#pragma once

#include <QString>

/// Where the helper is expected that does what needs administrator rights: beside the program. It need not exist.
QString helperExecutablePath();

/// The sentence that tells the user why there is no helper, or an empty text when one is expected.
///
/// Beside an installation for one user alone its installer leaves the helper out: it would lie where every program of
/// that user could put another one in its place, and the user would give that one administrator rights. The installer
/// puts the file qz_com_helper.txt there instead.
QString reasonForMissingHelper();

/// Starts @p executable through the shell, which asks the user for consent when the executable's manifest wants
/// administrator rights. @p arguments is passed as it stands; @p show tells whether the process may show itself.
///
/// Returns -1 when it could not be started or the user declined. Otherwise the process's exit code when @p wait is
/// true, for which there is no time limit, or 0 at once.
int runElevated(const QString &executable, const QString &arguments, bool show, bool wait);

/// Runs the helper with @p arguments through runElevated() and waits for it. -1, too, when there is a
/// reasonForMissingHelper(): then the shell is not asked for what is not there, for it would complain in a box of its
/// own.
int runHelper(const QString &arguments, bool show);
