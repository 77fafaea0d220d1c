#pragma once

#include <QString>

/// Whether both paths lead to the same existing file, however they reach it: through another drive letter, a
/// share, a short name or a link.
bool isSameFile(const QString &one, const QString &other);
