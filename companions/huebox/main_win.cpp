#include "companions/huebox/HueboxArguments.h"
#include "companions/huebox/HueboxOutput.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>

namespace {

struct LocalMemory {
    void operator()(void *memory) const { LocalFree(memory); }
};

/// The program's arguments, split by Windows' own rules: the C library would expand wildcards.
std::vector<std::wstring> programArguments()
{
    int count = 0;
    const std::unique_ptr<wchar_t *[], LocalMemory> list(CommandLineToArgvW(GetCommandLineW(), &count));
    if (list == nullptr || count < 1) {
        return {};
    }
    return {list.get() + 1, list.get() + count};
}

} // namespace

int wmain()
{
    constexpr int usageError = 2;
    constexpr int outputError = 1;
    const HueboxLine line = readHueboxArguments(programArguments());
    if (!line.unknownOption.empty()) {
        printPlain(OutputChannel::error, L"huebox: unknown option " + line.unknownOption + L"\r\n");
        return usageError;
    }
    return printLine(line) ? 0 : outputError;
}
