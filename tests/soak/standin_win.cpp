// The stand-in for every program that the program starts while it is used at random: adds one line to the
// file that SOAK_STARTS names, with its own path, HALCONROOT and HALCONARCH, separated by tabs, and ends.

#include <cstdlib>
#include <string>
#include <vector>

#include <windows.h>

namespace {

std::wstring variable(const wchar_t *name)
{
    std::vector<wchar_t> value(32768);
    const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return std::wstring(value.data(), length);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t *, int)
{
    std::vector<wchar_t> own(32768);
    const DWORD length = GetModuleFileNameW(nullptr, own.data(), static_cast<DWORD>(own.size()));
    const std::wstring line = std::wstring(own.data(), length) + L'\t' + variable(L"HALCONROOT") + L'\t' +
                              variable(L"HALCONARCH") + L'\n';
    std::vector<char> bytes(line.size() * 4);
    const int size = WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    const HANDLE file =
        CreateFileW(variable(L"SOAK_STARTS").c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    const bool recorded = file != INVALID_HANDLE_VALUE &&
                          WriteFile(file, bytes.data(), static_cast<DWORD>(size), &written, nullptr) != 0;
    return recorded ? EXIT_SUCCESS : EXIT_FAILURE;
}
