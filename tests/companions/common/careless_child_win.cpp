// A program with the errors that the compiler's checks detect. Its argument selects one:
//
//   stack      writes past a buffer on the stack
//   copy       copies too much into a buffer elsewhere
//   element    asks a vector for an element that it does not have
//   guard      none: prints the canary that functions put after their buffers
//
// With a second argument it stays within bounds.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

extern "C" std::uintptr_t stackGuard __asm__("__stack_chk_guard");

namespace {

constexpr std::size_t capacity = 16;
std::array<char, capacity> elsewhere = {};

[[gnu::noinline]] void writeOnStack(std::size_t count)
{
    std::array<char, capacity> buffer = {};
    // Volatile, so that the compiler cannot see the overflow.
    volatile char *place = buffer.data();
    for (std::size_t index = 0; index < count; ++index) {
        place[index] = 'x';
    }
}

[[gnu::noinline]] void copyElsewhere(std::size_t count)
{
    const std::string source(count, 'x');
    std::memcpy(elsewhere.data(), source.data(), count);
}

[[gnu::noinline]] int elementOf(const std::vector<int> &numbers, std::size_t index)
{
    return numbers[index];
}

} // namespace

int main(int count, char *arguments[])
{
    const std::string mistake = count > 1 ? arguments[1] : "";
    const std::size_t length = count > 2 ? capacity : 3 * capacity;
    if (mistake == "stack") {
        writeOnStack(length);
    } else if (mistake == "copy") {
        copyElsewhere(length);
    } else if (mistake == "element") {
        return elementOf(std::vector<int>(capacity), length - 1);
    } else if (mistake == "guard") {
        std::printf("%llx", static_cast<unsigned long long>(stackGuard));
    } else {
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
