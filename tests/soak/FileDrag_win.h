#pragma once

#include <QPoint>
#include <QString>

/// Drags a file with the mouse from a small window in the corner of the screen, as from Explorer, and drops
/// it at @p target, a position on the screen. False when nothing there has taken it.
bool dragFile(const QString &file, QPoint target);
