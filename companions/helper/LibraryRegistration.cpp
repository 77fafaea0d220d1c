#include "companions/helper/LibraryRegistration.h"

#include "companions/helper/HelperPath.h"

#include <exception>

std::wstring registrationCommandLine(const std::wstring &regsvr32, const std::wstring &library)
{
    return L'"' + regsvr32 + L"\" /s \"" + library + L'"';
}

HelperOutcome registerLibraries(const std::vector<std::wstring> &libraries,
                                const std::function<std::wstring(const std::wstring &)> &registerOne) noexcept
{
    HelperOutcome outcome;
    for (const std::wstring &library : libraries) {
        try {
            const std::wstring failure = registerOne(library);
            if (!failure.empty()) {
                outcome.code = HelperExitCode::librariesNotRegistered;
                outcome.reason += (outcome.reason.empty() ? L"" : L"\r\n") +
                                  (L"The registration of " + sentence(library, failure));
            }
        } catch (const std::exception &) {
            // There may be too little memory even for a string.
            outcome.code = HelperExitCode::librariesNotRegistered;
        }
    }
    return outcome;
}
