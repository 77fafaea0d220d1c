// The stand-in for HALCON's COM libraries on the demo machine, whatever the name of the file: registers only
// itself, with its path, under the key DemoMachine.NAME of the classes.

#include <windows.h>

#include <array>
#include <string>

namespace {

/// regsvr32 loads no library with a longer path.
std::wstring ownPath()
{
    HMODULE module = nullptr;
    std::array<wchar_t, MAX_PATH> path = {};
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(&ownPath), &module) == 0) {
        return {};
    }
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    return length > 0 && length < path.size() ? std::wstring(path.data(), length) : std::wstring();
}

std::wstring keyOf(const std::wstring &path)
{
    const std::size_t begin = path.rfind(L'\\') + 1;
    return L"Software\\Classes\\DemoMachine." + path.substr(begin, path.rfind(L'.') - begin);
}

HRESULT resultOf(LSTATUS status)
{
    return status == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

} // namespace

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer()
{
    const std::wstring path = ownPath();
    return path.empty()
               ? E_FAIL
               : resultOf(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (keyOf(path) + L"\\InprocServer32").c_str(),
                                          nullptr, REG_SZ, path.c_str(),
                                          static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t))));
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllUnregisterServer()
{
    const std::wstring path = ownPath();
    return path.empty() ? E_FAIL : resultOf(RegDeleteTreeW(HKEY_LOCAL_MACHINE, keyOf(path).c_str()));
}
