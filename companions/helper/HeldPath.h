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

/// Opens what is under a path with single backslashes, directories too, for as long as nobody minds. Whoever is at the
/// other end learns who asks, but cannot act in his name. When that fails, @p error is Windows' reason. Windows only.
WindowsHandle openPath(const std::wstring &path, Links links, std::uint32_t access, std::uint32_t share,
                       std::uint32_t &error);

/// What is under a path with single backslashes. Nothing is held. Windows only.
FileFacts factsOf(const std::wstring &path, Links links);

/// What is open, which was opened under @p path. Windows only.
FileFacts factsOf(void *handle, const std::wstring &path);

/// The same without a path, but for whether it lies elsewhere. Windows only.
FileFacts factsOf(void *handle) noexcept;

/// What is to be known of a path that could not be opened.
FileFacts factsOfFailure(std::uint32_t error);

/// Where what is open really lies, as a literal path; empty when that cannot be found out. Windows only.
std::wstring finalPathOf(void *handle);

/// Whether two paths are the same but for upper and lower case, as Windows compares names. Windows only.
bool samePath(const std::wstring &one, const std::wstring &other);

/// Keeps a directory, and those above it, from being renamed, removed or replaced while it lives, as far as Windows does
/// that. Stops at the first part of the path that is no directory, or a detour: what lies behind one is not opened.
/// Windows only.
class HeldPath {
public:
    /// @p path has a drive and single backslashes.
    explicit HeldPath(const std::wstring &path);

    /// The part of the path at which it stopped, the path itself at last, and what is there.
    const std::wstring &end() const { return endPath; }
    const FileFacts &facts() const { return endFacts; }

    /// The handle of the directory; null when it was not reached.
    void *handle() const;

private:
    bool holdPart(const std::wstring &path);

    std::wstring endPath;
    FileFacts endFacts;
    std::vector<WindowsHandle> handles;
    bool reached = true;
};
