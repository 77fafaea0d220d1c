#pragma once

#include "tests/devenv/RecordLines.h"

#include <QFileInfo>
#include <QList>
#include <QString>
#include <QStringList>

/// A Visual Studio as a second, plain reading of the machine finds it, and what the product must make of it.
struct PlainStudio {
    QString edition;
    QString version;
    QString productDir;
    QString vcDir;
    QString script64; ///< where its build scripts would be
    QString script32;
    bool express = false;

    /// Adds its records, as fieldsOf() gives them, and the lines that the product logs about them.
    void add(QStringList *records, QStringList *log) const
    {
        QString ide = QStringLiteral("|");
        for (const QString &directory : {QString(), productDir}) {
            for (const char *name : {"wdexpress", "vcexpress", "devenv"}) {
                if (!express && name[0] != 'd') {
                    continue;
                }
                const QFileInfo file(directory + "\\Common7\\IDE\\" + name + ".exe");
                const bool exists = file.isFile();
                log->append(file.absoluteFilePath() + (exists ? " exists" : " does NOT exist"));
                if (exists) {
                    ide = QLatin1String(name) + QLatin1Char('|') + file.absoluteFilePath();
                    break;
                }
            }
        }
        const auto record = [&](const QString &architecture, const QString &script) {
            return QStringList{QString(),    edition,    version,
                               architecture, productDir, vcDir,
                               script,       ide,        express ? "express" : "whole"}
                .join('|');
        };
        const bool has64 = QFileInfo(script64).isFile();
        const bool has32 = QFileInfo(script32).isFile();
        log->append(script64 + (has64 ? " found" : " NOT found"));
        log->append(script32 + (has32 ? " found" : " NOT found"));
        if (has64) {
            records->append(record("amd64", script64));
        }
        if (has32) {
            records->append(record("x86", script32));
        }
        records->append(record(QString(), QString()));
    }
};

/// One registered with its @p productDir as an edition of a version.
inline PlainStudio registeredStudio(const QString &edition, const QString &version, const QString &productDir)
{
    const QString vcDir = productDir + "\\VC";
    return {edition,
            version,
            productDir,
            vcDir,
            vcDir + "\\bin\\amd64\\vcvars64.bat",
            vcDir + "\\bin\\vcvars32.bat"};
}

/// An Express product, which is registered with its @p vcDir.
inline PlainStudio expressStudio(const QString &version, const QString &productDir, const QString &vcDir)
{
    return {"Express Edition",
            version,
            productDir,
            vcDir,
            vcDir + "\\bin\\amd64\\vcvars64.bat",
            vcDir + "\\bin\\vcvars32.bat",
            true};
}

/// The records and log lines of several.
struct PlainFindings {
    QStringList records;
    QStringList log;
};

inline PlainFindings findingsOf(const QList<PlainStudio> &studios)
{
    PlainFindings findings;
    for (const PlainStudio &studio : studios) {
        studio.add(&findings.records, &findings.log);
    }
    return findings;
}
