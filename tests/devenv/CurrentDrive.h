#pragma once

#include <QFileInfo>
#include <QString>

/// What absolute paths begin with that are made from paths without a drive: the root of the current drive,
/// with a slash at its end. Wine takes such a path for one of the machine it runs on, whichever drive is
/// current.
inline QString currentDriveRoot()
{
    return QFileInfo("/").absoluteFilePath();
}
