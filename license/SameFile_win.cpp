#include "license/SameFile.h"

#include "companions/common/WindowsHandle.h"

#include <QDir>
#include <QFileInfo>

#include <windows.h>

namespace {

/// A native path in the form that Windows accepts at any length.
QString literalPath(const QString &path)
{
    const bool onShare = path.startsWith(QLatin1String("\\\\"));
    return onShare ? QStringLiteral("\\\\?\\UNC\\") + path.mid(2) : QStringLiteral("\\\\?\\") + path;
}

/// Opens what @p path leads to, only to query it; null when that fails.
WindowsHandle openToLook(const QString &path)
{
    const QString native = literalPath(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()));
    return WindowsHandle(CreateFileW(reinterpret_cast<const wchar_t *>(native.utf16()), 0,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// What identifies an open file. False when Windows does not know it.
bool identityOf(const WindowsHandle &file, BY_HANDLE_FILE_INFORMATION &identity)
{
    // Some network file systems have no file identifiers.
    return file && GetFileInformationByHandle(file.get(), &identity) != 0 &&
           (identity.nFileIndexHigh != 0 || identity.nFileIndexLow != 0);
}

} // namespace

bool isSameFile(const QString &one, const QString &other)
{
    const WindowsHandle oneFile = openToLook(one);
    const WindowsHandle otherFile = openToLook(other);
    BY_HANDLE_FILE_INFORMATION oneIdentity = {};
    BY_HANDLE_FILE_INFORMATION otherIdentity = {};
    if (!identityOf(oneFile, oneIdentity) || !identityOf(otherFile, otherIdentity)) {
        return QFileInfo::exists(one) && QFileInfo(one) == QFileInfo(other);
    }
    return oneIdentity.dwVolumeSerialNumber == otherIdentity.dwVolumeSerialNumber &&
           oneIdentity.nFileIndexHigh == otherIdentity.nFileIndexHigh &&
           oneIdentity.nFileIndexLow == otherIdentity.nFileIndexLow &&
           // A shadow copy or an image of a disk has the same file identifiers.
           oneIdentity.nFileSizeHigh == otherIdentity.nFileSizeHigh &&
           oneIdentity.nFileSizeLow == otherIdentity.nFileSizeLow &&
           CompareFileTime(&oneIdentity.ftLastWriteTime, &otherIdentity.ftLastWriteTime) == 0;
}
