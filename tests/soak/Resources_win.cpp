#include "tests/soak/Resources_win.h"

#include <cstddef>
#include <vector>

#include <windows.h>

#include <psapi.h>
#include <winternl.h>

// Wine 8 answers 0 to GetProcessHandleCount and GetGuiResources, so this looks at what they would count.

namespace {

struct SystemHandle {
    void *object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creatorBackTrace;
    USHORT objectType;
    ULONG attributes;
    ULONG reserved;
};

struct GdiEntry {
    ULONGLONG object;
    USHORT process; // with a lock bit
    USHORT count;
    USHORT unique;
    BYTE type; // 0: not in use
    BYTE flags;
    ULONGLONG user;
};

constexpr std::size_t gdiTableInPeb = 0xF8; // PEB::GdiSharedHandleTable of 64-bit Windows
constexpr std::size_t gdiEntries = 0x10000;

struct WindowCount {
    unsigned long process;
    qint64 windows;
};

BOOL CALLBACK countWindow(HWND window, LPARAM parameter)
{
    auto *count = reinterpret_cast<WindowCount *>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == count->process) {
        ++count->windows;
    }
    return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM parameter)
{
    EnumChildWindows(window, countWindow, parameter);
    return countWindow(window, parameter);
}

} // namespace

qint64 countHandles(void *process)
{
    constexpr auto extendedHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    constexpr auto tooShort = static_cast<NTSTATUS>(0xC0000004);
    std::vector<char> buffer(1U << 16U);
    ULONG length = 0;
    NTSTATUS status = 0;
    while ((status = NtQuerySystemInformation(extendedHandleInformation, buffer.data(),
                                              static_cast<ULONG>(buffer.size()), &length)) == tooShort) {
        buffer.resize(buffer.size() * 2);
    }
    if (status < 0) {
        return -1;
    }
    const auto *numbers = reinterpret_cast<const ULONG_PTR *>(buffer.data());
    const auto *handles = reinterpret_cast<const SystemHandle *>(numbers + 2);
    qint64 count = 0;
    for (ULONG_PTR number = 0; number < numbers[0]; ++number) {
        count += handles[number].process == GetProcessId(process) ? 1 : 0;
    }
    return count;
}

qint64 countGdiObjects(void *process)
{
    PROCESS_BASIC_INFORMATION basic{};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof(basic), nullptr) < 0) {
        return -1;
    }
    const auto *peb = reinterpret_cast<const char *>(basic.PebBaseAddress);
    void *table = nullptr;
    std::vector<GdiEntry> entries(gdiEntries);
    if (ReadProcessMemory(process, peb + gdiTableInPeb, &table, sizeof(table), nullptr) == 0 ||
        ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(GdiEntry), nullptr) == 0) {
        return -1;
    }
    qint64 count = 0;
    for (const GdiEntry &entry : entries) {
        count += entry.type != 0 ? 1 : 0;
    }
    return count;
}

qint64 countWindows(unsigned long processId)
{
    WindowCount count{processId, 0};
    const auto parameter = reinterpret_cast<LPARAM>(&count);
    EnumWindows(countWithChildren, parameter);
    for (HWND window = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, nullptr); window != nullptr;
         window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) {
        countWindow(window, parameter);
    }
    return count.windows;
}

qint64 privateKilobytes(void *process)
{
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(process, &memory, sizeof(memory));
    // The same as the private usage, which Wine 8 does not give of another process.
    return static_cast<qint64>(memory.PagefileUsage / 1024);
}
