#pragma once

#include "tests/devenv/PlainStudio.h"

#include <QByteArray>

/// A Visual Studio that vswhere.exe reports. @p version has two numbers.
inline PlainStudio reportedStudio(const QString &path, const QString &name, const QString &version)
{
    const QString scripts = path + "\\VC\\Auxiliary\\Build\\";
    return {name, version, path, path + "\\VC", scripts + "vcvars64.bat", scripts + "vcvars32.bat"};
}

/// Its lines in a report, among others.
inline QByteArray blockOf(const PlainStudio &studio)
{
    return "instanceId: 4a5b6c7d\ninstallationPath: " + studio.productDir.toUtf8() +
           "\ninstallationVersion: " + studio.version.toUtf8() +
           ".33205.214\nisPrerelease: 0\ndisplayName: " + studio.edition.toUtf8() +
           "\ncatalog_productLine: Dev17\n\n";
}

/// The records of reported ones in the order in which they are found, and the log lines about them.
inline PlainFindings reportedFindings(const QList<PlainStudio> &studios)
{
    PlainFindings findings;
    for (const PlainStudio &studio : studios) {
        findings.log << "installationPath: " + studio.productDir << "installationVersion: " + studio.version
                     << "displayName: " + studio.edition;
        studio.add(&findings.records, &findings.log);
    }
    return findings;
}
