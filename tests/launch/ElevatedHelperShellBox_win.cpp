#include "tests/launch/ElevatedHelperShellBox.h"

#include <windows.h>

#include <cwchar>

namespace {

/// A message box of this process, or null.
HWND openBox()
{
    HWND found = nullptr;
    EnumWindows(
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t className[16] = L"";
            GetClassNameW(window, className, 16);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process != GetCurrentProcessId() || std::wcscmp(className, L"#32770") != 0 ||
                IsWindowVisible(window) == 0) {
                return TRUE;
            }
            *reinterpret_cast<HWND *>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace

ElevatedHelperShellBox::ElevatedHelperShellBox() : user([this] { closeBoxes(); }) {}

ElevatedHelperShellBox::~ElevatedHelperShellBox()
{
    ended = true;
    user.join();
}

/// In a thread of its own, because the box blocks the thread that started the program.
void ElevatedHelperShellBox::closeBoxes()
{
    constexpr DWORD pollMilliseconds = 10;
    HWND last = nullptr;
    while (!ended) {
        HWND box = openBox();
        if (box != nullptr && box != last) {
            ++count;
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        }
        last = box;
        Sleep(pollMilliseconds);
    }
}
