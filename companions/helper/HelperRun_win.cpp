#include "companions/helper/HelperRun.h"

#include "companions/helper/HelperLine.h"
#include "companions/helper/HelperOutput.h"
#include "companions/helper/HelperTexts.h"
#include "companions/helper/LicenseFile.h"
#include "companions/helper/MachineSwitch.h"
#include "companions/helper/ProcessSecurity.h"

#include <exception>

namespace {

void tell(HelperExitCode code, const std::wstring &reason)
{
    const std::wstring text = textOf(code) + (reason.empty() ? L"" : L"\r\n" + reason);
    printText(HelperChannel::error, L"qz_com_helper: " + text + L"\r\n");
    if (isStartedVisibly()) {
        showErrorBox(text);
    }
}

HelperExitCode fail(HelperExitCode code, const std::wstring &reason)
{
    try {
        tell(code, reason);
    } catch (const std::exception &) {
        // What has been done is done, whether or not there is memory to tell of it.
    }
    return code;
}

HelperExitCode print(const std::wstring &text)
{
    return printText(HelperChannel::standard, text) ? HelperExitCode::done : HelperExitCode::internalError;
}

HelperExitCode conclude(const HelperOutcome &outcome)
{
    return outcome.code == HelperExitCode::done ? outcome.code : fail(outcome.code, outcome.reason);
}

} // namespace

HelperExitCode runHelper(const std::wstring &commandLine, std::chrono::milliseconds timeLimit)
{
    const HelperReading reading = readHelperArguments(argumentsOf(commandLine));
    if (!reading.request) {
        return fail(HelperExitCode::refused, reading.refusal);
    }
    switch (reading.request->action) {
    case HelperAction::showHelp:
        return print(helpText());
    case HelperAction::showVersion:
        return print(versionText());
    case HelperAction::copyLicense:
        return conclude(replaceLicenseFile(reading.request->destination, reading.request->source));
    case HelperAction::setMachine:
        break;
    }
    return conclude(switchMachine(*reading.request, timeLimit));
}

HelperExitCode runSecured(const std::wstring &commandLine)
{
    return secureProcess() ? runHelper(commandLine) : HelperExitCode::internalError;
}
