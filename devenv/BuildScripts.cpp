#include "devenv/BuildScripts.h"

#include "app/DebugLogger.h"

#include <QFileInfo>

#include <array>

QList<VisualStudioVersion> recordsPerArchitecture(const VisualStudioVersion &product, const QString &script64,
                                                  const QString &script32)
{
    struct Script {
        QString path;
        QString architecture;
    };
    const std::array<Script, 2> scripts{{
        {script64, QStringLiteral("amd64")},
        {script32, QStringLiteral("x86")},
    }};

    QList<VisualStudioVersion> records;
    for (const Script &script : scripts) {
        const bool exists = QFileInfo::exists(script.path);
        DebugLogger::instance().log(script.path +
                                    (exists ? QStringLiteral(" found") : QStringLiteral(" NOT found")));
        if (exists) {
            VisualStudioVersion record = product;
            record.vcvarsBat = script.path;
            record.architecture = script.architecture;
            records.append(record);
        }
    }
    records.append(product);
    return records;
}
