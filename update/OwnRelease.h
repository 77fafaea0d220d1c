#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// A published release of this program.
struct OwnRelease {
    int major;       ///< 1 of version 1.8
    int minor;       ///< 8 of version 1.8
    QString message; ///< what the maker has to say about it, as HTML; may be empty
};

/// The release that @p file, the downloaded JSON, tells of when it is newer than @p ownVersion ("1.8"); nothing when
/// it is not, or when one of them cannot be read. What was wrong is appended to @p log.
std::optional<OwnRelease> newerOwnRelease(const QByteArray &file, const QString &ownVersion,
                                          QStringList *log);

/// What tells the user of @p release, as rich text with a link to the maker's home page.
QString ownReleaseHtml(const OwnRelease &release, const QString &ownVersion);
