#include "companions/helper/HelperRun.h"

#include <windows.h>

#include <exception>

namespace {

/// From now on libraries are looked for in the system's directory alone, and no error waits for somebody to see it. The
/// search comes first: any other call might load a library.
bool secureProcess()
{
    const bool restricted = SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) != 0;
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    return restricted;
}

} // namespace

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*arguments*/, int /*show*/)
{
    HelperExitCode code = HelperExitCode::internalError;
    try {
        if (secureProcess()) {
            code = runHelper(GetCommandLineW());
        }
    } catch (const std::exception &) {
        // Out of memory: the C library would show a box of its own.
    }
    return static_cast<int>(code);
}
