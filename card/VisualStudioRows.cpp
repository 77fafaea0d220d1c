#include "card/VisualStudioRows.h"

#include <QSet>

#include <algorithm>

QList<VisualStudioVersion> versionsForArchitecture(const QList<VisualStudioVersion> &versions,
                                                   const QString &arch)
{
    QList<VisualStudioVersion> matching;
    std::copy_if(versions.begin(), versions.end(), std::back_inserter(matching),
                 [&](const VisualStudioVersion &version) { return matchesArchitecture(version, arch); });
    return matching;
}

QStringList visualStudioRows(const QList<VisualStudioVersion> &versions)
{
    QStringList rows;
    QSet<QString> shownIdes;
    for (const VisualStudioVersion &version : versions) {
        if (!version.architecture.isEmpty() || !shownIdes.contains(version.idePath)) {
            shownIdes.insert(version.idePath);
            rows.append(displayName(version));
        }
    }
    return rows;
}
