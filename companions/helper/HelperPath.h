#pragma once

#include <cstddef>
#include <string>

/// What keeps @p text from being a value or a path, as the end of a sentence that begins with it; nothing if it has at
/// most @p longest characters, none of them a control character and none half a surrogate pair.
std::wstring faultOfText(const std::wstring &text, std::size_t longest);

/// With what a path may begin: a drive letter and a colon, or two separators, a server and a share as well.
enum class PathRoot { drive, driveOrShare };

/// What keeps @p path from naming a file in one way only, a sentence that begins with the path; nothing when it does.
/// Behind its root come names after separators. There are no parts "." or "..", no wildcards, no alternate streams, no
/// device paths, and no names that Windows would cut (those that end in a space or a dot). Slashes separate as
/// backslashes do, and several in a row like one, because directories are sometimes written with slashes or with one
/// more separator at their ends; a path must not end in one.
std::wstring refusalOfPath(const std::wstring &path, PathRoot root, std::size_t longest);

/// A path without a fault with single backslashes between its parts and no slashes.
std::wstring withSingleBackslashes(const std::wstring &path);

/// The last part of a path with single backslashes.
std::wstring fileNameOf(const std::wstring &path);

/// A path with single backslashes without its last part and the backslash before it.
std::wstring directoryOf(const std::wstring &path);

/// Whether two names are the same but for the case of the letters A to Z.
bool sameName(const std::wstring &one, const std::wstring &other);

/// @p text, whatever it is, as a sentence can have it: in quotes, shortened when it is very long, and with question
/// marks for what could make it look like something else, such as quotes and marks of direction.
std::wstring shown(const std::wstring &text);

/// A sentence that says @p end of a path.
std::wstring sentence(const std::wstring &path, const std::wstring &end);
