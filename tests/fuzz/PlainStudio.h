#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QFileInfo>
#include <QString>
#include <QStringList>

/// A Visual Studio as a fuzzer's own, plain reading finds it, and what the product must make of it.
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

/// All fields of each record, for a comparison.
inline QStringList fieldsOf(const QList<VisualStudioVersion> &records)
{
    QStringList fields;
    for (const VisualStudioVersion &record : records) {
        fields.append(QStringList{record.name, record.edition, record.version, record.architecture,
                                  record.productDir, record.vcDir, record.vcvarsBat, record.ideName,
                                  record.idePath, record.express ? "express" : "whole"}
                          .join('|'));
    }
    return fields;
}
