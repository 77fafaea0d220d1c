#pragma once

#include <QPixmap>
#include <QString>

/// The first icon in the file of the program @p path, @p size pixels wide and high; null when there is no icon,
/// or no such file. Reads the file alone, which is much quicker than to ask the shell.
QPixmap programIcon(const QString &path, int size);
