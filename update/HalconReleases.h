#pragma once

#include "discovery/HalconInstallation.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

/// The published HALCON releases, the newest of each version and edition.
///
/// The keys are version strings such as "20.11", exactly as published; the records hold version numbers only.
struct HalconReleases {
    QHash<QString, HalconInstallation> progress; ///< of the edition with continuous releases
    QHash<QString, HalconInstallation> regular;  ///< of all other editions
};

/// Reads the list of releases from @p file, the downloaded JSON. Leaves out a release that cannot be read; a
/// file that cannot be read gives none. Appends to @p log, line by line, what was found and what was wrong.
HalconReleases parseHalconReleases(const QByteArray &file, QStringList *log);

/// The release of the version and edition of @p installation, or nothing when none is published.
std::optional<HalconInstallation> publishedRelease(const HalconReleases &releases,
                                                   const HalconInstallation &installation);

/// Whether @p release has a higher version number than @p installation. An unknown number (-1) is the lowest.
bool isNewer(const HalconInstallation &release, const HalconInstallation &installation);

/// A line of HTML that announces @p latest, with a red link to @p downloadPage unless that is empty.
QString updateLine(const HalconInstallation &latest, const QString &downloadPage);

/// @p html, a whole document, with @p line at the end of its body.
QString withLastLine(const QString &html, const QString &line);
