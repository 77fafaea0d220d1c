#pragma once

#include <cstddef>
#include <string>

/// Why @p text cannot be a value or a path, as the end of a sentence that begins with it; empty if it has at
/// most @p longest characters and no control character or lone surrogate.
std::wstring faultOfText(const std::wstring &text, std::size_t longest);

/// How a path may begin: a drive letter and a colon, or two separators, a server and a share as well.
enum class PathRoot { drive, driveOrShare };

/// Why @p path does not name a file unambiguously, a sentence that begins with the path; empty when it does.
/// After the root come names, each after a separator: no "." or "..", no wildcards, no alternate data
/// streams, no device paths, and no names that Windows would shorten because they end in a space or a dot. A
/// slash separates as a backslash does, and several in a row as one, because directories are sometimes
/// registered with slashes or with a separator at their end. A path must not end in one.
std::wstring refusalOfPath(const std::wstring &path, PathRoot root, std::size_t longest);

/// An acceptable path with single backslashes between its parts and no slashes.
std::wstring withSingleBackslashes(const std::wstring &path);

/// The last part of a path with single backslashes.
std::wstring fileNameOf(const std::wstring &path);

/// A path with single backslashes without its last part and the backslash before it.
std::wstring directoryOf(const std::wstring &path);

/// Whether two names are the same but for the case of the letters A to Z.
bool sameName(const std::wstring &one, const std::wstring &other);

/// Any @p text made safe for a sentence: in quotes, shortened when it is very long, and with question marks
/// for characters that could disguise it, such as quotes and direction marks.
std::wstring shown(const std::wstring &text);

/// The sentence that consists of the path and @p end.
std::wstring sentence(const std::wstring &path, const std::wstring &end);
