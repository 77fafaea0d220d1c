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
    const HRESULT extracted = SHDefExtractIconW(reinterpret_cast<const wchar_t *>(native.utf16()), 0, 0,
                                                &icon, nullptr, UINT(size));
    if (extracted != S_OK || icon == nullptr) {
        return {};
    }
    const QPixmap picture = qt_pixmapFromWinHICON(icon);
    DestroyIcon(icon);
    return picture;
}
