// A fake of the elevated helper: carries out --copy="DESTINATION" "SOURCE" and first creates the
// destination's directory, without which the program's own copy fails. Its exit code is 0 or the number of
// the error.

#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <string>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    constexpr int misused = 1000;
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> arguments(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    const std::wstring option = L"--copy=";
    if (count != 3 || option.compare(0, std::wstring::npos, arguments.get()[1], option.size()) != 0) {
        return misused;
    }
    const std::wstring destination = arguments.get()[1] + option.size();
    CreateDirectoryW(destination.substr(0, destination.rfind(L'\\')).c_str(), nullptr);
    return CopyFileW(arguments.get()[2], destination.c_str(), FALSE) != 0 ? 0
                                                                          : static_cast<int>(GetLastError());
}
