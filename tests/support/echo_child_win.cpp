// A fake tool. It writes what it was given into the file that the environment variable ECHO_CHILD_RECORD
// names, and ends.
//
// The record is UTF-16LE text: the command line, the full path of the program, its current directory, the
// show command it was started with (-1 for none) and then each entry of its environment block, in the block's
// order; each terminated by a 0.
//
// When ECHO_CHILD_EVENT names an event, the program first waits for it. ECHO_CHILD_EXIT_CODE is its exit
// code, as a decimal number; without it, 0.

#include <windows.h>

#include <cwchar>
#include <memory>
#include <string>

namespace {

/// An open file, closed with its owner.
class OutputFile {
public:
    explicit OutputFile(const std::wstring &path)
        : handle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                             nullptr))
    {
    }
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile()
    {
        if (handle != INVALID_HANDLE_VALUE) {
            CloseHandle(handle);
        }
    }

    bool write(const std::wstring &text) const
    {
        const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        DWORD written = 0;
        return handle != INVALID_HANDLE_VALUE &&
               WriteFile(handle, text.data(), size, &written, nullptr) != 0 && written == size;
    }

private:
    HANDLE handle;
};

/// Longer than any path or variable value of Windows.
constexpr DWORD capacity = 32768;

std::wstring environmentVariable(const wchar_t *name)
{
    std::wstring value(capacity, L'\0');
    value.resize(GetEnvironmentVariableW(name, &value[0], capacity));
    return value;
}

std::wstring executablePath()
{
    std::wstring path(capacity, L'\0');
    path.resize(GetModuleFileNameW(nullptr, &path[0], capacity));
    return path;
}

std::wstring currentDirectory()
{
    std::wstring path(capacity, L'\0');
    path.resize(GetCurrentDirectoryW(capacity, &path[0]));
    return path;
}

std::wstring showCommand()
{
    STARTUPINFOW info = {};
    GetStartupInfoW(&info);
    return (info.dwFlags & STARTF_USESHOWWINDOW) != 0 ? std::to_wstring(info.wShowWindow) : L"-1";
}

/// Waits until the event is set, or so long that its creator must have ended.
void waitForEvent(const std::wstring &name)
{
    constexpr DWORD limitMilliseconds = 60000;
    const std::unique_ptr<void, decltype(&CloseHandle)> event(OpenEventW(SYNCHRONIZE, FALSE, name.c_str()),
                                                              &CloseHandle);
    if (event != nullptr) {
        WaitForSingleObject(event.get(), limitMilliseconds);
    }
}

/// The entries of the environment block, each with its terminating 0.
std::wstring environmentEntries()
{
    const std::unique_ptr<wchar_t, decltype(&FreeEnvironmentStringsW)> block(GetEnvironmentStringsW(),
                                                                             &FreeEnvironmentStringsW);
    const wchar_t *end = block.get();
    while (*end != L'\0') {
        end += std::wcslen(end) + 1;
    }
    return std::wstring(block.get(), std::size_t(end - block.get()));
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    constexpr int notRecorded = 1;
    const std::wstring event = environmentVariable(L"ECHO_CHILD_EVENT");
    if (!event.empty()) {
        waitForEvent(event);
    }
    const std::wstring record = environmentVariable(L"ECHO_CHILD_RECORD");
    // A reader that waits for the record must never see a part of it.
    const std::wstring unfinished = record + L".unfinished";
    const wchar_t end = L'\0';
    if (!OutputFile(unfinished)
             .write(std::wstring(GetCommandLineW()) + end + executablePath() + end + currentDirectory() +
                    end + showCommand() + end + environmentEntries())) {
        return notRecorded;
    }
    // The file is closed by now, so it can be renamed.
    if (MoveFileExW(unfinished.c_str(), record.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
        return notRecorded;
    }
    return static_cast<int>(std::wcstoul(environmentVariable(L"ECHO_CHILD_EXIT_CODE").c_str(), nullptr, 10));
}
