#pragma once

#include "discovery/HalconInstallation.h"

#include <QSettings>
#include <QString>
#include <QStringList>

// The two registry keys in which Windows stores environment variables, and what a permanent switch says about
// them.

const QString userKey = R"(HKEY_CURRENT_USER\Environment)";
const QString systemKey =
    R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Session Manager\Environment)";

/// Removes from both keys the variables that a switch sets.
inline void clearVariables()
{
    for (const QString &key : {userKey, systemKey}) {
        QSettings settings(key, QSettings::NativeFormat);
        for (const char *name : {"HALCONROOT", "HALCONARCH", "HALCONIMAGES", "HALCONEXAMPLES"}) {
            settings.remove(QString(name));
        }
    }
}

/// The contents of both keys, one line for each variable; to find out whether anything has changed.
inline QStringList environmentLines()
{
    QStringList lines;
    for (const QString &key : {userKey, systemKey}) {
        const QSettings settings(key, QSettings::NativeFormat);
        for (const QString &name : settings.allKeys()) {
            lines.append(name + "=" + settings.value(name).toString());
        }
    }
    return lines;
}

/// The line for one variable.
inline QString changeLine(const QString &name, const QString &scope, const QString &from, const QString &to)
{
    return "changing environment variable " + name + " (scope: " + scope + ") from\n " + from + " to\n " +
           to + " (scope: system)";
}

const QString broadcastLine = "broadcast environment updated message (WM_SETTINGCHANGE)";
