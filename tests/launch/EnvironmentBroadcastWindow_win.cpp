// A program with a window that receives broadcasts, for a test program in another process.
//
// It prints "ready", then a line for each WM_SETTINGCHANGE: its wParam, its text, and whether the file that
// ECHO_CHILD_RECORD names is there at that moment. It ends when its window is closed. With the argument
// "hang" it handles no message after "ready".

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace {

void print(const std::wstring &line)
{
    std::printf("%ls\n", line.c_str());
    std::fflush(stdout);
}

bool recordIsThere()
{
    wchar_t path[MAX_PATH] = L"";
    GetEnvironmentVariableW(L"ECHO_CHILD_RECORD", path, MAX_PATH);
    return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
}

LRESULT CALLBACK handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SETTINGCHANGE: {
        const auto *text = reinterpret_cast<const wchar_t *>(lParam);
        print(L"wParam " + std::to_wstring(wParam) + L", text " + (text != nullptr ? text : L"(null)") +
              (recordIsThere() ? L", after the helper" : L""));
        return 0;
    }
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int)
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = handle;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = L"BroadcastWindow";
    RegisterClassW(&windowClass);
    // The test finds it by its title.
    if (CreateWindowExW(0, windowClass.lpszClassName, commandLine, WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                        nullptr, nullptr, instance, nullptr) == nullptr) {
        return 1;
    }
    print(L"ready");
    if (std::wcscmp(commandLine, L"hang") == 0) {
        Sleep(INFINITE);
    }
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}
