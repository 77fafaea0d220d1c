#include "companions/helper/HelperRun.h"
#include "companions/helper/LibraryRegistration.h"

#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/WideText.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

using namespace HelperMachine;

namespace {

/// The arguments of CreateProcessW.
struct Start {
    QString program;
    QString commandLine;
    QString directory;
    bool inheritsHandles;
    DWORD flags;
    STARTUPINFOW startup;
};

QVector<Start> starts;

BOOL WINAPI recordStart(LPCWSTR program, LPWSTR commandLine, LPSECURITY_ATTRIBUTES /*process*/,
                        LPSECURITY_ATTRIBUTES /*thread*/, BOOL inheritsHandles, DWORD flags,
                        LPVOID /*environment*/, LPCWSTR directory, LPSTARTUPINFOW startup,
                        LPPROCESS_INFORMATION /*information*/)
{
    starts.append({QString::fromWCharArray(program), QString::fromWCharArray(commandLine),
                   directory != nullptr ? QString::fromWCharArray(directory) : "(none)",
                   inheritsHandles != FALSE, flags, *startup});
    return FALSE;
}

const QString license = "C:\\Calls test\\H\\license";
const QString target = license + "\\license.dat";
const QString source = "C:\\Calls test\\new.dat";
const std::wstring copyLine = toWide("qz_com_helper --copy=\"" + target + "\" \"" + source + "\"");

/// The contents of the license directory when a file was flushed: the length of each file under its name.
QVector<QMap<QString, qint64>> flushes;
bool flushingFails = false;

BOOL WINAPI recordFlush(HANDLE /*file*/)
{
    QMap<QString, qint64> sizes;
    for (const QFileInfo &file : QDir(license).entryInfoList(QDir::Files)) {
        sizes.insert(file.fileName() == "license.dat" ? "old" : "new", file.size());
    }
    flushes.append(sizes);
    SetLastError(ERROR_DISK_FULL);
    return flushingFails ? FALSE : TRUE;
}

bool restrictingFails = false;

/// Restricts the search for libraries as the real function does, unless it is to fail.
BOOL WINAPI restrictSearch(DWORD directories)
{
    const HMODULE system = GetModuleHandleW(L"kernel32.dll");
    const auto restrict = reinterpret_cast<decltype(&SetDefaultDllDirectories)>(
        reinterpret_cast<void *>(GetProcAddress(system, "SetDefaultDllDirectories")));
    return restrictingFails ? FALSE : restrict(directories);
}

} // namespace

/// Fakes of the imports through which the helper calls the system's library.
extern "C" decltype(&CreateProcessW) importedCreateProcess __asm__("__imp_CreateProcessW");
extern "C" decltype(&FlushFileBuffers) importedFlush __asm__("__imp_FlushFileBuffers");
extern "C" decltype(&SetDefaultDllDirectories) importedRestrict __asm__("__imp_SetDefaultDllDirectories");
extern "C" {
decltype(&CreateProcessW) importedCreateProcess = recordStart;
decltype(&FlushFileBuffers) importedFlush = recordFlush;
decltype(&SetDefaultDllDirectories) importedRestrict = restrictSearch;
}

/// Calls of the helper to Windows whose effects cannot be seen.
class HelperCallsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QDir("C:\\Calls test").removeRecursively();
        makeFile(source, "the new license");
        makeFile(target, "old");
        starts.clear();
        flushes.clear();
        flushingFails = false;
    }

    /// regsvr32 finds only the system's files, inherits no handles of the helper, and shows nothing.
    void startOfRegsvr32()
    {
        using namespace std::chrono_literals;
        QCOMPARE(registerLibrary(L"C:\\windows\\system32\\regsvr32.exe", L"C:\\a b\\halconx.dll", 5s),
                 std::wstring(L"could not be started"));

        QCOMPARE(starts.size(), 1);
        const Start &start = starts.constFirst();
        QCOMPARE(start.program, QString("C:\\windows\\system32\\regsvr32.exe"));
        QCOMPARE(start.commandLine,
                 QString("\"C:\\windows\\system32\\regsvr32.exe\" /s \"C:\\a b\\halconx.dll\""));
        QCOMPARE(start.directory, QString("C:\\windows\\system32"));
        QVERIFY(!start.inheritsHandles);
        QCOMPARE(start.flags, DWORD(CREATE_NO_WINDOW | CREATE_UNICODE_ENVIRONMENT));
        QCOMPARE(start.startup.cb, DWORD(sizeof(STARTUPINFOW)));
        QCOMPARE(start.startup.dwFlags, DWORD(STARTF_USESHOWWINDOW));
        QCOMPARE(start.startup.wShowWindow, WORD(SW_HIDE));
        QVERIFY(start.startup.hStdInput == nullptr && start.startup.hStdOutput == nullptr &&
                start.startup.hStdError == nullptr);
    }

    /// Otherwise a power failure could leave an empty file instead of the old one.
    void flushedBeforeItTakesThePlace()
    {
        QCOMPARE(replaceLicenseFile(toWide(target), toWide(source)).code, HelperExitCode::done);

        QCOMPARE(flushes.size(), 1);
        QCOMPARE(flushes.constFirst(), (QMap<QString, qint64>{{"new", 15}, {"old", 3}}));
        QCOMPARE(read(target), QByteArray("the new license"));
    }

    void failedFlush()
    {
        flushingFails = true;

        const HelperOutcome outcome = replaceLicenseFile(toWide(target), toWide(source));

        QCOMPARE(outcome.code, HelperExitCode::copyFailed);
        QCOMPARE(fromWide(outcome.reason), "A new file in \"" + license + "\" could not be written.");
        QCOMPARE(flushes.size(), 1);
        QCOMPARE(read(target), QByteArray("old"));
        QCOMPARE(QDir(license).entryList(QDir::Files), QStringList{"license.dat"});
    }

    void nothingIsDoneUnsecured()
    {
        restrictingFails = true;
        QCOMPARE(runHelper(copyLine), HelperExitCode::internalError);
        QCOMPARE(read(target), QByteArray("old"));
        restrictingFails = false;
    }

    /// Must be the last test: it cannot be undone.
    void secureProcess()
    {
        const QString planted = "C:\\Calls test\\planted.dll";
        copyFile(PLANTED_LIBRARY, planted);
        const CurrentDirectory directory("C:\\Calls test");
        const HMODULE found = LoadLibraryW(L"planted.dll");
        QVERIFY(found != nullptr);
        FreeLibrary(found);
        SetErrorMode(0);

        QCOMPARE(runHelper(copyLine), HelperExitCode::done);

        QCOMPARE(read(target), QByteArray("the new license"));
        QVERIFY(LoadLibraryW(L"planted.dll") == nullptr);
        QCOMPARE(GetErrorMode(),
                 UINT(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX));
    }
};

QTEST_GUILESS_MAIN(HelperCallsTest)

#include "HelperCallsTest_win.moc"
