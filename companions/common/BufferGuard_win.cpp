// What code compiled with -fstack-protector and _FORTIFY_SOURCE calls: the names are GCC's. They take the place of
// those in GCC's libssp, which ask Windows' cryptography for a random number before main(), and so make it look for a
// DLL beside the program before the elevated helper can say where to look.
#include <windows.h>

#include <cstdint>

namespace {

/// Ends the process on the spot: after a buffer has overflowed nothing of it can be trusted. Windows reports exit code
/// 0xC0000409. Windows 7 does not know the interrupt, and reports an access violation.
[[noreturn]] void failFast(unsigned reason)
{
    __asm__ volatile("int $0x29" : : "c"(reason));
    __builtin_unreachable();
}

} // namespace

extern "C" {

/// What a function puts between its buffers and its return address. The lowest byte is 0 to stop what reads or copies
/// text.
std::uintptr_t stackGuard __asm__("__stack_chk_guard") = 0x5c1f'93d6'0a4b'e800;

/// A function has found another value there.
[[noreturn]] void stackOverwritten() __asm__("__stack_chk_fail");
/// A copy is longer than the buffer that it goes to.
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

/// Makes the guard another one in each process, with what needs no more libraries: the random number that Windows
/// gives every process for disguising pointers, and the time.
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
