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

/// Where Wine's prefix lies in the file system below.
QString prefix()
{
    using Function = char *(CDECL *)(const wchar_t *);
    const auto unixName = reinterpret_cast<Function>(reinterpret_cast<void *>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    require(unixName != nullptr, "wine_get_unix_file_name");
    char *const root = unixName(L"C:\\");
    require(root != nullptr, "wine_get_unix_file_name of C:\\");
    // The name leads over a link that is named as the drive.
    QString result = QString::fromUtf8(root).section("/dosdevices/c:", 0, 0);
    HeapFree(GetProcessHeap(), 0, root);
    return result;
}

/// The name there of a file or directory on drive C.
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
    // Wine makes no such links, but takes those of the file system below for reparse points. It does not tell when a
    // program of that system has ended.
    const QFileInfo info(link);
    require(QProcess::startDetached("Z:/bin/ln", {"-s", target, info.fileName()}, info.path()),
            "starting ln");
    require(QTest::qWaitFor([&link] { return QFileInfo::exists(link); }, patienceMilliseconds),
            "linking " + link);
}

void removeSymbolicLink(const QString &link)
{
    // Wine's own removing would fail or follow the link.
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
    // Wine looks at most once a second which drives there are, and tells a file's volume by the drive: two looks at a
    // file must not have that between them.
    QTest::qWait(1100);
}

Mapping::~Mapping()
{
    require(QProcess::startDetached("Z:/bin/rm", {link}), "starting rm");
    // Wine would look for a share that is gone on the network, and wait.
    require(QTest::qWaitFor([this] { return !QFileInfo::exists("Z:" + link); }, patienceMilliseconds),
            "removing " + name);
}

} // namespace WineFiles
