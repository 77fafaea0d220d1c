// A fake vswhere.exe. It does what these environment variables say, in this order:
//
// VSWHERE_CHILD_RUNS          the file to which a record of this run is appended
// VSWHERE_CHILD_READS_INPUT   when set, standard input is read to its end
// VSWHERE_CHILD_DELAY         milliseconds to wait before the report
// VSWHERE_CHILD_REPORT        the file whose bytes go to standard output
// VSWHERE_CHILD_REPEATS       when set, the report is repeated until nobody reads it
// VSWHERE_CHILD_ERRORS        the file whose bytes go to standard error
// VSWHERE_CHILD_LINGER        milliseconds to wait after the report
// VSWHERE_CHILD_EXIT_CODE     the exit code
//
// The record is UTF-16LE text: the process id, the full path of the program and its arguments, each
// terminated by a 0, and a line feed.

#include <windows.h>

#include <array>
#include <string>

namespace {

/// A file or pipe, closed with its owner.
class File {
public:
    explicit File(HANDLE handle) : handle(handle) {}
    File(const File &) = delete;
    File &operator=(const File &) = delete;
    ~File()
    {
        if (handle != INVALID_HANDLE_VALUE) {
            CloseHandle(handle);
        }
    }

    /// How many bytes were stored in @p buffer; 0 at the end.
    DWORD read(std::array<char, 65536> &buffer) const
    {
        DWORD size = 0;
        return ReadFile(handle, buffer.data(), DWORD(buffer.size()), &size, nullptr) != 0 ? size : 0;
    }

    bool write(const void *data, DWORD size) const
    {
        DWORD written = 0;
        return WriteFile(handle, data, size, &written, nullptr) != 0 && written == size;
    }

private:
    HANDLE handle;
};

std::wstring environmentVariable(const wchar_t *name)
{
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, &value[0], DWORD(value.size())));
    return value;
}

/// The number in a variable; 0 when there is no such variable.
DWORD number(const wchar_t *name)
{
    const std::wstring text = environmentVariable(name);
    return text.empty() ? 0 : DWORD(std::stoul(text));
}

/// The stream belongs to its only user, and is closed with it.
File standardStream(DWORD which)
{
    return File(GetStdHandle(which));
}

bool recordRun(int argumentCount, wchar_t **arguments)
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, &path[0], DWORD(path.size())));
    const wchar_t end = L'\0';
    std::wstring record = std::to_wstring(GetCurrentProcessId()) + end + path + end;
    for (int i = 1; i < argumentCount; ++i) {
        record += arguments[i];
        record += end;
    }
    record += L'\n';
    const File runs(CreateFileW(environmentVariable(L"VSWHERE_CHILD_RUNS").c_str(), FILE_APPEND_DATA,
                                FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    return runs.write(record.data(), DWORD(record.size() * sizeof(wchar_t)));
}

void readInput()
{
    const File input = standardStream(STD_INPUT_HANDLE);
    std::array<char, 65536> buffer = {};
    while (input.read(buffer) > 0) {
    }
}

/// False when not all of the file named by @p variable could be written.
bool writeFileTo(const File &target, const wchar_t *variable)
{
    const File source(CreateFileW(environmentVariable(variable).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    std::array<char, 65536> buffer = {};
    while (const DWORD size = source.read(buffer)) {
        if (!target.write(buffer.data(), size)) {
            return false;
        }
    }
    return true;
}

} // namespace

int wmain(int argumentCount, wchar_t **arguments)
{
    if (!recordRun(argumentCount, arguments)) {
        return 101;
    }
    if (!environmentVariable(L"VSWHERE_CHILD_READS_INPUT").empty()) {
        readInput();
    }
    Sleep(number(L"VSWHERE_CHILD_DELAY"));
    const File output = standardStream(STD_OUTPUT_HANDLE);
    const bool repeats = !environmentVariable(L"VSWHERE_CHILD_REPEATS").empty();
    do {
        if (!writeFileTo(output, L"VSWHERE_CHILD_REPORT")) {
            return 102;
        }
        // Never silent for long, but not so much that the reader runs out of memory.
        Sleep(repeats ? 1 : 0);
    } while (repeats);
    if (!writeFileTo(standardStream(STD_ERROR_HANDLE), L"VSWHERE_CHILD_ERRORS")) {
        return 102;
    }
    Sleep(number(L"VSWHERE_CHILD_LINGER"));
    // Unlike a return value, this accepts every number.
    ExitProcess(number(L"VSWHERE_CHILD_EXIT_CODE"));
}
