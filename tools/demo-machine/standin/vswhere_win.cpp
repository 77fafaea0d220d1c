// The stand-in for vswhere.exe on the demo machine: prints the file vswhere-report.txt beside it unchanged.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include <fcntl.h>
#include <io.h>

#include <windows.h>

int wmain()
{
    std::vector<wchar_t> ownName(32768);
    const DWORD length = GetModuleFileNameW(nullptr, ownName.data(), static_cast<DWORD>(ownName.size()));
    if (length == 0 || length == ownName.size()) {
        return 1;
    }
    std::ifstream report(std::filesystem::path(ownName.data()).replace_filename(L"vswhere-report.txt"),
                         std::ios::binary);
    // Binary: the file has its own line ends.
    _setmode(_fileno(stdout), _O_BINARY);
    // Writing an empty report would count as a failure here.
    if (report && report.peek() != std::ifstream::traits_type::eof()) {
        std::cout << report.rdbuf();
    }
    return report && std::cout.flush() ? 0 : 1;
}
