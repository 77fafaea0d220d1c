// A COM library whose registration never ends. While it lasts, there is a mutex that a test can look for.

#include <windows.h>

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer()
{
    CreateMutexW(nullptr, FALSE, L"CorvantaHangingLibrary");
    Sleep(INFINITE);
    return S_OK;
}
