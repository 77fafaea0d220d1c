#pragma once

#include <string>
#include <vector>

/// Notes, for as long as it exists, which files this program or a library in it looks for or opens; there is
/// one at a time. The fonts of the machine are left out.
class FileWatch {
public:
    FileWatch();
    ~FileWatch();
    FileWatch(const FileWatch &) = delete;
    FileWatch &operator=(const FileWatch &) = delete;

    const std::vector<std::string> &paths() const { return noted; }

    /// Called by the functions that stand in for those of the C library.
    void note(const char *path);

private:
    std::vector<std::string> noted;
};
