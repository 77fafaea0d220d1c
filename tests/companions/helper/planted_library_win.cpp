// A library that does nothing.

#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD /*reason*/, void * /*reserved*/)
{
    return TRUE;
}
