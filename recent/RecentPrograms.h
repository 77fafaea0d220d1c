#pragma once

#include <QString>
#include <QStringList>

/// The HDevelop programs that the user opened last, in the order of HDevelop's settings file. Empty when
/// there is no such file; one empty path when it names no programs or cannot be read.
QStringList readRecentPrograms();

/// The paths in the value of HDevelop's setting: separated by commas, those that contain commas in double
/// quotes. What follows an unclosed quote is dropped.
QStringList splitRecentPrograms(const QString &value);

/// A path with the matches of a search text.
struct HighlightedPath {
    QString html; ///< the path with backslashes, its matches in red and bold
    int score;    ///< how many matches there are
};

/// Marks every match of @p searchText in @p path, ignoring case. A match is shown as it was typed, not as it
/// is in the path. Overlapping matches count in the score.
HighlightedPath highlightPath(const QString &path, const QString &searchText);
