#include "card/ProgramIcon.h"

#include <QDir>

#include <windows.h>

#include <shlobj.h>

// In QtGui and without a header there: what Qt's own conversions of icons call.
Q_GUI_EXPORT QPixmap qt_pixmapFromWinHICON(HICON icon);

QPixmap programIcon(const QString &path, int size)
{
    HICON icon = nullptr;
    const QString native = QDir::toNativeSeparators(path);
    // Most programs have icons of 16, 32, 48 and 256 pixels. Of these Windows enlarges the next best for a size
    // between the last two, although a small picture of the large one is sharper.
    const int read = size <= 48 ? size : 256;
    const HRESULT extracted = SHDefExtractIconW(reinterpret_cast<const wchar_t *>(native.utf16()), 0, 0,
                                                &icon, nullptr, UINT(read));
    if (extracted != S_OK || icon == nullptr) {
        return {};
    }
    const QPixmap picture = qt_pixmapFromWinHICON(icon);
    DestroyIcon(icon);
    return read == size ? picture
                        : picture.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
