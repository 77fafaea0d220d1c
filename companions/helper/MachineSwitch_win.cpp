#include "companions/helper/MachineSwitch.h"

#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/LibraryRegistration.h"
#include "companions/helper/RegistryEnvironment.h"

#include <functional>
#include <list>
#include <utility>

namespace {

HelperOutcome setVariables(const std::vector<EnvironmentAssignment> &assignments)
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

} // namespace

HelperOutcome switchMachine(const HelperRequest &request, std::chrono::milliseconds timeLimit)
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
    // From the first change on nothing may throw; this takes memory.
    const std::function registerOne = [&](const std::wstring &library) {
        return registerLibrary(regsvr32, withSingleBackslashes(library), timeLimit);
    };
    HelperOutcome result = setVariables(request.environment);
    if (result.code == HelperExitCode::done) {
        RegistrationSummary summary = registerLibraries(request.libraries, registerOne);
        result.code = summary.complete ? HelperExitCode::done : HelperExitCode::librariesNotRegistered;
        result.reason = std::move(summary.reason);
    }
    return result;
}
