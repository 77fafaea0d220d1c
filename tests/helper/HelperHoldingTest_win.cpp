#include "companions/helper/HeldPath.h"
#include "companions/helper/MachineSwitch.h"

#include "tests/helper/HelperMachine.h"
#include "tests/helper/WideText.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

#include <thread>

using HelperMachine::copyFile;
using HelperMachine::makeFile;
using namespace std::chrono_literals;

namespace {

const QString top = "C:\\Holding test";

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

DWORD errorOf(BOOL success)
{
    return success != 0 ? DWORD(ERROR_SUCCESS) : GetLastError();
}

DWORD errorOfMoving(const QString &from, const QString &to)
{
    return errorOf(MoveFileW(wide(from), wide(to)));
}

DWORD errorOfOpening(const QString &path, DWORD access)
{
    const HANDLE file =
        CreateFileW(wide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    CloseHandle(file);
    return ERROR_SUCCESS;
}

/// The registration of libraries, of which one hangs, while it lives.
class HangingSwitch {
public:
    explicit HangingSwitch(const QStringList &libraries)
    {
        mayEnd = CreateEventW(nullptr, TRUE, FALSE, L"CorvantaHangingLibraryMayEnd");
        HelperRequest request;
        request.action = HelperAction::setMachine;
        request.environment = {{L"HALCONROOT", L"C:\\H"}};
        request.architecture = LibraryArchitecture::x64;
        for (const QString &library : libraries) {
            request.libraries.push_back(toWide(library));
        }
        worker = std::thread([this, request] { code = switchMachine(request, 120s).code; });
    }
    HangingSwitch(const HangingSwitch &) = delete;
    HangingSwitch &operator=(const HangingSwitch &) = delete;
    ~HangingSwitch()
    {
        end();
        CloseHandle(mayEnd);
    }

    static bool hangs()
    {
        const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, L"CorvantaHangingLibrary");
        if (mutex != nullptr) {
            CloseHandle(mutex);
        }
        return mutex != nullptr;
    }

    /// Lets it end, and tells the exit code.
    HelperExitCode end()
    {
        SetEvent(mayEnd);
        if (worker.joinable()) {
            worker.join();
        }
        return code;
    }

private:
    HANDLE mayEnd = nullptr;
    HelperExitCode code = HelperExitCode::internalError;
    std::thread worker;
};

} // namespace

class HelperHoldingTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void librariesAreHeld();
    void whatIsCopiedIsHeld();
};

void HelperHoldingTest::init()
{
    QDir(top).removeRecursively();
    QVERIFY(!QFileInfo::exists(top));
}

/// The library that is looked at is not the one that hangs: of that one Windows itself takes care.
void HelperHoldingTest::librariesAreHeld()
{
    const QString hanging = top + "\\H\\halconx.dll";
    const QString waiting = top + "\\I\\bin\\hdevenginex.dll";
    copyFile(HANGING_LIBRARY, hanging);
    copyFile(COM_LIBRARY, waiting);
    HangingSwitch running({hanging, waiting});
    QTRY_VERIFY_WITH_TIMEOUT(HangingSwitch::hangs(), 60000);

    QCOMPARE(errorOf(DeleteFileW(wide(waiting))), DWORD(ERROR_SHARING_VIOLATION));
    QCOMPARE(errorOfMoving(waiting, top + "\\I\\bin\\other.dll"), DWORD(ERROR_SHARING_VIOLATION));
    QCOMPARE(errorOfOpening(waiting, GENERIC_WRITE), DWORD(ERROR_SHARING_VIOLATION));
    QCOMPARE(errorOfOpening(waiting, DELETE), DWORD(ERROR_SHARING_VIOLATION));
    for (const QString &directory : {top, top + "\\I", top + "\\I\\bin"}) {
        QCOMPARE(errorOfMoving(directory, directory + " moved"), DWORD(ERROR_SHARING_VIOLATION));
        QCOMPARE(errorOfOpening(directory, DELETE), DWORD(ERROR_SHARING_VIOLATION));
    }
    QVERIFY(HangingSwitch::hangs());
    QCOMPARE(running.end(), HelperExitCode::done);

    // Nothing of this has to do with the files themselves.
    QCOMPARE(errorOfOpening(waiting, GENERIC_WRITE), DWORD(ERROR_SUCCESS));
    QCOMPARE(errorOfMoving(waiting, top + "\\I\\bin\\other.dll"), DWORD(ERROR_SUCCESS));
    QCOMPARE(errorOfMoving(top + "\\I\\bin", top + "\\I\\bin moved"), DWORD(ERROR_SUCCESS));
    QCOMPARE(errorOfMoving(top + "\\I", top + "\\I moved"), DWORD(ERROR_SUCCESS));
}

/// The license directory and the source, to which others may write.
void HelperHoldingTest::whatIsCopiedIsHeld()
{
    const QString license = top + "\\H\\license";
    const QString source = top + "\\new.dat";
    QVERIFY(QDir().mkpath(license));
    makeFile(source, "the new license");
    {
        const HeldPath directory(toWide(license), HeldPath::Writers::allowed);
        const HeldPath file(toWide(source), HeldPath::Writers::allowed);
        QVERIFY(directory.handle() != nullptr);
        QVERIFY(file.handle() != nullptr);

        QCOMPARE(errorOf(RemoveDirectoryW(wide(license))), DWORD(ERROR_SHARING_VIOLATION));
        QCOMPARE(errorOfMoving(license, license + " moved"), DWORD(ERROR_SHARING_VIOLATION));
        QCOMPARE(errorOfMoving(top + "\\H", top + "\\H moved"), DWORD(ERROR_SHARING_VIOLATION));
        QCOMPARE(errorOf(DeleteFileW(wide(source))), DWORD(ERROR_SHARING_VIOLATION));
        QCOMPARE(errorOfMoving(source, top + "\\old.dat"), DWORD(ERROR_SHARING_VIOLATION));
        QCOMPARE(errorOfOpening(source, GENERIC_WRITE), DWORD(ERROR_SUCCESS));
    }

    QCOMPARE(errorOfMoving(source, top + "\\old.dat"), DWORD(ERROR_SUCCESS));
    QCOMPARE(errorOf(RemoveDirectoryW(wide(license))), DWORD(ERROR_SUCCESS));
}

QTEST_GUILESS_MAIN(HelperHoldingTest)

#include "HelperHoldingTest_win.moc"
