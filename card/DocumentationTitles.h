#pragma once

#include <QString>

/// The title of a documentation directory, such as "Solution Guide" for "solution_guide". An unknown name is
/// returned as it is and reported as a warning.
QString beautifyDir(const QString &name);

/// The title of a manual by the base name of its file, such as "Quick Guide" for "quick_guide". An unknown
/// name is returned as it is and reported as a warning.
QString beautifyFilename(const QString &name);
