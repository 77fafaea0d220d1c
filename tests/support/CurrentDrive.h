#pragma once

#include "tests/support/CurrentDirectory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

/// The root, with a slash at its end, that absolute paths made from paths without a drive begin with: that of
/// the current drive. Wine takes such a path for one of the machine it runs on, whichever drive is current.
inline QString currentDriveRoot()
{
    return QFileInfo("/").absoluteFilePath();
}

/// An empty file that a path without a drive leads to, such as "Common7/IDE/devenv.exe". While it exists, the
/// writable drive of the temporary directories is the current one. The file is removed with its owner, and so
/// are the directories above it.
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
    QString top; ///< of the new directories
};
