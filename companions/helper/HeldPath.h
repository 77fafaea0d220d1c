#pragma once

#include "companions/common/WindowsHandle.h"
#include "companions/helper/HelperCheck.h"

#include <cstdint>
#include <string>
#include <vector>

/// A path with single backslashes, also one on a share, as Windows' functions take it without a look at its length or
/// its parts.
std::wstring literalPath(const std::wstring &path);

/// Whether a path stands for itself or, if that is a reparse point, for what it leads to.
enum class Links { asTheyAre, followed };

/// What is under a path: open, or null when it cannot be opened.
struct OpenedPath {
    WindowsHandle handle;
    FileFacts facts;
};

/// Opens what is under a path with single backslashes, directories too, for at least a look at it, and keeps nobody
/// off. Whoever is at the other end learns who asks, but cannot act in his name. Where it lies is found out only with
/// links as they are: otherwise it may lie anywhere. Windows only.
OpenedPath openPath(const std::wstring &path, Links links, std::uint32_t access = 0);

/// Keeps a directory, and those above it, from being renamed, removed or replaced while it lives, as far as Windows
/// does that. Stops at the first part of the path that is no directory, or a detour: what lies behind one is not
/// opened. Windows only.
class HeldPath {
public:
    /// @p path has a drive and single backslashes.
    explicit HeldPath(const std::wstring &path);

    /// Why it stopped, a sentence for the user; empty when it holds the directory.
    const std::wstring &refusal() const { return reason; }

    /// Whether an open file lies in the directory under this name: by its path and, because a whole volume can be made
    /// to appear in an empty directory, by its volume.
    bool contains(void *file, const std::wstring &name) const;

private:
    std::wstring reason;
    std::vector<WindowsHandle> handles;
};
