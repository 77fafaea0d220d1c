#include "companions/helper/MachineSwitch.h"

#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/LibraryRegistration.h"
#include "companions/helper/RegistryEnvironment.h"

#include <list>

namespace {

MachineSwitchResult setVariables(const std::vector<EnvironmentAssignment> &assignments)
{
    RegistryEnvironment store;
    switch (changeEnvironment(store, assignments)) {
    case EnvironmentResult::done:
        return {};
    case EnvironmentResult::restored:
        return {HelperExitCode::variablesRestored, {}};
    case EnvironmentResult::notRestored:
        break;
    }
    return {HelperExitCode::variablesNotRestored, {}};
}

MachineSwitchResult registerLibraries(const std::wstring &regsvr32,
                                      const std::vector<std::wstring> &libraries,
                                      std::chrono::milliseconds timeLimit)
{
    MachineSwitchResult result;
    for (const std::wstring &library : libraries) {
        const RegistrationResult registration =
            registerLibrary(regsvr32, withSingleBackslashes(library), timeLimit);
        if (registration != RegistrationResult::registered) {
            result.code = HelperExitCode::librariesNotRegistered;
            result.reason += (result.reason.empty() ? L"" : L"\r\n") + textOf(registration, library);
        }
    }
    return result;
}

} // namespace

MachineSwitchResult switchMachine(const HelperRequest &request, std::chrono::milliseconds timeLimit)
{
    // Held to the end, so that what is registered is what was looked at.
    std::list<HeldPath> held;
    for (const std::wstring &library : request.libraries) {
        held.emplace_back(withSingleBackslashes(library), HeldPath::Writers::refused);
        const std::wstring refusal = refusalOfLibrary(held.back().facts());
        if (!refusal.empty()) {
            return {HelperExitCode::refused, refusal};
        }
    }
    std::wstring regsvr32;
    if (!request.libraries.empty()) {
        regsvr32 = registrationProgram(*request.architecture);
        if (regsvr32.empty() || factsOf(regsvr32).kind != FileFacts::Kind::file) {
            return {HelperExitCode::refused, L"This system registers no libraries of that architecture."};
        }
    }
    MachineSwitchResult result = setVariables(request.environment);
    return result.code == HelperExitCode::done ? registerLibraries(regsvr32, request.libraries, timeLimit)
                                               : result;
}
