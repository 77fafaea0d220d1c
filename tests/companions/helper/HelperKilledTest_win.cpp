#include "companions/common/WindowsHandle.h"
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

#include <thread>

namespace {

/// Ends the helper with @p exitCode, wherever it is.
bool killHelper(unsigned exitCode)
{
    const WindowsHandle processes(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    bool killed = false;
    for (BOOL more = Process32FirstW(processes.get(), &entry); more != 0;
         more = Process32NextW(processes.get(), &entry)) {
        if (QString::fromWCharArray(entry.szExeFile) == "qz_com_helper.exe") {
            const WindowsHandle helper(OpenProcess(PROCESS_TERMINATE, FALSE, entry.th32ProcessID));
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
        killed = HelperMachine::libraryHangs() && killHelper(exitCode);
    }
    return killed;
}

} // namespace

/// The real helper, which this test program puts beside itself, is killed half-way through a switch.
class HelperKilledTest : public QObject {
    Q_OBJECT

private slots:
    /// The variables stay as they were set, and the second time the rest is done.
    void switchIsToldAndCanBeRepeated()
    {
        constexpr unsigned exitCode = 77;
        clearVariables();
        const QTemporaryDir directory;
        const HalconInstallation halcon = installationIn(QDir::toNativeSeparators(directory.path()));
        const QString library = halcon.installDir + "\\bin\\x64-win64\\halconx.dll";
        HelperMachine::copyFile(HANGING_LIBRARY, library);
        const ElevatedHelperProgram helper(HELPER_EXECUTABLE);
        const WindowsHandle mayEnd(CreateEventW(nullptr, TRUE, FALSE, L"CorvantaHangingLibraryMayEnd"));
        QStringList lines;
        bool killed = false;

        // The program waits for its helper.
        std::thread killer([&] { killed = killHalfway(exitCode); });
        const bool succeeded = permanentSwitch(halcon, true, true, false, &lines);
        killer.join();

        QVERIFY(killed);
        QVERIFY(!succeeded);
        QCOMPARE(lines.mid(5), (QStringList{"helper process returned with value 77. "
                                            "This indicates an error in the execution!",
                                            broadcastLine}));
        const auto expectSwitched = [&] {
            const auto values = HelperMachine::values(HelperMachine::environmentKey);
            QCOMPARE(values["HALCONROOT"], HelperMachine::plainText(halcon.installDir));
            QCOMPARE(values["HALCONARCH"], HelperMachine::plainText("x64-win64"));
            QCOMPARE(values["HALCONIMAGES"], HelperMachine::plainText(""));
            QCOMPARE(values["HALCONEXAMPLES"], HelperMachine::plainText(""));
        };
        expectSwitched();

        // From now on the library does not hang any more.
        QVERIFY(SetEvent(mayEnd.get()) != 0);
        lines.clear();
        QVERIFY2(permanentSwitch(halcon, true, true, false, &lines), qPrintable(lines.join('\n')));
        expectSwitched();
    }
};

QTEST_GUILESS_MAIN(HelperKilledTest)

#include "HelperKilledTest_win.moc"
