#pragma once

#include "companions/helper/HelperCheck.h"
#include "companions/helper/UniqueHandle.h"

#include <string>
#include <vector>

/// A plain path as Windows' functions take it without a look at its length or its parts.
std::wstring literalPath(const std::wstring &path);

/// What is under a plain path with single backslashes. Nothing is held. Windows only.
FileFacts factsOf(const std::wstring &path);

/// What is open, which was opened under @p path. Windows only.
FileFacts factsOf(void *handle, const std::wstring &path);

/// The same without a path, but for whether it lies elsewhere. Windows only.
FileFacts factsOf(void *handle) noexcept;

/// Where what is open really lies, as a literal path; empty when that cannot be found out. Windows only.
std::wstring finalPathOf(void *handle);

/// Whether two paths are the same but for upper and lower case, as Windows compares names. Windows only.
bool samePath(const std::wstring &one, const std::wstring &other);

/// Keeps what is under a path, and the directories above it, from being renamed, removed or replaced while it lives,
/// as far as Windows does that, and knows what is there. Windows only.
class HeldPath {
public:
    /// Whether others may write to a held file.
    enum class Writers { refused, allowed };

    /// @p path is a plain path with single backslashes.
    HeldPath(const std::wstring &path, Writers writers);

    /// What is there, from the top. Ends with the first part that could not be opened.
    const WayFacts &facts() const { return wayFacts; }

    /// The handle of the path itself, open for reading; null when the path was not reached.
    void *handle() const;

private:
    bool holdPart(const std::wstring &path, Writers writers);

    WayFacts wayFacts;
    std::vector<UniqueHandle> handles;
    bool reached = true;
};
