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

#include <array>
#include <list>

using namespace HelperMachine;
using namespace WineFiles;
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

        QCOMPARE(run(line("--x64", libraries)), done());

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

        QCOMPARE(run(line("--x64", {written})), done());

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

        QCOMPARE(run(line("--x64", {path("halconx.dll"), path("halconxxl.dll"), path("hdevenginex.dll")})),
                 failed(5, "The system variables are set, but not every COM library could be registered.",
                        "The registration of \"" + path("halconxxl.dll") + "\" failed."));

        QCOMPARE(registeredPath("halconx"), path("halconx.dll"));
        QCOMPARE(registeredPath("hdevenginex"), path("hdevenginex.dll"));
        QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H\\"));
    }

    void noneToRegister()
    {
        QCOMPARE(run(line("--x64", {})), done());
        QCOMPARE(run(line("--x86", {})), done());
    }

    void refuses_data()
    {
        columns<QString, QString>("library", "reason");

        row("missing", top + "\\missing\\halconx.dll", "does not exist");
        row("directory", top + "\\directory\\halconx.dll", "is a directory");
    }

    /// Neither the variables nor the good library in front are touched.
    void refuses()
    {
        QFETCH(QString, library);
        QFETCH(QString, reason);
        QVERIFY(QDir().mkpath(top + "\\directory\\halconx.dll"));
        const auto before = values(environmentKey);

        QCOMPARE(run(line("--x64", {path("hdevenginex.dll"), library})),
                 refused('"' + library + "\" " + reason + '.'));

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

        const ProgramResult result = run(line("--x64", {library}));
        removeSymbolicLink(linkedDirectory);
        removeSymbolicLink(linkedLibrary);

        QCOMPARE(result, done());
        QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H\\"));
        QVERIFY(!registeredPath("halconx").isNull());
    }

    /// Wine's prefix has no 32-bit system directory. Whatever is missing, nothing is done in part.
    void refuses32BitWithoutItsSystem()
    {
        QVERIFY(!QFileInfo::exists("C:\\windows\\syswow64\\regsvr32.exe"));
        const auto before = values(environmentKey);

        QCOMPARE(run(line("--x86", {path("halconx.dll")})),
                 refused(R"("C:\windows\syswow64\regsvr32.exe" does not exist.)"));

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
        QVERIFY(!libraryHangs());
        QCOMPARE(registeredPath("hdevenginex"), path("hdevenginex.dll"));
        QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\H"));
    }
};

QTEST_GUILESS_MAIN(HelperRegistrationTest)

#include "HelperRegistrationTest_win.moc"
