#pragma once

#include <QString>

/// Paths to files that Wine knows but cannot create: these functions work on the file system below Wine.
/// Windows only. A failure ends the test program.
namespace WineFiles {

/// Makes a symbolic link to @p target, which may be a name relative to the link. Wine presents it as a
/// reparse point.
void makeSymbolicLink(const QString &target, const QString &link);

void removeSymbolicLink(const QString &link);

/// Removes an empty directory although a handle to it is open, which Windows itself would refuse.
void removeOpenDirectory(const QString &directory);

/// The path of the same file or directory of drive C with another drive letter.
QString onAnotherDrive(const QString &path);

/// While it lives, maps a drive or a share to a directory on drive C.
class Mapping {
public:
    /// @p root is a drive letter and a colon, or a share such as \\server\share.
    Mapping(const QString &root, const QString &directory);
    Mapping(const Mapping &) = delete;
    Mapping &operator=(const Mapping &) = delete;
    ~Mapping();

private:
    QString link; ///< in the file system below Wine
    QString name;
};

} // namespace WineFiles
