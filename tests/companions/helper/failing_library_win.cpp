// A COM library whose registration fails.

#include <windows.h>

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer()
{
    return E_ACCESSDENIED;
}
