#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QList>
#include <QStringList>

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

/// The display name of each record.
inline QStringList displayNames(const QList<VisualStudioVersion> &versions)
{
    QStringList names;
    for (const VisualStudioVersion &each : versions) {
        names.append(displayName(each));
    }
    return names;
}
