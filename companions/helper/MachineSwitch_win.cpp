#include "companions/helper/HelperRun.h"

#include "companions/helper/EnvironmentChange.h"
#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/LibraryRegistration.h"

#include <functional>

HelperOutcome switchMachine(const HelperRequest &request, std::chrono::milliseconds timeLimit)
{
    std::vector<std::wstring> libraries;
    for (const std::wstring &library : request.libraries) {
        libraries.push_back(withSingleBackslashes(library));
    }
    std::vector<std::wstring> files = libraries;
    std::wstring regsvr32;
    if (!libraries.empty()) {
        regsvr32 = registrationProgram(*request.architecture);
        if (regsvr32.empty()) {
            return {HelperExitCode::refused, L"This system registers no 32-bit libraries."};
        }
        files.push_back(regsvr32);
    }
    for (const std::wstring &file : files) {
        const std::wstring refusal = refusalOfFile(file, openPath(file, Links::followed).facts);
        if (!refusal.empty()) {
            return {HelperExitCode::refused, refusal};
        }
    }
    // This allocates memory, and nothing may throw once something has changed.
    const std::function registerOne = [&](const std::wstring &library) {
        return registerLibrary(regsvr32, library, timeLimit);
    };
    const HelperExitCode code = changeEnvironment(*machineEnvironment(), request.environment);
    return code == HelperExitCode::done ? registerLibraries(libraries, registerOne) : HelperOutcome{code, {}};
}
