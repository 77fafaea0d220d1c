#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// A published release of this program.
struct OwnRelease {
    int major;       ///< 1 of version 1.8
    int minor;       ///< 8 of version 1.8
    QString message; ///< the maker's message about it, as HTML; may be empty
};

/// The release in @p file, the downloaded JSON, if it is newer than @p ownVersion ("1.8"); nothing if it is
/// not, or if one of them cannot be read. Appends to @p log what was wrong.
std::optional<OwnRelease> newerOwnRelease(const QByteArray &file, const QString &ownVersion,
                                          QStringList *log);

/// The message to the user about @p release, as rich text with a link to the maker's home page.
QString ownReleaseHtml(const OwnRelease &release, const QString &ownVersion);
