#pragma once

#include <QString>

/// Ways to files that Wine knows but cannot make: what is done here is done to the file system below it. Windows only.
/// What a test needs and cannot have ends the test program.
namespace WineFiles {

/// Makes @p link lead to @p target, for which a name beside the link serves. On Windows it is a reparse point.
void makeSymbolicLink(const QString &target, const QString &link);

void removeSymbolicLink(const QString &link);

/// Removes an empty directory although somebody keeps it open, which Windows itself would not do.
void removeOpenDirectory(const QString &directory);

/// The same file or directory on drive C, under another drive's letter.
QString onAnotherDrive(const QString &path);

/// While it lives, one more way to a directory on drive C.
class Mapping {
public:
    /// @p root is the new way's name: a drive's letter and a colon, or a share, as in \\server\share.
    Mapping(const QString &root, const QString &directory);
    Mapping(const Mapping &) = delete;
    Mapping &operator=(const Mapping &) = delete;
    ~Mapping();

private:
    QString link; ///< in the file system below
    QString name;
};

} // namespace WineFiles
