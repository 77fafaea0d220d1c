#pragma once

#include "companions/common/WindowsHandle.h"
#include "companions/helper/HelperCheck.h"

#include <cstdint>
#include <string>
#include <vector>

/// The literal form of a path with single backslashes, also of one on a share, with the prefix "\\?\":
/// Windows' functions neither limit its length nor interpret its parts.
std::wstring literalPath(const std::wstring &path);

/// Whether a path that is a reparse point names that itself or its target.
enum class Links { asTheyAre, followed };

/// What a path names, opened; the handle is null when it cannot be opened.
struct OpenedPath {
    WindowsHandle handle;
    FileFacts facts;
};

/// Opens the file or directory at a path with single backslashes, at least to query it, and shares it with
/// everybody. A server at the other end can identify the caller but not impersonate them.
/// FileFacts::elsewhere is determined only with Links::asTheyAre: a target may lie anywhere. Windows only.
OpenedPath openPath(const std::wstring &path, Links links, std::uint32_t access = 0);

/// Keeps a directory, and those above it, from being renamed, removed or replaced while this object lives, as
/// far as Windows does that. Stops at the first part of the path that is not a directory or is reached by a
/// detour: nothing beyond that is opened. Windows only.
class HeldPath {
public:
    /// @p path has a drive and single backslashes.
    explicit HeldPath(const std::wstring &path);

    /// Why it stopped, a sentence for the user; empty when the directory is held.
    const std::wstring &refusal() const { return reason; }

    /// Whether an open file lies in the directory under this name. Compares the final paths and, because a
    /// volume can be mounted in an empty directory, the volumes.
    bool contains(void *file, const std::wstring &name) const;

private:
    std::wstring reason;
    std::vector<WindowsHandle> handles;
};
