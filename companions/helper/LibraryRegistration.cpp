#include "companions/helper/LibraryRegistration.h"

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
        return L"The registration of " + library + L" could not be started.";
    case RegistrationResult::failed:
        return L"The registration of " + library + L" failed.";
    case RegistrationResult::timedOut:
        return L"The registration of " + library + L" took too long and was ended.";
    }
    return {};
}
