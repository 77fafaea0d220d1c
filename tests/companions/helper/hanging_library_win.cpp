// A COM library whose registration waits until a test lets it end. Meanwhile a mutex exists that the test can
// look for.

#include <windows.h>

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer()
{
    CreateMutexW(nullptr, FALSE, L"CorvantaHangingLibrary");
    const HANDLE mayEnd = CreateEventW(nullptr, TRUE, FALSE, L"CorvantaHangingLibraryMayEnd");
    WaitForSingleObject(mayEnd, INFINITE);
    return S_OK;
}
