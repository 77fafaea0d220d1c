// A COM library whose registration records its environment in a file beside it, named as the library with
// ".environment" appended.

#include <windows.h>

#include <string>

namespace {

HMODULE ownModule = nullptr;

} // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void * /*reserved*/)
{
    if (reason == DLL_PROCESS_ATTACH) {
        ownModule = module;
    }
    return TRUE;
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer()
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(ownModule, path, MAX_PATH);
    const wchar_t *const variables = GetEnvironmentStringsW();
    const wchar_t *end = variables;
    while (*end != L'\0') {
        end += std::wstring(end).size() + 1;
    }
    const HANDLE file = CreateFileW((std::wstring(path) + L".environment").c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    const BOOL success = WriteFile(file, variables, static_cast<DWORD>((end - variables) * sizeof(wchar_t)),
                                   &written, nullptr);
    CloseHandle(file);
    return success != 0 ? S_OK : E_FAIL;
}
