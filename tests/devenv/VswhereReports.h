#pragma once

#include "devenv/VisualStudioVersion.h"
#include "tests/support/CurrentDrive.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QStringList>

/// A Visual Studio that vswhere.exe may report.
struct ReportedStudio {
    QString path;
    QString name;
    QString version;       ///< two numbers
    bool hasIde = false;   ///< whether devenv.exe exists
    bool has64Bit = false; ///< whether vcvars64.bat exists
    bool has32Bit = false; ///< whether vcvars32.bat exists

    /// Its lines in a report, among others.
    QByteArray block() const
    {
        return "instanceId: 4a5b6c7d\ninstallationPath: " + path.toUtf8() +
               "\ninstallationVersion: " + version.toUtf8() +
               ".33205.214\nisPrerelease: 0\ndisplayName: " + name.toUtf8() +
               "\ncatalog_productLine: Dev17\n\n";
    }

    /// The records found for it, in the order in which they are found.
    QList<VisualStudioVersion> records() const
    {
        const VisualStudioVersion none{
            "",   name, version, "", path, path + "\\VC", "", hasIde ? "devenv" : "", hasIde ? idePath() : "",
            false};
        QList<VisualStudioVersion> result;
        if (has64Bit) {
            result.append(none);
            result.last().architecture = "amd64";
            result.last().vcvarsBat = script("64");
        }
        if (has32Bit) {
            result.append(none);
            result.last().architecture = "x86";
            result.last().vcvarsBat = script("32");
        }
        return result << none;
    }

    /// The log lines about it.
    QStringList logLines() const
    {
        return {"installationPath: " + path,
                "installationVersion: " + version,
                "displayName: " + name,
                currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                idePath() + (hasIde ? " exists" : " does NOT exist"),
                script("64") + (has64Bit ? " found" : " NOT found"),
                script("32") + (has32Bit ? " found" : " NOT found")};
    }

private:
    QString idePath() const { return QDir::fromNativeSeparators(path) + "/Common7/IDE/devenv.exe"; }
    QString script(const QString &bits) const
    {
        return path + "\\VC\\Auxiliary\\Build\\vcvars" + bits + ".bat";
    }
};
