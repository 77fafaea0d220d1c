#include "companions/helper/HelperRun.h"
#include "companions/helper/LibraryRegistration.h"

#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"
#include "tests/support/WideText.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

#include <array>
#include <list>

using HelperMachine::copyFile;
using HelperMachine::defaultText;
using HelperMachine::environmentKey;
using HelperMachine::makeFile;
using HelperMachine::plainText;
using HelperMachine::run;
using HelperMachine::values;
using WineFiles::makeSymbolicLink;
using WineFiles::Mapping;
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
    void init()
    {
        QDir(top).removeRecursively();
        for (const QString name : {"halconx", "halconxxl", "hdevenginex", "hdevenginexxl"}) {
            Registry::removeTree(classes + "DemoMachine." + name);
            copyFile(COM_LIBRARY, path(name + ".dll"));
        }
        Registry::setString(environmentKey, "HALCONROOT", "before");
    }

    void programs()
    {
        QCOMPARE(fromWide(registrationProgram(LibraryArchitecture::x64)),
                 QString("C:\\windows\\system32\\regsvr32.exe"));
        QCOMPARE(fromWide(registrationProgram(LibraryArchitecture::x86)),
                 QString("C:\\windows\\syswow64\\regsvr32.exe"));
    }

    void registersAll()
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

    void writtenOtherwise_data()
    {
        columns<QString>("written");

        // As the program writes it for a directory registered with a trailing backslash, or with slashes.
        row("doubled backslash", path("halconx.dll").replace("\\bin", "\\\\bin"));
        row("slashes before the backslashes",
            path("halconx.dll").replace('\\', '/').replace("/bin/x64-win64/", "\\bin\\x64-win64\\"));
    }

    /// regsvr32 gets the path with single backslashes, which it cannot misread.
    void writtenOtherwise()
    {
        QFETCH(QString, written);
        QVERIFY(written != path("halconx.dll"));

        const HelperResult result = run(line("--x64", {written}));

        QCOMPARE(result.errors, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(registeredPath("halconx"), path("halconx.dll"));
    }

    /// Otherwise a variable of the helper's parent could run the parent's code in the libraries' process.
    void givesTheMachinesEnvironment()
    {
        QVERIFY(QFile::remove(path("halconx.dll")));
        copyFile(RECORDING_LIBRARY, path("halconx.dll"));
        Registry::setString(environmentKey, "HALCONEXAMPLES", "before");
        Registry::setString(environmentKey, "OfTheMachine", "yes");
        constexpr std::array<const char *, 9> names{"PATH",        "COR_PROFILER", "SystemRoot",
                                                    "SystemDrive", "windir",       "ComSpec",
                                                    "TEMP",        "ProgramFiles", "HALCONROOT"};
        std::list<EnvironmentVariable> evil;
        for (const char *name : names) {
            evil.emplace_back(name, "C:\\Evil");
        }

        // Set in this process, which could not be started with such variables.
        HelperRequest asked = request({path("halconx.dll")});
        asked.environment = {{L"HALCONROOT", L"C:\\H"}, {L"HALCONEXAMPLES", L"D:\\Größe"}};
        const HelperOutcome outcome = switchMachine(asked, 60s);
        evil.clear();

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

    /// The others are registered, and the variables stay set.
    void oneFails()
    {
        QVERIFY(QFile::remove(path("halconxxl.dll")));
        copyFile(FAILING_LIBRARY, path("halconxxl.dll"));

        const HelperResult result =
            run(line("--x64", {path("halconx.dll"), path("halconxxl.dll"), path("hdevenginex.dll")}));

        QCOMPARE(
            QString::fromUtf8(result.errors),
            "qz_com_helper: The system variables are set, but not every COM library could be registered.\r\n"
            "The registration of \"" +
                path("halconxxl.dll") + "\" failed.\r\n");
        QCOMPARE(result.exitCode, 5);
        QCOMPARE(registeredPath("halconx"), path("halconx.dll"));
        QCOMPARE(registeredPath("hdevenginex"), path("hdevenginex.dll"));
        QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H\\"));
    }

    void noneToRegister()
    {
        QCOMPARE(run(line("--x64", {})).exitCode, 0);
        QCOMPARE(run(line("--x86", {})).exitCode, 0);
    }

    void refuses_data()
    {
        columns<QString, QString>("library", "reason");
        const auto row = [](const char *name, const QString &library, const QString &reason) {
            ::row(name, library, '"' + library + "\"" + reason);
        };

        row("missing", top + "\\missing\\halconx.dll", " does not exist.");
        row("directory", top + "\\directory\\halconx.dll", " is a directory.");
    }

    /// Neither the variables nor the good library in front are touched.
    void refuses()
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

    void libraryOnItsWay_data()
    {
        columns<QString>("library");

        row("linked directory", QString(binaries).replace("x64-win64", "link") + "\\halconx.dll");
        row("link", top + "\\other\\halconx.dll");
        row("drive letter for a directory", "W:\\bin\\x64-win64\\halconx.dll");
    }

    /// The caller may name any directory, however the library is reached.
    void libraryOnItsWay()
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
    void refuses32BitWithoutItsSystem()
    {
        QVERIFY(!QFileInfo::exists("C:\\windows\\syswow64\\regsvr32.exe"));
        const auto before = values(environmentKey);

        const HelperResult result = run(line("--x86", {path("halconx.dll")}));

        QCOMPARE(result.errors, QByteArray("qz_com_helper: The request was refused. Nothing was changed.\r\n"
                                           "\"C:\\windows\\syswow64\\regsvr32.exe\" does not exist.\r\n"));
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(values(environmentKey), before);
    }

    void goesOnBehindTheTimeLimit()
    {
        QVERIFY(QFile::remove(path("halconx.dll")));
        copyFile(HANGING_LIBRARY, path("halconx.dll"));

        const HelperOutcome result =
            switchMachine(request({path("halconx.dll"), path("hdevenginex.dll")}), 5s);

        QCOMPARE(result.code, HelperExitCode::librariesNotRegistered);
        QCOMPARE(fromWide(result.reason),
                 "The registration of \"" + path("halconx.dll") + "\" took too long and was ended.");
        QVERIFY(!hangs());
        QCOMPARE(registeredPath("hdevenginex"), path("hdevenginex.dll"));
        QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H"));
    }
};

QTEST_GUILESS_MAIN(HelperRegistrationTest)

#include "HelperRegistrationTest_win.moc"
