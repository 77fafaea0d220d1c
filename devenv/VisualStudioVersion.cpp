#include "devenv/VisualStudioVersion.h"

#include <algorithm>

QString displayName(const VisualStudioVersion &version)
{
    const QString architecture = version.architecture.isEmpty()
                                     ? QString()
                                     : QStringLiteral(" (") + version.architecture + QLatin1Char(')');
    return QStringLiteral("Visual Studio %1 (%2)%3").arg(version.version, version.edition, architecture);
}

bool matchesArchitecture(const VisualStudioVersion &version, const QString &halconArch)
{
    const auto bothContain = [&](QLatin1String bits) {
        return halconArch.contains(bits, Qt::CaseInsensitive) &&
               version.architecture.contains(bits, Qt::CaseInsensitive);
    };
    return bothContain(QLatin1String("86")) || bothContain(QLatin1String("64"));
}

void orderVisualStudioVersions(QList<VisualStudioVersion> &versions)
{
    using Record = VisualStudioVersion;
    std::sort(versions.begin(), versions.end(),
              [](const Record &a, const Record &b) { return displayName(a) < displayName(b); });
    versions.erase(
        std::unique(versions.begin(), versions.end(),
                    [](const Record &a, const Record &b) { return displayName(a) == displayName(b); }),
        versions.end());
    const auto isX86 = [](const Record &record) { return record.architecture == QLatin1String("x86"); };
    std::stable_sort(versions.begin(), versions.end(),
                     [&](const Record &a, const Record &b) { return isX86(a) && !isX86(b); });
    std::stable_sort(versions.begin(), versions.end(), [](const Record &a, const Record &b) {
        return a.version.toDouble() > b.version.toDouble();
    });
}
