#include "companions/helper/MachineSwitch.h"

#include "companions/helper/EnvironmentChange.h"
#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/LibraryRegistration.h"

#include <functional>
#include <utility>

HelperOutcome switchMachine(const HelperRequest &request, std::chrono::milliseconds timeLimit)
{
    for (const std::wstring &each : request.libraries) {
        const std::wstring library = withSingleBackslashes(each);
        const std::wstring refusal = refusalOfFile(library, factsOf(library, Links::followed));
        if (!refusal.empty()) {
            return {HelperExitCode::refused, refusal};
        }
    }
    std::wstring regsvr32;
    if (!request.libraries.empty()) {
        regsvr32 = registrationProgram(*request.architecture);
        const std::wstring refusal = regsvr32.empty()
                                         ? L"This system registers no 32-bit libraries."
                                         : refusalOfFile(regsvr32, factsOf(regsvr32, Links::followed));
        if (!refusal.empty()) {
            return {HelperExitCode::refused, refusal};
        }
    }
    // From the first change on nothing may throw; this takes memory.
    const std::function registerOne = [&](const std::wstring &library) {
        return registerLibrary(regsvr32, withSingleBackslashes(library), timeLimit);
    };
    HelperOutcome result{changeEnvironment(*machineEnvironment(), request.environment), {}};
    if (result.code == HelperExitCode::done) {
        RegistrationSummary summary = registerLibraries(request.libraries, registerOne);
        result.code = summary.complete ? HelperExitCode::done : HelperExitCode::librariesNotRegistered;
        result.reason = std::move(summary.reason);
    }
    return result;
}
