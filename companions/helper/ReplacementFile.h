#pragma once

#include "companions/common/WindowsHandle.h"
#include "companions/helper/HeldPath.h"

#include <string>
#include <vector>

/// A new file, deleted with its owner unless it has replaced another in its directory. Windows only.
///
/// An empty directory can be turned into a junction even while it is held. So the new file is created first
/// and then checked for being in the held directory: from then on the directory is not empty and cannot
/// become a junction.
class ReplacementFile {
public:
    enum class Place {
        none, ///< the file could not be made
        elsewhere,
        inDirectory,
    };

    /// @p path is the plain one, with single backslashes, under which the directory was reached.
    ReplacementFile(const HeldPath &directory, const std::wstring &path);
    ReplacementFile(const ReplacementFile &) = delete;
    ReplacementFile &operator=(const ReplacementFile &) = delete;
    ~ReplacementFile();

    Place place() const { return where; }

    /// Also false when the file does not lie in the directory.
    bool write(const std::vector<unsigned char> &bytes) const;

    /// Renames the new file to @p path, in the same directory, and so replaces a file of that name, even a
    /// read-only one. On failure the old file keeps its contents, but may have lost its read-only attribute.
    bool replace(const std::wstring &path);

private:
    ReplacementFile() = default;

    WindowsHandle file;
    Place where = Place::none;
    bool inPlace = false;
};
