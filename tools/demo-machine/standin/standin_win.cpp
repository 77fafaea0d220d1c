// The stand-in for a program of the demo machine's installations: shows and records how it was started.

#include "StandInText.h"

#include <windows.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

// The identifiers of the program's icon and name in the resource scripts.
constexpr int iconResource = 1;
constexpr int nameResource = 1;

/// A failed call of Windows. Thrown before another call can change the error code.
struct WindowsError {
    const wchar_t *call;
    DWORD code;
};

/// Returns @p result, or throws when it is 0, with which most calls of Windows report failure.
template <typename Result>
Result checked(Result result, const wchar_t *call)
{
    if (result == Result{}) {
        throw WindowsError{call, GetLastError()};
    }
    return result;
}

std::wstring describe(const WindowsError &error)
{
    const std::wstring text = std::wstring(error.call) + L" failed with error " + std::to_wstring(error.code);
    wchar_t *buffer = nullptr;
    // With FORMAT_MESSAGE_ALLOCATE_BUFFER the buffer parameter is where the new buffer's address is stored.
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr,
        error.code, 0, reinterpret_cast<wchar_t *>(&buffer), 0, nullptr);
    if (length == 0) {
        return text + L'.';
    }
    const std::wstring meaning(buffer, length);
    LocalFree(buffer);
    return text + L":\n" + meaning;
}

std::wstring ownFileName()
{
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = checked(GetModuleFileNameW(nullptr, buffer.data(), size), L"GetModuleFileNameW");
        if (length < size) {
            return std::wstring(buffer.data(), length);
        }
        buffer.resize(buffer.size() * 2);
    }
}

std::vector<std::wstring> ownEnvironment()
{
    const auto release = [](wchar_t *block) { FreeEnvironmentStringsW(block); };
    const std::unique_ptr<wchar_t, decltype(release)> block(
        checked(GetEnvironmentStringsW(), L"GetEnvironmentStringsW"), release);
    std::vector<std::wstring> entries;
    for (const wchar_t *entry = block.get(); *entry != L'\0'; entry += entries.back().size() + 1) {
        entries.emplace_back(entry);
    }
    return entries;
}

std::wstring ownName()
{
    // For a buffer length of 0 the call returns the address of the string itself.
    const wchar_t *text = nullptr;
    const int length =
        checked(LoadStringW(GetModuleHandleW(nullptr), nameResource, reinterpret_cast<wchar_t *>(&text), 0),
                L"LoadStringW");
    return std::wstring(text, static_cast<std::size_t>(length));
}

std::string utf8(const std::wstring &text)
{
    const int size = static_cast<int>(text.size());
    const int bytes =
        checked(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr),
                L"WideCharToMultiByte");
    std::string result(static_cast<std::size_t>(bytes), '\0');
    checked(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(), bytes, nullptr, nullptr),
            L"WideCharToMultiByte");
    return result;
}

void writeFile(const std::wstring &path, const std::string &content)
{
    const HANDLE created =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (created == INVALID_HANDLE_VALUE) {
        throw WindowsError{L"CreateFileW", GetLastError()};
    }
    const auto close = [](HANDLE handle) { CloseHandle(handle); };
    std::unique_ptr<void, decltype(close)> file(created, close);
    DWORD written = 0;
    checked(WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr),
            L"WriteFile");
    // Closed explicitly on success, to check the result.
    checked(CloseHandle(file.release()), L"CloseHandle");
}

/// Writes the record to @p path atomically, so that a reader never sees a part of it.
void record(const ReceivedStart &start, const std::wstring &path)
{
    const std::wstring unfinished = path + L'.' + std::to_wstring(GetCurrentProcessId()) + L".unfinished";
    writeFile(unfinished, utf8(recordText(start)));
    checked(MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING), L"MoveFileExW");
}

/// Converts a length in 1/96 inch to pixels of the main screen.
int pixels(int length)
{
    const HDC screen = checked(GetDC(nullptr), L"GetDC");
    const int perInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return MulDiv(length, checked(perInch, L"GetDeviceCaps"), USER_DEFAULT_SCREEN_DPI);
}

/// The font of Windows' own messages, in a size for reading.
HFONT makeFont()
{
    constexpr int textHeight = 13;
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    checked(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0),
            L"SystemParametersInfoW");
    metrics.lfMessageFont.lfHeight = -pixels(textHeight); // negative: the height without internal leading
    return checked(CreateFontIndirectW(&metrics.lfMessageFont), L"CreateFontIndirectW");
}

/// The icon of the program's own file in the size @p width x @p height, or Windows' icon for any program.
HICON loadIcon(int width, int height)
{
    const HINSTANCE program = checked(GetModuleHandleW(nullptr), L"GetModuleHandleW");
    if (FindResourceW(program, MAKEINTRESOURCEW(iconResource), RT_GROUP_ICON) == nullptr) {
        return checked(LoadIconW(nullptr, IDI_APPLICATION), L"LoadIconW");
    }
    return static_cast<HICON>(checked(
        LoadImageW(program, MAKEINTRESOURCEW(iconResource), IMAGE_ICON, width, height, LR_DEFAULTCOLOR),
        L"LoadImageW"));
}

/// Makes the text, if there is one yet, fill @p window, with a margin inside the scroll bars.
bool fitText(HWND window)
{
    const HWND text = GetWindow(window, GW_CHILD);
    if (text == nullptr) {
        return true;
    }
    RECT area = {};
    if (GetClientRect(window, &area) == 0 || MoveWindow(text, 0, 0, area.right, area.bottom, TRUE) == 0 ||
        GetClientRect(text, &area) == 0) {
        return false;
    }
    // Half as wide as a scroll bar, which grows with the resolution as well.
    const int margin = GetSystemMetrics(SM_CXVSCROLL) / 2;
    if (InflateRect(&area, -margin, -margin) == 0) {
        return false;
    }
    SendMessageW(text, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&area));
    return true;
}

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        // An exception must not pass through Windows: end the program instead of showing half a window.
        if (!fitText(window)) {
            PostQuitMessage(EXIT_FAILURE);
        }
        return 0;
    case WM_SETFOCUS:
        SetFocus(GetWindow(window, GW_CHILD));
        return 0;
    case WM_CTLCOLORSTATIC: {
        // Read-only text is grey otherwise.
        const HDC context = reinterpret_cast<HDC>(wParam);
        SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
        SetBkColor(context, GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    }
    case WM_DESTROY:
        PostQuitMessage(EXIT_SUCCESS);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

HWND makeWindow(const std::wstring &title)
{
    constexpr const wchar_t *className = L"DemoMachineStandIn";
    constexpr int width = 760;
    constexpr int height = 480;
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = handleMessage;
    windowClass.hInstance = checked(GetModuleHandleW(nullptr), L"GetModuleHandleW");
    windowClass.hIcon = loadIcon(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
    windowClass.hIconSm = loadIcon(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
    windowClass.hCursor = checked(LoadCursorW(nullptr, IDC_ARROW), L"LoadCursorW");
    windowClass.lpszClassName = className;
    checked(RegisterClassExW(&windowClass), L"RegisterClassExW");
    return checked(CreateWindowExW(0, className, title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                   CW_USEDEFAULT, pixels(width), pixels(height), nullptr, nullptr,
                                   windowClass.hInstance, nullptr),
                   L"CreateWindowExW");
}

/// Fills @p window with a read-only @p text.
void addText(HWND window, const std::wstring &text, HFONT font)
{
    const HWND control =
        checked(CreateWindowExW(0, L"EDIT", L"",
                                WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL | ES_MULTILINE |
                                    ES_AUTOHSCROLL | ES_AUTOVSCROLL | ES_READONLY,
                                0, 0, 0, 0, window, nullptr, GetModuleHandleW(nullptr), nullptr),
                L"CreateWindowExW");
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    const UINT valueColumn = 80; // in quarters of the average character width
    checked(SendMessageW(control, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&valueColumn)),
            L"EM_SETTABSTOPS");
    checked(SetWindowTextW(control, text.c_str()), L"SetWindowTextW");
}

/// Runs the message loop until the window is closed; returns the exit code.
int runMessageLoop(HWND window)
{
    MSG message = {};
    for (;;) {
        const BOOL result = GetMessageW(&message, nullptr, 0, 0);
        if (result == -1) {
            throw WindowsError{L"GetMessageW", GetLastError()};
        }
        if (result == 0) {
            return static_cast<int>(message.wParam);
        }
        // The text has the focus, so keys are handled before it gets them.
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
            checked(DestroyWindow(window), L"DestroyWindow");
            continue;
        }
        if (message.message == WM_KEYDOWN && message.wParam == 'A' && GetKeyState(VK_CONTROL) < 0) {
            SendMessageW(message.hwnd, EM_SETSEL, 0, -1);
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

int run(int showCommand)
{
    const ReceivedStart start{ownFileName(), GetCommandLineW(), ownEnvironment()};
    if (const std::optional<std::wstring> path = environmentValue(start, L"CORVANTA_STANDIN_RECORD")) {
        record(start, *path);
    }

    const auto release = [](HFONT font) { DeleteObject(font); };
    const std::unique_ptr<HFONT__, decltype(release)> font(makeFont(), release);
    const HWND window = makeWindow(windowTitle(start, ownName()));
    addText(window, windowText(start), font.get());
    ShowWindow(window, showCommand);
    checked(UpdateWindow(window), L"UpdateWindow");
    return runMessageLoop(window);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t *, int showCommand)
{
    try {
        return run(showCommand);
    } catch (const WindowsError &error) {
        MessageBoxW(nullptr, describe(error).c_str(), L"Stand-in of the demo machine", MB_OK | MB_ICONERROR);
        return EXIT_FAILURE;
    }
}
