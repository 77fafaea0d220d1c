#pragma once

#include "launch/ElevatedHelper.h"
#include "license/LicenseCopy.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Messages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>
#include <QUrl>

/// A directory for a test's licence files, and one of its own in which the program makes temporary files.
class LicenseFiles {
public:
    LicenseFiles()
    {
        if (!directory.isValid() || !QDir(directory.path()).mkpath("temporary")) {
            qFatal("no directory: %s", qPrintable(directory.errorString()));
        }
        useTemporaryDirectory(path("temporary"));
    }
    LicenseFiles(const LicenseFiles &) = delete;
    LicenseFiles &operator=(const LicenseFiles &) = delete;
    ~LicenseFiles()
    {
        // Read-only files would stay on the disk.
        for (const QString &file : QDir(path("H/license")).entryList(QDir::Files)) {
            QFile::setPermissions(path("H/license/" + file), QFile::ReadOwner | QFile::WriteOwner);
        }
    }

    QString path(const QString &name) const { return directory.filePath(name); }
    QString native(const QString &name) const { return QDir::toNativeSeparators(path(name)); }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    /// Makes a file, and the directories above it. A failure ends the test program.
    void write(const QString &name, const QByteArray &contents) const
    {
        QFile file(path(name));
        if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QFile::WriteOnly) ||
            file.write(contents) != contents.size()) {
            qFatal("could not write %s: %s", qPrintable(name), qPrintable(file.errorString()));
        }
    }
    void makeDirectory(const QString &name) const { QDir(directory.path()).mkpath(name); }

    /// A file's contents; "(none)" when there is no such file.
    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : "(none)";
    }
    bool writeProtect(const QString &name) const
    {
        return QFile::setPermissions(path(name), QFile::ReadOwner);
    }

    /// The names of the current temporary files.
    QStringList temporaryFiles() const
    {
        return QDir(path("temporary")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// Leaves the program without a directory for temporary files, by naming a file instead.
    void loseTemporaryDirectory() const
    {
        write("no directory", "");
        useTemporaryDirectory(path("no directory"));
    }

private:
    void useTemporaryDirectory(const QString &path) const
    {
        variable.set(QFile::encodeName(path));
        variableOnWindows.set(QFile::encodeName(QDir::toNativeSeparators(path)));
    }

    EnvironmentVariable variable{"TMPDIR"};
    EnvironmentVariable variableOnWindows{"TMP"};
    QTemporaryDir directory;
};

/// Copies the file @p source, or @p dropped when there is no such file, to H/license/license.dat.
inline bool install(const LicenseFiles &files, const QString &source, const QString &dropped = QString(),
                    QStringList *errors = nullptr)
{
    return copyLicenseFile(files.native(source), dropped, files.path("H/license/license.dat"), errors);
}

/// What the log says when the helper is to copy @p source to @p target, both native.
inline QStringList helperLogLines(const QString &source, const QString &target)
{
    return {"warning: could not copy source file \"" + source + "\" to destination file \"" + target +
                "\". Trying to install license with an elevated helper process.",
            "executing helper process with elevated rights: " + helperExecutablePath() + " --copy=\"" +
                target + "\" \"" + source + "\""};
}

/// What the log says of a target that is in the way, and cannot be removed.
inline QStringList removalLogLines(const QString &target)
{
    return {"removing existing file " + target, "warning: cannot remove existing file " + target + " \""};
}

/// What the user is told when the helper has ended with @p exitCode.
inline QString helperFailureLine(int exitCode)
{
    return QString("helper process returned with value %1. This indicates an error in its execution!")
        .arg(exitCode);
}

/// The temporary file that the first line of the log names.
inline QString loggedTemporaryFile(const LogLines &log)
{
    return log.lines()
        .value(0)
        .section("creating temporary file ", 1)
        .section(" with the same contents", 0, 0);
}
