#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QList>
#include <QStringList>

/// All ten fields of each record, one line for each field, so that a comparison names the field that differs.
inline QStringList fieldLines(const QList<VisualStudioVersion> &versions)
{
    QStringList lines;
    for (const VisualStudioVersion &each : versions) {
        lines << "name: " + each.name << "edition: " + each.edition << "version: " + each.version
              << "architecture: " + each.architecture << "productDir: " + each.productDir
              << "vcDir: " + each.vcDir << "vcvarsBat: " + each.vcvarsBat << "ideName: " + each.ideName
              << "idePath: " + each.idePath << QString("express: ") + (each.express ? "yes" : "no");
    }
    return lines;
}

/// The display name of each record.
inline QStringList displayNames(const QList<VisualStudioVersion> &versions)
{
    QStringList names;
    for (const VisualStudioVersion &each : versions) {
        names.append(displayName(each));
    }
    return names;
}
