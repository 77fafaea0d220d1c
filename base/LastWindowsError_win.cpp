#include "base/LastWindowsError.h"

#include <QObject>

#include <windows.h>

QString lastWindowsErrorText()
{
    const DWORD code = GetLastError();
    wchar_t *text = nullptr;
    // With FORMAT_MESSAGE_ALLOCATE_BUFFER the buffer parameter is where the new buffer's address is stored.
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS |
                       FORMAT_MESSAGE_FROM_SYSTEM,
                   nullptr, code, 0, reinterpret_cast<wchar_t *>(&text), 0, nullptr);
    QString result =
        text != nullptr ? QString::fromWCharArray(text).trimmed() : QObject::tr("Unknown Error %1").arg(code);
    LocalFree(text);
    return result;
}
