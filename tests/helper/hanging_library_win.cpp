// A COM library whose registration does not end before a test lets it. While it lasts, there is a mutex that the test
// can look for.

#include <windows.h>

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer()
{
    CreateMutexW(nullptr, FALSE, L"CorvantaHangingLibrary");
    const HANDLE mayEnd = CreateEventW(nullptr, TRUE, FALSE, L"CorvantaHangingLibraryMayEnd");
    WaitForSingleObject(mayEnd, INFINITE);
    return S_OK;
}
