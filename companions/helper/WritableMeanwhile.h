#pragma once

#include "companions/helper/HeldPath.h"
#include "companions/helper/UniqueHandle.h"

#include <cstdint>
#include <string>

/// Makes a read-only file writable, without which nothing can take its place, and read-only again with its owner
/// unless the file has been replaced meanwhile. Windows only.
///
/// Keeps no handle, which would be in the way of that too. So what is there is looked at anew each time, and changed
/// through the same handle: never what a link leads to, nor a file that has a second name.
class WritableMeanwhile {
public:
    /// @p path is a plain path with single backslashes.
    explicit WritableMeanwhile(const std::wstring &path);
    WritableMeanwhile(const WritableMeanwhile &) = delete;
    WritableMeanwhile &operator=(const WritableMeanwhile &) = delete;
    ~WritableMeanwhile();

    /// Leaves whatever has taken the file's place as it is.
    void keepWritable() { attributes = 0; }

private:
    UniqueHandle open() const;

    std::wstring literal;
    FileFacts facts;
    std::uint32_t attributes = 0; ///< those of before; 0 when they are not to be put back
};
