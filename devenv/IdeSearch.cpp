#include "devenv/IdeSearch.h"

#include "base/DebugLogger.h"

#include <QFileInfo>
#include <QStringList>

namespace {

QStringList ideCandidates(bool express)
{
    QStringList candidates;
    if (express) {
        candidates << QStringLiteral("wdexpress") << QStringLiteral("vcexpress");
    }
    return candidates << QStringLiteral("devenv");
}

} // namespace

void findIdeExecutable(VisualStudioVersion &version)
{
    const QStringList candidates = ideCandidates(version.express);
    for (const QString &candidate : candidates) {
        const QFileInfo file(version.productDir + QStringLiteral("\\Common7\\IDE\\") + candidate +
                             QStringLiteral(".exe"));
        if (file.isFile()) {
            DebugLogger::instance().log(file.absoluteFilePath() + QStringLiteral(" exists"));
            version.idePath = file.absoluteFilePath();
            version.ideName = candidate;
            return;
        }
        DebugLogger::instance().log(file.absoluteFilePath() + QStringLiteral(" does NOT exist"));
    }
}
