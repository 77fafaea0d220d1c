#include "devenv/BuildScripts.h"

#include "base/DebugLogger.h"

#include <QFileInfo>

#include <array>

QList<VisualStudioVersion> recordsPerArchitecture(const VisualStudioVersion &product, const QString &script64,
                                                  const QString &script32)
{
    struct Script {
        QString path;
        QString architecture;
        bool exists;
    };
    // Both are looked for before either is logged.
    const std::array<Script, 2> scripts{{
        {script64, QStringLiteral("amd64"), QFileInfo(script64).isFile()},
        {script32, QStringLiteral("x86"), QFileInfo(script32).isFile()},
    }};

    QList<VisualStudioVersion> records;
    for (const Script &script : scripts) {
        DebugLogger::instance().log(
            script.path + (script.exists ? QStringLiteral(" found") : QStringLiteral(" NOT found")));
        if (script.exists) {
            VisualStudioVersion record = product;
            record.vcvarsBat = script.path;
            record.architecture = script.architecture;
            records.append(record);
        }
    }
    records.append(product);
    return records;
}
