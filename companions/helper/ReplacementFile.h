#pragma once

#include "companions/common/WindowsHandle.h"
#include "companions/helper/HeldPath.h"

#include <string>
#include <vector>

/// A new file that goes away with its owner unless it takes the place of another in its directory. Windows only.
///
/// Somebody with rights to an empty directory can make it lead elsewhere although it is held. So it is the new file
/// that tells whether it lies in the held directory; from then on that is not empty any more and stays what it is.
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

    /// False as well when the file does not lie in the directory.
    bool write(const std::vector<unsigned char> &bytes) const;

    /// Takes the name @p path, which is one in the directory, and with it the place of the file that has it, which may
    /// be read-only. When that fails the file is as it was, but may not be read-only any more.
    bool replace(const std::wstring &path);

private:
    ReplacementFile() = default;

    WindowsHandle file;
    Place where = Place::none;
    bool inPlace = false;
};
