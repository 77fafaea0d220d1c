#include "launch/ProcessStart.h"
#include "tests/launch/EnvironmentBlock.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

namespace {

/// The arguments that startProcess passed to CreateProcessW.
struct Call {
    QString applicationName;
    QString commandLine;
    bool defaultSecurity;
    bool inheritHandles;
    DWORD creationFlags;
    QStringList environment;
    bool currentDirectoryGiven;
    STARTUPINFOW startupInfo;
    PROCESS_INFORMATION process;
};

QList<Call> &calls()
{
    static QList<Call> recorded;
    return recorded;
}

BOOL WINAPI recordAndCreateProcess(LPCWSTR applicationName, LPWSTR commandLine,
                                   LPSECURITY_ATTRIBUTES processSecurity,
                                   LPSECURITY_ATTRIBUTES threadSecurity, BOOL inheritHandles,
                                   DWORD creationFlags, LPVOID environment, LPCWSTR currentDirectory,
                                   LPSTARTUPINFOW startupInfo, LPPROCESS_INFORMATION process)
{
    Call call = {QString::fromWCharArray(applicationName),
                 commandLine != nullptr ? QString::fromWCharArray(commandLine) : QString("(null)"),
                 processSecurity == nullptr && threadSecurity == nullptr,
                 inheritHandles != FALSE,
                 creationFlags,
                 blockEntries(static_cast<const char16_t *>(environment)),
                 currentDirectory != nullptr,
                 *startupInfo,
                 {}};
    const auto createProcess = reinterpret_cast<decltype(&CreateProcessW)>(
        reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"kernel32"), "CreateProcessW")));
    const BOOL created =
        createProcess(applicationName, commandLine, processSecurity, threadSecurity, inheritHandles,
                      creationFlags, environment, currentDirectory, startupInfo, process);
    call.process = *process;
    calls().append(call);
    return created;
}

bool nothingSetButTheSize(const STARTUPINFOW &info)
{
    return info.cb == sizeof(info) && info.lpReserved == nullptr && info.lpDesktop == nullptr &&
           info.lpTitle == nullptr && info.dwX == 0 && info.dwY == 0 && info.dwXSize == 0 &&
           info.dwYSize == 0 && info.dwXCountChars == 0 && info.dwYCountChars == 0 &&
           info.dwFillAttribute == 0 && info.dwFlags == 0 && info.wShowWindow == 0 && info.cbReserved2 == 0 &&
           info.lpReserved2 == nullptr && info.hStdInput == nullptr && info.hStdOutput == nullptr &&
           info.hStdError == nullptr;
}

bool isOpen(HANDLE handle)
{
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != 0;
}

} // namespace

/// A fake of the import through which this program's code calls CreateProcessW. A child does not see
/// everything as it was passed: the system substitutes the executable for an empty command line, and may
/// reorder the environment.
extern "C" decltype(&CreateProcessW) importedCreateProcess __asm__("__imp_CreateProcessW");
extern "C" {
decltype(&CreateProcessW) importedCreateProcess = recordAndCreateProcess;
}

class CreateProcessCallTest : public QObject {
    Q_OBJECT

private slots:
    void init() { calls().clear(); }

    void everyArgument_data()
    {
        columns<QString>("arguments");

        row("empty, not the executable's name", "");
        row("several, quoted", "/K \"C:\\Program Files\\x.bat\" & title \"a\"");
    }

    void everyArgument()
    {
        QFETCH(QString, arguments);
        const QTemporaryDir directory;
        const QString executable = QDir::toNativeSeparators(directory.filePath("tool with spaces.exe"));
        EchoChild::copyTo(executable);
        const EchoChild child;
        QStringList errors;

        QVERIFY2(startProcess(executable, arguments, installationIn("C:\\H"), &errors),
                 qPrintable(errors.join('\n')));

        QCOMPARE(calls().size(), 1);
        const Call call = calls().constFirst();
        QCOMPARE(call.applicationName, executable);
        QCOMPARE(call.commandLine, arguments);
        QVERIFY(call.defaultSecurity);
        QVERIFY(!call.inheritHandles);
        QCOMPARE(call.creationFlags, DWORD(CREATE_UNICODE_ENVIRONMENT));
        QCOMPARE(call.environment,
                 blockEntries(buildEnvironmentBlock(variableOverrides(installationIn("C:\\H"))).get()));
        QVERIFY(!call.currentDirectoryGiven);
        QVERIFY(nothingSetButTheSize(call.startupInfo));
        // At once, without waiting for the child.
        QVERIFY(call.process.hProcess != nullptr && call.process.hThread != nullptr);
        QVERIFY(!isOpen(call.process.hProcess));
        QVERIFY(!isOpen(call.process.hThread));

        child.record();
    }
};

QTEST_GUILESS_MAIN(CreateProcessCallTest)

#include "CreateProcessCallTest_win.moc"
