#pragma once

#include "tests/support/EnvironmentVariable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

/// While it lives, an empty directory replaces the user's one for the settings of applications.
class HDevelopSettings {
public:
    HDevelopSettings()
    {
        if (!directory.isValid()) {
            qFatal("no directory: %s", qPrintable(directory.errorString()));
        }
        moveTo(directory.path());
    }

    /// A path in the directory that was made for the test.
    QString path(const QString &name) const { return directory.filePath(name); }

    /// The path of HDevelop's settings file.
    QString file() const { return QDir(settingsDirectory).filePath("MVTec/HDevelop.ini"); }

    /// Makes @p newDirectory the one for the settings of applications.
    void moveTo(const QString &newDirectory)
    {
        settingsDirectory = newDirectory;
        variable.set(QFile::encodeName(QDir::toNativeSeparators(newDirectory)));
    }

    /// Writes HDevelop's settings file. A failure ends the test program.
    void write(const QByteArray &contents) const
    {
        QFile settings(file());
        if (!QDir().mkpath(QFileInfo(settings).path()) || !settings.open(QFile::WriteOnly) ||
            settings.write(contents) != contents.size()) {
            qFatal("could not write %s: %s", qPrintable(file()), qPrintable(settings.errorString()));
        }
    }

    /// Writes a settings file that names @p paths, which contain neither commas nor quotes.
    void writePrograms(const QStringList &paths) const
    {
        write("[Settings]\r\nRecentPrograms=" + paths.join(", ").toLocal8Bit() + "\r\nOther=1\r\n");
    }

private:
    EnvironmentVariable variable{"APPDATA"};
    QString settingsDirectory;
    QTemporaryDir directory;
};
