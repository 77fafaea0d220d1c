#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QStringList>

/// Every field of @p installations as text, one line for each record, so that a comparison shows all of them:
/// numbers, suffix, architecture, installation directory, example root and components.
inline QStringList recordLines(const QList<HalconInstallation> &installations)
{
    QStringList lines;
    for (const HalconInstallation &each : installations) {
        lines.append(
            QString("%1.%2.%3.%4 '%5' %6 | %7 | %8 | %9")
                .arg(each.major)
                .arg(each.minor)
                .arg(each.revision)
                .arg(each.build)
                .arg(each.suffix, each.arch, each.installDir, each.exampleRoot, each.components.join(' ')));
    }
    return lines;
}
