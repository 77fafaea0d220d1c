#include "launch/PermanentSwitch.h"
#include "tests/companions/helper/HelperMachine.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/PermanentSwitchMachine.h"
#include "tests/support/Installations.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

#include <tlhelp32.h>

#include <memory>
#include <thread>

namespace {

using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

bool libraryHangs()
{
    const Handle mutex(OpenMutexW(SYNCHRONIZE, FALSE, L"CorvantaHangingLibrary"), &CloseHandle);
    return mutex != nullptr;
}

/// Ends the helper with @p exitCode, wherever it is.
bool killHelper(unsigned exitCode)
{
    const Handle processes(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0), &CloseHandle);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    bool killed = false;
    for (BOOL more = Process32FirstW(processes.get(), &entry); more != 0;
         more = Process32NextW(processes.get(), &entry)) {
        if (QString::fromWCharArray(entry.szExeFile) == "qz_com_helper.exe") {
            const Handle helper(OpenProcess(PROCESS_TERMINATE, FALSE, entry.th32ProcessID), &CloseHandle);
            killed = TerminateProcess(helper.get(), exitCode) != 0;
        }
    }
    return killed;
}

/// Kills the helper once it registers the hanging library.
bool killHalfway(unsigned exitCode)
{
    bool killed = false;
    const QDeadlineTimer patience(patienceMilliseconds);
    while (!killed && !patience.hasExpired()) {
        Sleep(10);
        killed = libraryHangs() && killHelper(exitCode);
    }
    return killed;
}

} // namespace

/// The real helper, which this test program puts beside itself, is killed half-way through a switch.
class HelperKilledTest : public QObject {
    Q_OBJECT

private slots:
    void switchIsToldAndCanBeRepeated();
};

/// The variables stay as they were set, and the second time the rest is done.
void HelperKilledTest::switchIsToldAndCanBeRepeated()
{
    constexpr unsigned exitCode = 77;
    clearVariables();
    const QTemporaryDir directory;
    const HalconInstallation halcon = installationIn(QDir::toNativeSeparators(directory.path()));
    const QString library = halcon.installDir + "\\bin\\x64-win64\\halconx.dll";
    HelperMachine::copyFile(HANGING_LIBRARY, library);
    const ElevatedHelperProgram helper(HELPER_EXECUTABLE);
    const Handle mayEnd(CreateEventW(nullptr, TRUE, FALSE, L"CorvantaHangingLibraryMayEnd"), &CloseHandle);
    QStringList lines;
    bool killed = false;
    bool succeeded = true;

    // The program waits for its helper.
    std::thread killer([&] { killed = killHalfway(exitCode); });
    succeeded = permanentSwitch(halcon, true, true, false, &lines);
    killer.join();

    QVERIFY(killed);
    QVERIFY(!succeeded);
    QCOMPARE(lines.mid(5), (QStringList{"helper process returned with value 77. "
                                        "This indicates an error in the execution!",
                                        broadcastLine}));
    using HelperMachine::plainText;
    const auto expectSwitched = [&] {
        const auto values = HelperMachine::values(HelperMachine::environmentKey);
        QCOMPARE(values["HALCONROOT"], plainText(halcon.installDir));
        QCOMPARE(values["HALCONARCH"], plainText("x64-win64"));
        QCOMPARE(values["HALCONIMAGES"], plainText(""));
        QCOMPARE(values["HALCONEXAMPLES"], plainText(""));
    };
    expectSwitched();

    // From now on the library does not hang any more.
    QVERIFY(SetEvent(mayEnd.get()) != 0);
    lines.clear();
    QVERIFY2(permanentSwitch(halcon, true, true, false, &lines), qPrintable(lines.join('\n')));
    expectSwitched();
}

QTEST_GUILESS_MAIN(HelperKilledTest)

#include "HelperKilledTest_win.moc"
