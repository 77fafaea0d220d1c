#pragma once

#include "tests/support/CurrentDirectory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

/// What absolute paths begin with that are made from paths without a drive: the root of the current drive,
/// with a slash at its end. Wine takes such a path for one of the machine it runs on, whichever drive is
/// current.
inline QString currentDriveRoot()
{
    return QFileInfo("/").absoluteFilePath();
}

/// An empty file that a path without a drive leads to, such as "Common7/IDE/devenv.exe". While it is there the drive of
/// the temporary directories, which can be written to, is the current one. It goes with its owner, and so do the
/// directories above it.
class FileOnCurrentDrive {
public:
    explicit FileOnCurrentDrive(const QString &name)
        : drive(QDir::tempPath().left(3)), current(drive), top(drive + name.section('/', 0, 0))
    {
        QFile file(drive + name);
        if (QFileInfo::exists(top) || !QDir().mkpath(QFileInfo(file).path()) ||
            !file.open(QIODevice::WriteOnly)) {
            qFatal("could not make the file %s", qPrintable(file.fileName()));
        }
    }
    FileOnCurrentDrive(const FileOnCurrentDrive &) = delete;
    FileOnCurrentDrive &operator=(const FileOnCurrentDrive &) = delete;
    ~FileOnCurrentDrive()
    {
        QFile::remove(top);
        QDir(top).removeRecursively();
    }

private:
    QString drive;
    CurrentDirectory current;
    QString top; ///< of what was made
};
