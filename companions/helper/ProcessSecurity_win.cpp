#include "companions/helper/ProcessSecurity.h"

#include <windows.h>

bool secureProcess()
{
    const bool restricted = SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) != 0;
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    return restricted;
}
