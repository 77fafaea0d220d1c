#include "companions/helper/LibraryRegistration.h"

#include "companions/helper/HelperPath.h"

#include <exception>

std::wstring registrationCommandLine(const std::wstring &regsvr32, const std::wstring &library)
{
    return L'"' + regsvr32 + L"\" /s \"" + library + L'"';
}

std::wstring textOf(RegistrationResult result, const std::wstring &library)
{
    switch (result) {
    case RegistrationResult::registered:
        break;
    case RegistrationResult::notStarted:
        return L"The registration of " + shown(library) + L" could not be started.";
    case RegistrationResult::failed:
        return L"The registration of " + shown(library) + L" failed.";
    case RegistrationResult::timedOut:
        return L"The registration of " + shown(library) + L" took too long and was ended.";
    }
    return {};
}

RegistrationSummary
registerLibraries(const std::vector<std::wstring> &libraries,
                  const std::function<RegistrationResult(const std::wstring &)> &registerOne) noexcept
{
    RegistrationSummary summary;
    for (const std::wstring &library : libraries) {
        try {
            const RegistrationResult result = registerOne(library);
            if (result != RegistrationResult::registered) {
                summary.complete = false;
                summary.reason += (summary.reason.empty() ? L"" : L"\r\n") + textOf(result, library);
            }
        } catch (const std::exception &) {
            // There may be too little memory even for a text.
            summary.complete = false;
        }
    }
    return summary;
}
