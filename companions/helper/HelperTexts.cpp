#include "companions/helper/HelperTexts.h"

std::wstring helpText()
{
    return L"Usage: qz_com_helper --env NAME=\"VALUE\" [--env NAME=\"VALUE\"]... [--x86|--x64 "
           L"[\"LIBRARY\"]...]\r\n"
           L"       qz_com_helper --copy=\"DESTINATION\" \"SOURCE\"\r\n"
           L"       qz_com_helper --help\r\n"
           L"       qz_com_helper --version\r\n"
           L"\r\n"
           L"Does for Corvanta for HALCON what needs an administrator's rights.\r\n"
           L"\r\n"
           L"  --env NAME=\"VALUE\"  sets a variable for the whole machine: HALCONROOT, HALCONARCH,\r\n"
           L"                      HALCONIMAGES or HALCONEXAMPLES\r\n"
           L"  --x86, --x64        registers the LIBRARYs that follow, with the 32-bit or the 64-bit\r\n"
           L"                      regsvr32: halconx.dll, halconxxl.dll, hdevenginex.dll,\r\n"
           L"                      hdevenginexxl.dll\r\n"
           L"  --copy=\"DESTINATION\" \"SOURCE\"\r\n"
           L"                      copies a licence file into a directory named license\r\n"
           L"\r\n"
           L"Values and paths stand in quotes and reach to the next quote; paths are absolute. Everything\r\n"
           L"is checked before anything is changed.\r\n"
           L"\r\n"
           L"Exit codes:\r\n"
           L"  0  done\r\n"
           L"  1  an internal error; nothing was changed\r\n"
           L"  2  refused; nothing was changed\r\n"
           L"  3  a variable could not be set; all are as they were\r\n"
           L"  4  a variable could not be set, and not all are as they were\r\n"
           L"  5  the variables are set, but not every library is registered\r\n"
           L"  6  the file could not be copied; the old one holds what it held\r\n";
}

std::wstring versionText()
{
    return L"qz_com_helper " HELPER_VERSION L" (Corvanta for HALCON)\r\n";
}

std::wstring textOf(HelperExitCode code)
{
    switch (code) {
    case HelperExitCode::done:
        break;
    case HelperExitCode::internalError:
        return L"An internal error occurred. Nothing was changed.";
    case HelperExitCode::refused:
        return L"The request was refused. Nothing was changed.";
    case HelperExitCode::variablesRestored:
        return L"A system variable could not be set. All of them are as they were.";
    case HelperExitCode::variablesNotRestored:
        return L"A system variable could not be set, and not all of them are as they were.";
    case HelperExitCode::librariesNotRegistered:
        return L"The system variables are set, but not every COM library could be registered.";
    case HelperExitCode::copyFailed:
        return L"The licence file could not be copied. The old one, if there was one, holds what it held.";
    }
    return {};
}
