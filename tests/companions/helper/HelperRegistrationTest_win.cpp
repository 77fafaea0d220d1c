#include "companions/helper/HelperRun.h"
#include "companions/helper/LibraryRegistration.h"

#include "tests/companions/helper/HelperMachine.h"
#include "tests/companions/helper/WideText.h"
#include "tests/support/Registry.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

#include <thread>

using HelperMachine::copyFile;
using HelperMachine::defaultText;
using HelperMachine::environmentKey;
using HelperMachine::makeFile;
using HelperMachine::plainText;
using HelperMachine::run;
using HelperMachine::values;
using WineFiles::makeSymbolicLink;
using WineFiles::Mapping;
using WineFiles::onAnotherDrive;
using WineFiles::removeSymbolicLink;
using namespace std::chrono_literals;

namespace {

const QString top = "C:\\Registration test";
const QString binaries = top + "\\R&D 100% (Größe)\\bin\\x64-win64";
const QString classes = "HKEY_LOCAL_MACHINE\\Software\\Classes\\";
const QString variables = "--env HALCONROOT=\"C:\\H\\\" --env HALCONARCH=\"x64-win64\" --env "
                          "HALCONIMAGES=\"\" --env HALCONEXAMPLES=\"\" ";

QString path(const QString &name)
{
    return binaries + '\\' + name;
}

QString line(const QString &architecture, const QStringList &libraries)
{
    QString result = variables + architecture;
    for (const QString &library : libraries) {
        result += " \"" + library + '"';
    }
    return result;
}

/// The key in which the library of this name registers itself.
QString registeredPath(const QString &name)
{
    return defaultText(classes + "DemoMachine." + name + "\\InprocServer32");
}

/// The environment of the recording library.
QStringList recordedVariables(const QString &library)
{
    QFile record(library + ".environment");
    const QByteArray bytes = record.open(QFile::ReadOnly) ? record.readAll() : QByteArray();
    return QString::fromUtf16(reinterpret_cast<const ushort *>(bytes.constData()), bytes.size() / 2)
        .split(QChar(), Qt::SkipEmptyParts);
}

bool hangs()
{
    const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, L"CorvantaHangingLibrary");
    if (mutex != nullptr) {
        CloseHandle(mutex);
    }
    return mutex != nullptr;
}

HelperRequest request(const QStringList &libraries)
{
    HelperRequest result;
    result.action = HelperAction::setMachine;
    result.environment = {{L"HALCONROOT", L"C:\\H"}};
    result.architecture = LibraryArchitecture::x64;
    for (const QString &library : libraries) {
        result.libraries.push_back(toWide(library));
    }
    return result;
}

} // namespace

class HelperRegistrationTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void programs();
    void registersAll();
    void registersSome();
    void writtenOtherwise_data();
    void writtenOtherwise();
    void givesTheMachinesEnvironment();
    void variablesAreSetFirst();
    void oneFails();
    void noLibraryAtAll();
    void noneToRegister();

    void refuses_data();
    void refuses();
    void libraryOnItsWay_data();
    void libraryOnItsWay();
    void refuses32BitWithoutItsSystem();

    void timeLimit();
    void goesOnBehindTheTimeLimit();
    void cannotBeStarted();
};

void HelperRegistrationTest::init()
{
    QDir(top).removeRecursively();
    for (const QString name : {"halconx", "halconxxl", "hdevenginex", "hdevenginexxl"}) {
        Registry::removeTree(classes + "DemoMachine." + name);
        copyFile(COM_LIBRARY, path(name + ".dll"));
    }
    Registry::setString(environmentKey, "HALCONROOT", "before");
}

void HelperRegistrationTest::programs()
{
    QCOMPARE(fromWide(registrationProgram(LibraryArchitecture::x64)),
             QString("C:\\windows\\system32\\regsvr32.exe"));
    QCOMPARE(fromWide(registrationProgram(LibraryArchitecture::x86)),
             QString("C:\\windows\\syswow64\\regsvr32.exe"));
}

void HelperRegistrationTest::registersAll()
{
    const QStringList names{"halconx", "halconxxl", "hdevenginex", "hdevenginexxl"};
    QStringList libraries;
    for (const QString &name : names) {
        libraries.append(path(name + ".dll"));
    }

    const HelperResult result = run(line("--x64", libraries));

    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitCode, 0);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(registeredPath(names[i]), libraries[i]);
    }
}

void HelperRegistrationTest::registersSome()
{
    QCOMPARE(run(line("--x64", {path("hdevenginexxl.dll"), path("HALCONX.DLL")})).exitCode, 0);

    QCOMPARE(registeredPath("halconx").toLower(), path("halconx.dll").toLower());
    QCOMPARE(registeredPath("hdevenginexxl"), path("hdevenginexxl.dll"));
    QVERIFY(registeredPath("halconxxl").isNull());
    QVERIFY(registeredPath("hdevenginex").isNull());
}

void HelperRegistrationTest::writtenOtherwise_data()
{
    QTest::addColumn<QString>("written");

    // As the program writes it for a directory registered with a trailing backslash, or with slashes.
    QTest::newRow("doubled backslash") << path("halconx.dll").replace("\\bin", "\\\\bin");
    QTest::newRow("slashes before the backslashes")
        << path("halconx.dll").replace('\\', '/').replace("/bin/x64-win64/", "\\bin\\x64-win64\\");
    QTest::newRow("slashes") << path("halconx.dll").replace('\\', '/');
}

/// regsvr32 gets the path with single backslashes, which it cannot misread.
void HelperRegistrationTest::writtenOtherwise()
{
    QFETCH(QString, written);
    QVERIFY(written != path("halconx.dll"));

    const HelperResult result = run(line("--x64", {written}));

    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(registeredPath("halconx"), path("halconx.dll"));
}

/// Otherwise a variable of the helper's parent could run the parent's code in the libraries' process.
void HelperRegistrationTest::givesTheMachinesEnvironment()
{
    QVERIFY(QFile::remove(path("halconx.dll")));
    copyFile(RECORDING_LIBRARY, path("halconx.dll"));
    Registry::setString(environmentKey, "HALCONEXAMPLES", "before");
    Registry::setString(environmentKey, "OfTheMachine", "yes");
    const QStringList names{"PATH",    "COR_PROFILER", "SystemRoot",   "SystemDrive", "windir",
                            "ComSpec", "TEMP",         "ProgramFiles", "HALCONROOT"};
    QMap<QString, QByteArray> before;
    for (const QString &name : names) {
        before.insert(name, qgetenv(name.toLatin1()));
        qputenv(name.toLatin1(), "C:\\Evil");
    }

    // Set in this process, which could not be started with such variables.
    HelperRequest asked = request({path("halconx.dll")});
    asked.environment = {{L"HALCONROOT", L"C:\\H"}, {L"HALCONEXAMPLES", L"D:\\Größe"}};
    const HelperOutcome outcome = switchMachine(asked, 60s);
    for (const QString &name : names) {
        before[name].isEmpty() ? qunsetenv(name.toLatin1()) : qputenv(name.toLatin1(), before[name]);
    }

    QCOMPARE(outcome.code, HelperExitCode::done);
    QMap<QString, QString> variables;
    for (const QString &variable : recordedVariables(path("halconx.dll"))) {
        variables.insert(variable.section('=', 0, 0).toUpper(), variable.section('=', 1));
        QVERIFY2(!variable.contains("Evil"), qPrintable(variable));
    }
    QCOMPARE(variables["HALCONROOT"], QString("C:\\H"));
    QCOMPARE(variables["HALCONEXAMPLES"], QString("D:\\Größe"));
    QCOMPARE(variables["OFTHEMACHINE"], QString("yes"));
    QCOMPARE(variables["SYSTEMROOT"], QString("C:\\windows"));
    QCOMPARE(variables["SYSTEMDRIVE"], QString("C:"));
    QCOMPARE(variables["WINDIR"], QString("C:\\windows"));
    QCOMPARE(variables["COMSPEC"], QString("C:\\windows\\system32\\cmd.exe"));
    QVERIFY(variables["PATH"].startsWith("C:\\windows\\system32;"));
    QVERIFY(variables.contains("PROGRAMFILES"));
    QVERIFY(!variables.contains("COR_PROFILER"));
}

void HelperRegistrationTest::variablesAreSetFirst()
{
    QCOMPARE(run(line("--x64", {path("halconx.dll")})).exitCode, 0);

    QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H\\"));
    QCOMPARE(values(environmentKey)["HALCONARCH"], plainText("x64-win64"));
}

/// The others are registered, and the variables stay set.
void HelperRegistrationTest::oneFails()
{
    QVERIFY(QFile::remove(path("halconxxl.dll")));
    copyFile(FAILING_LIBRARY, path("halconxxl.dll"));

    const HelperResult result =
        run(line("--x64", {path("halconx.dll"), path("halconxxl.dll"), path("hdevenginex.dll")}));

    QCOMPARE(QString::fromUtf8(result.errors),
             "qz_com_helper: The system variables are set, but not every COM library could be registered.\r\n"
             "The registration of \"" +
                 path("halconxxl.dll") + "\" failed.\r\n");
    QCOMPARE(result.exitCode, 5);
    QCOMPARE(registeredPath("halconx"), path("halconx.dll"));
    QCOMPARE(registeredPath("hdevenginex"), path("hdevenginex.dll"));
    QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H\\"));
}

void HelperRegistrationTest::noLibraryAtAll()
{
    QVERIFY(QFile::remove(path("halconx.dll")));
    makeFile(path("halconx.dll"), "no library");

    QCOMPARE(run(line("--x64", {path("halconx.dll")})).exitCode, 5);
}

void HelperRegistrationTest::noneToRegister()
{
    QCOMPARE(run(line("--x64", {})).exitCode, 0);
    QCOMPARE(run(line("--x86", {})).exitCode, 0);
}

void HelperRegistrationTest::refuses_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QString &library, const QString &reason) {
        QTest::newRow(name) << library << '"' + library + "\"" + reason;
    };

    row("missing", top + "\\missing\\halconx.dll", " does not exist.");
    row("missing in a directory that is there", top + "\\halconx.dll", " does not exist.");
    row("missing drive", "Q:\\halconx.dll", " does not exist.");
    row("directory", top + "\\directory\\halconx.dll", " is a directory.");
    row("below a file", top + "\\file\\halconx.dll", " does not exist.");
}

/// Neither the variables nor the good library in front are touched.
void HelperRegistrationTest::refuses()
{
    QFETCH(QString, library);
    QFETCH(QString, reason);
    QVERIFY(QDir().mkpath(top + "\\directory\\halconx.dll"));
    makeFile(top + "\\file", "a file");
    const auto before = values(environmentKey);

    const HelperResult result = run(line("--x64", {path("hdevenginex.dll"), library}));

    QCOMPARE(QString::fromUtf8(result.errors),
             "qz_com_helper: The request was refused. Nothing was changed.\r\n" + reason + "\r\n");
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(values(environmentKey), before);
    QVERIFY(registeredPath("hdevenginex").isNull());
}

void HelperRegistrationTest::libraryOnItsWay_data()
{
    QTest::addColumn<QString>("library");

    QTest::newRow("linked directory") << QString(binaries).replace("x64-win64", "link") + "\\halconx.dll";
    QTest::newRow("link") << top + "\\other\\halconx.dll";
    QTest::newRow("drive letter for a directory") << "W:\\bin\\x64-win64\\halconx.dll";
    QTest::newRow("drive of the whole file system")
        << onAnotherDrive(top) + path("halconx.dll").mid(top.size());
}

/// The caller may name any directory, however the library is reached.
void HelperRegistrationTest::libraryOnItsWay()
{
    QFETCH(QString, library);
    const QString linkedDirectory = QString(binaries).replace("x64-win64", "link");
    const QString linkedLibrary = top + "\\other\\halconx.dll";
    const Mapping drive("W:", QString(binaries).remove("\\bin\\x64-win64"));
    makeSymbolicLink("x64-win64", linkedDirectory);
    copyFile(COM_LIBRARY, top + "\\other\\real.dll");
    makeSymbolicLink("real.dll", linkedLibrary);

    const HelperResult result = run(line("--x64", {library}));
    removeSymbolicLink(linkedDirectory);
    removeSymbolicLink(linkedLibrary);

    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H\\"));
    QVERIFY(!registeredPath("halconx").isNull());
}

/// Wine's prefix has no 32-bit system directory. Whatever is missing, nothing is done in part.
void HelperRegistrationTest::refuses32BitWithoutItsSystem()
{
    QVERIFY(!QFileInfo::exists("C:\\windows\\syswow64\\regsvr32.exe"));
    const auto before = values(environmentKey);

    const HelperResult result = run(line("--x86", {path("halconx.dll")}));

    QCOMPARE(result.errors, QByteArray("qz_com_helper: The request was refused. Nothing was changed.\r\n"
                                       "\"C:\\windows\\syswow64\\regsvr32.exe\" does not exist.\r\n"));
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(values(environmentKey), before);
}

void HelperRegistrationTest::timeLimit()
{
    copyFile(HANGING_LIBRARY, path("hanging.dll"));
    QVERIFY(!hangs());
    bool hung = false;
    std::thread observer([&hung] {
        for (int i = 0; i < 400 && !hung; ++i) {
            hung = hangs();
            Sleep(50);
        }
    });

    const std::wstring result =
        registerLibrary(registrationProgram(LibraryArchitecture::x64), toWide(path("hanging.dll")), 5s);
    observer.join();

    QCOMPARE(fromWide(result), QString("took too long and was ended"));
    QVERIFY(hung);
    QVERIFY(!hangs());
    QVERIFY(QFile::remove(path("hanging.dll")));
}

void HelperRegistrationTest::goesOnBehindTheTimeLimit()
{
    QVERIFY(QFile::remove(path("halconx.dll")));
    copyFile(HANGING_LIBRARY, path("halconx.dll"));

    const HelperOutcome result = switchMachine(request({path("halconx.dll"), path("hdevenginex.dll")}), 5s);

    QCOMPARE(result.code, HelperExitCode::librariesNotRegistered);
    QCOMPARE(fromWide(result.reason),
             "The registration of \"" + path("halconx.dll") + "\" took too long and was ended.");
    QVERIFY(!hangs());
    QCOMPARE(registeredPath("hdevenginex"), path("hdevenginex.dll"));
    QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H"));
}

void HelperRegistrationTest::cannotBeStarted()
{
    QCOMPARE(registerLibrary(L"C:\\windows\\system32\\missing.exe", toWide(path("halconx.dll")), 5s),
             std::wstring(L"could not be started"));
    QVERIFY(registeredPath("halconx").isNull());
}

QTEST_GUILESS_MAIN(HelperRegistrationTest)

#include "HelperRegistrationTest_win.moc"
