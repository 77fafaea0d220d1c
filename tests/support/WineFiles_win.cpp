#include "tests/support/Patience.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <windows.h>

namespace {

void require(bool success, const QString &what)
{
    if (!success) {
        qFatal("%s failed: %lu", qPrintable(what), GetLastError());
    }
}

/// The path of Wine's prefix in the file system below.
QString prefix()
{
    using Function = char *(CDECL *)(const wchar_t *);
    const auto unixName = reinterpret_cast<Function>(reinterpret_cast<void *>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    require(unixName != nullptr, "wine_get_unix_file_name");
    char *const root = unixName(L"C:\\");
    require(root != nullptr, "wine_get_unix_file_name of C:\\");
    // The path contains a symbolic link named after the drive.
    QString result = QString::fromUtf8(root).section("/dosdevices/c:", 0, 0);
    HeapFree(GetProcessHeap(), 0, root);
    return result;
}

/// The path there of a file or directory on drive C.
QString inTheFileSystemBelow(const QString &path)
{
    const QString slashed = QDir::fromNativeSeparators(path);
    require(slashed.startsWith("C:/", Qt::CaseInsensitive), "finding drive C in " + path);
    return QDir::cleanPath(prefix() + "/drive_c" + slashed.mid(2));
}

} // namespace

namespace WineFiles {

void makeSymbolicLink(const QString &target, const QString &link)
{
    // Wine cannot create such links, but presents those of the file system below as reparse points. It does
    // not report when a program of that system has ended.
    const QFileInfo info(link);
    require(QProcess::startDetached("Z:/bin/ln", {"-s", target, info.fileName()}, info.path()),
            "starting ln");
    require(QTest::qWaitFor([&link] { return QFileInfo::exists(link); }, patienceMilliseconds),
            "linking " + link);
}

void removeSymbolicLink(const QString &link)
{
    // Wine's own functions would fail or follow the link.
    const QFileInfo info(link);
    require(QProcess::startDetached("Z:/bin/rm", {info.fileName()}, info.path()), "starting rm");
    require(QTest::qWaitFor([&link] { return !QFileInfo::exists(link); }, patienceMilliseconds),
            "removing " + link);
}

void removeOpenDirectory(const QString &directory)
{
    const QFileInfo info(directory);
    require(QProcess::startDetached("Z:/bin/rmdir", {info.fileName()}, info.path()), "starting rmdir");
    require(QTest::qWaitFor([&directory] { return !QFileInfo::exists(directory); }, patienceMilliseconds),
            "removing " + directory);
}

QString onAnotherDrive(const QString &path)
{
    // Wine's drive Z shows the file system in which its drive C is a directory.
    QString result = "Z:" + QDir::toNativeSeparators(inTheFileSystemBelow(path));
    require(QFileInfo::exists(result), "finding " + result);
    return result;
}

Mapping::Mapping(const QString &root, const QString &directory)
    : link(prefix() + "/dosdevices/" +
           (root.startsWith("\\\\") ? "unc/" + QDir::fromNativeSeparators(root).mid(2) : root.toLower())),
      name(root + '\\')
{
    require(QProcess::startDetached("Z:/bin/sh", {"-c", "mkdir -p \"${1%/*}\" && ln -s \"$2\" \"$1\"", "sh",
                                                  link, inTheFileSystemBelow(directory)}),
            "starting sh");
    require(QTest::qWaitFor([this] { return QFileInfo::exists("Z:" + link); }, patienceMilliseconds),
            "mapping " + root);
    require(QFileInfo::exists(name), "finding " + name);
    // Wine updates its list of drives at most once a second, and derives a file's volume from the drive. No
    // such update may happen between two queries about one file.
    QTest::qWait(1100);
}

Mapping::~Mapping()
{
    require(QProcess::startDetached("Z:/bin/rm", {link}), "starting rm");
    // Wine would look for a removed share on the network, and wait.
    require(QTest::qWaitFor([this] { return !QFileInfo::exists("Z:" + link); }, patienceMilliseconds),
            "removing " + name);
}

} // namespace WineFiles
