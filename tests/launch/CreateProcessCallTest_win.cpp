#include "launch/ProcessStart.h"
#include "tests/support/EchoChild.h"

#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

#include <algorithm>

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

QStringList entriesOf(const wchar_t *environment)
{
    QStringList entries;
    for (const wchar_t *entry = environment; *entry != L'\0'; entry += entries.constLast().size() + 1) {
        entries.append(QString::fromWCharArray(entry));
    }
    return entries;
}

/// The name in an entry; a name may begin with an equals sign, as in "=C:=C:\directory".
QString nameOf(const QString &entry)
{
    return entry.left(entry.indexOf('=', 1));
}

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
                 entriesOf(static_cast<const wchar_t *>(environment)),
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
    const auto pointers = {
        static_cast<const void *>(info.lpReserved), static_cast<const void *>(info.lpDesktop),
        static_cast<const void *>(info.lpTitle),    static_cast<const void *>(info.lpReserved2),
        static_cast<const void *>(info.hStdInput),  static_cast<const void *>(info.hStdOutput),
        static_cast<const void *>(info.hStdError)};
    const auto numbers = {info.dwX,
                          info.dwY,
                          info.dwXSize,
                          info.dwYSize,
                          info.dwXCountChars,
                          info.dwYCountChars,
                          info.dwFillAttribute,
                          info.dwFlags,
                          DWORD(info.wShowWindow),
                          DWORD(info.cbReserved2)};
    return std::all_of(pointers.begin(), pointers.end(), [](const void *each) { return each == nullptr; }) &&
           std::all_of(numbers.begin(), numbers.end(), [](DWORD each) { return each == 0; });
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
    void init();
    void everyArgument_data();
    void everyArgument();
    void environmentIsSortedByName();
    void handlesAreClosedAtOnce();
};

void CreateProcessCallTest::init()
{
    calls().clear();
}

void CreateProcessCallTest::everyArgument_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("empty, not the executable's name") << "";
    QTest::newRow("one") << "--halconversion=13.0";
    QTest::newRow("several, quoted") << "/K \"C:\\Program Files\\x.bat\" & title \"a\"";
}

void CreateProcessCallTest::everyArgument()
{
    QFETCH(QString, arguments);
    const QTemporaryDir directory;
    const QString executable = QDir::toNativeSeparators(directory.filePath("tool with spaces.exe"));
    EchoChild::copyTo(executable);
    const EchoChild child;
    QStringList errors;

    QVERIFY2(startProcess(executable, arguments, HalconInstallation(20, 11, 1, 3), &errors),
             qPrintable(errors.join('\n')));

    QCOMPARE(calls().size(), 1);
    const Call call = calls().constFirst();
    QCOMPARE(call.applicationName, executable);
    QCOMPARE(call.commandLine, arguments);
    QVERIFY(call.defaultSecurity);
    QVERIFY(!call.inheritHandles);
    QCOMPARE(call.creationFlags, DWORD(CREATE_UNICODE_ENVIRONMENT));
    QVERIFY(!call.currentDirectoryGiven);
    QCOMPARE(call.startupInfo.cb, DWORD(sizeof(STARTUPINFOW)));
    QVERIFY(nothingSetButTheSize(call.startupInfo));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
}

void CreateProcessCallTest::environmentIsSortedByName()
{
    qputenv("zzz_launch_test", "3");
    qputenv("AAB_LAUNCH_TEST", "2");
    qputenv("aaa_launch_test", "1");
    HalconInstallation installation(20, 11, 1, 3);
    installation.installDir = "C:\\H";
    installation.exampleRoot = "C:\\E";
    installation.arch = "x64-win64";

    // Only the call counts; it is made whether or not the executable exists.
    startProcess("C:\\missing.exe", "", installation, nullptr);

    const QStringList entries = calls().constFirst().environment;
    const auto nameComesFirst = [](const QString &one, const QString &other) {
        return nameOf(one).compare(nameOf(other), Qt::CaseInsensitive) < 0;
    };
    QVERIFY2(std::is_sorted(entries.begin(), entries.end(), nameComesFirst), qPrintable(entries.join('\n')));
    QCOMPARE(entries.filter(QRegularExpression("^(aaa_|AAB_|zzz_|HALCON)")),
             (QStringList{"aaa_launch_test=1", "AAB_LAUNCH_TEST=2", "HALCONARCH=x64-win64",
                          "HALCONEXAMPLES=C:\\E\\examples", "HALCONIMAGES=C:\\E\\examples\\images",
                          "HALCONROOT=C:\\H", "zzz_launch_test=3"}));
}

void CreateProcessCallTest::handlesAreClosedAtOnce()
{
    const QTemporaryDir directory;
    const QString executable = QDir::toNativeSeparators(directory.filePath("tool.exe"));
    EchoChild::copyTo(executable);
    const EchoChild child;

    QVERIFY(startProcess(executable, "", HalconInstallation(20, 11, 1, 3), nullptr));

    const PROCESS_INFORMATION process = calls().constFirst().process;
    QVERIFY(process.hProcess != nullptr && process.hThread != nullptr);
    QVERIFY(!isOpen(process.hProcess));
    QVERIFY(!isOpen(process.hThread));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
}

QTEST_GUILESS_MAIN(CreateProcessCallTest)

#include "CreateProcessCallTest_win.moc"
