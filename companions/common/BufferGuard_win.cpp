// The functions that code compiled with -fstack-protector and _FORTIFY_SOURCE calls, under GCC's names. They
// replace GCC's libssp, which asks Windows' cryptography for a random number before main(). That makes
// Windows look for a DLL beside the program before the elevated helper can restrict the search.
#include <windows.h>

#include <cstdint>

namespace {

/// Ends the process at once: after a buffer overflow none of its memory can be trusted. Windows reports exit
/// code 0xC0000409. Windows 7 does not know the interrupt and reports an access violation.
[[noreturn]] void failFast(unsigned reason)
{
    __asm__ volatile("int $0x29" : : "c"(reason));
    __builtin_unreachable();
}

} // namespace

extern "C" {

/// The stack canary: the value between a function's buffers and its return address. Its lowest byte is 0, so
/// that reading or copying a string stops there.
std::uintptr_t stackGuard __asm__("__stack_chk_guard") = 0x5c1f'93d6'0a4b'e800;

/// Called by a function that finds its canary changed.
[[noreturn]] void stackOverwritten() __asm__("__stack_chk_fail");
/// Called instead of a copy that is longer than its destination.
[[noreturn]] void copyTooLong() __asm__("__chk_fail");

void stackOverwritten()
{
    failFast(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE);
}

void copyTooLong()
{
    failFast(FAST_FAIL_RANGE_CHECK_FAILURE);
}

} // extern "C"

namespace {

/// Gives each process another canary, from sources that need no further library: the random number with which
/// Windows encodes the process's pointers, and the time.
[[gnu::constructor, gnu::no_stack_protector]] void chooseStackGuard()
{
    const auto disguised = reinterpret_cast<std::uintptr_t>(EncodePointer(&stackGuard));
    LARGE_INTEGER counter = {};
    QueryPerformanceCounter(&counter);
    FILETIME time = {};
    GetSystemTimeAsFileTime(&time);
    const std::uintptr_t process =
        (static_cast<std::uintptr_t>(GetCurrentProcessId()) << 32) | GetCurrentThreadId();
    constexpr std::uintptr_t lowestByte = 0xff;
    stackGuard = (disguised ^ process ^ (static_cast<std::uintptr_t>(counter.QuadPart) << 24) ^
                  (static_cast<std::uintptr_t>(time.dwLowDateTime) << 8)) &
                 ~lowestByte;
}

} // namespace
