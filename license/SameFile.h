#pragma once

#include <QString>

/// Whether both paths lead to one and the same file that exists. It is the file that counts, not how it is reached:
/// through another drive letter, a share, a short name or a link it is still the same.
bool isSameFile(const QString &one, const QString &other);
