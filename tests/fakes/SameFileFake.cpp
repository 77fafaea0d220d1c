#include "license/SameFile.h"

#include <QFile>

#include <sys/stat.h>

/// Instead of license/SameFile_win.cpp: the same query on the host system.
bool isSameFile(const QString &one, const QString &other)
{
    struct stat oneFile = {};
    struct stat otherFile = {};
    return stat(QFile::encodeName(one).constData(), &oneFile) == 0 &&
           stat(QFile::encodeName(other).constData(), &otherFile) == 0 &&
           oneFile.st_dev == otherFile.st_dev && oneFile.st_ino == otherFile.st_ino;
}
