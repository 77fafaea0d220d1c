#include "companions/helper/HelperLine.h"
#include "tests/helper/PrintedRequest.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Whatever the line, it is refused or read as what it says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Bytes stand for themselves but for the upper half, which is spread over all that UTF-16 has.
    std::wstring line;
    for (std::size_t i = 0; i < size; ++i) {
        line += static_cast<wchar_t>(data[i] < 0x80 ? data[i] : (data[i] & 0x7F) * 0x203);
    }
    const std::wstring arguments = argumentsOf(L"\"helper\" " + line);
    const HelperReading reading = readHelperArguments(arguments);
    if (reading.request.has_value() != reading.refusal.empty()) {
        std::abort();
    }
    if (!reading.request || reading.request->action == HelperAction::showHelp ||
        reading.request->action == HelperAction::showVersion) {
        return 0;
    }
    std::wstring printed = printedRequest(*reading.request);
    printed.erase(printed.find_last_not_of(L' ') + 1);
    if (printed != arguments) {
        std::abort();
    }
    return 0;
}
