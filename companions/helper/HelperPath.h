#pragma once

#include <string>

/// Whether @p text holds nothing but what a name on this system can hold: no control characters, and no halves of
/// surrogate pairs.
bool isCleanText(const std::wstring &text);

/// Whether @p path names a file in one way only: a drive letter, a colon, and names after separators. There are no
/// parts "." or "..", no wildcards, no alternate streams, and no names that Windows would cut (those that end in a
/// blank or a dot). Slashes separate as backslashes do, and several in a row like one, because directories
/// are sometimes written with slashes or with one more separator at their ends; a path must not end in one.
bool isPlainFilePath(const std::wstring &path);

/// A plain @p path with single backslashes between its parts and no slashes.
std::wstring withSingleBackslashes(const std::wstring &path);

/// The last part of a plain path with single backslashes.
std::wstring fileNameOf(const std::wstring &path);

/// A plain path with single backslashes without its last part and the backslash before it.
std::wstring directoryOf(const std::wstring &path);

/// Whether two names are the same but for the case of the letters A to Z.
bool sameName(const std::wstring &one, const std::wstring &other);
