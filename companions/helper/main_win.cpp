#include "companions/helper/HelperRun.h"

#include <windows.h>

#include <exception>

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*arguments*/, int /*show*/)
{
    try {
        return static_cast<int>(runHelper(GetCommandLineW()));
    } catch (const std::exception &) {
        // Out of memory. Without this the C library would show a message box.
        return static_cast<int>(HelperExitCode::internalError);
    }
}
