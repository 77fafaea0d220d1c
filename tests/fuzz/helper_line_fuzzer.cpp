#include "companions/helper/HelperLine.h"
#include "tests/companions/helper/PrintedRequest.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Every line is refused, or read as exactly what it says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Bytes below 128 represent themselves; the others are spread over all of UTF-16.
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
