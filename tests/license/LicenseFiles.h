#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

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
        qputenv("TMPDIR", before);
        qputenv("TMP", beforeOnWindows);
        // Read-only files would stay on the disk.
        for (const QString &file : QDir(path("H/license")).entryList(QDir::Files)) {
            QFile::setPermissions(path("H/license/" + file), QFile::ReadOwner | QFile::WriteOwner);
        }
    }

    QString path(const QString &name) const { return directory.filePath(name); }
    QString native(const QString &name) const { return QDir::toNativeSeparators(path(name)); }

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
    static void useTemporaryDirectory(const QString &path)
    {
        qputenv("TMPDIR", QFile::encodeName(path));
        qputenv("TMP", QFile::encodeName(QDir::toNativeSeparators(path)));
    }

    QByteArray before = qgetenv("TMPDIR");
    QByteArray beforeOnWindows = qgetenv("TMP");
    QTemporaryDir directory;
};
