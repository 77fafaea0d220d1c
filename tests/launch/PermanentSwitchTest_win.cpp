#include "launch/ElevatedHelper.h"
#include "launch/PermanentSwitch.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"
#include "tests/launch/EnvironmentBroadcastWindow.h"
#include "tests/launch/PermanentSwitchMachine.h"
#include "tests/support/Registry.h"

#include <QtTest>

#include <windows.h>

namespace {

/// One of the two requested libraries exists.
class InstalledHalcon {
public:
    InstalledHalcon()
    {
        EchoChild::copyTo(library());
        installation.arch = "x64-win64";
        installation.installDir = QDir::toNativeSeparators(directory.path());
        installation.setExampleRoot("D:\\Examples");
    }
    QString library() const
    {
        return QDir::toNativeSeparators(directory.filePath("bin/x64-win64/halconx.dll"));
    }
    QString arguments() const
    {
        return "--env HALCONROOT=\"" + installation.installDir +
               R"(" --env HALCONARCH="x64-win64" --env HALCONIMAGES="D:\Examples\examples\images" )"
               R"(--env HALCONEXAMPLES="D:\Examples\examples" --x64 ")" +
               library() + '"';
    }
    /// The announcement before anything is done, while no variable is set.
    QStringList plannedLines() const
    {
        return {changeLine("HALCONROOT", "user", "", installation.installDir),
                changeLine("HALCONARCH", "user", "", "x64-win64"),
                changeLine("HALCONIMAGES", "user", "", "D:\\Examples\\examples\\images"),
                changeLine("HALCONEXAMPLES", "user", "", "D:\\Examples\\examples"),
                "executing helper process with elevated rights: " + helperExecutablePath() + " " +
                    arguments()};
    }

    HalconInstallation installation{20, 11, 1, 0};

private:
    QTemporaryDir directory;
};

} // namespace

class PermanentSwitchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { clearVariables(); }
    void currentValue_data();
    void currentValue();
    void everyVariableHasItsOwnValue();
    void otherTypesOfValues();
    void dryRunDoesNothing();
    void run_data();
    void run();
    void runWithoutAHelper();
    void runWithoutAList();
    void cleanupTestCase() { clearVariables(); }
};

void PermanentSwitchTest::currentValue_data()
{
    QTest::addColumn<QString>("user"); // null: no value
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("scope");
    QTest::addColumn<QString>("reported");

    QTest::newRow("user only") << "D:\\Old" << QString() << "user"
                               << "D:\\Old";
    QTest::newRow("system only") << QString() << "C:\\Older"
                                 << "system"
                                 << "C:\\Older";
    QTest::newRow("user and system") << "D:\\Old"
                                     << "C:\\Older"
                                     << "user"
                                     << "D:\\Old";
    QTest::newRow("neither") << QString() << QString() << "user"
                             << "";
    QTest::newRow("empty user, system") << ""
                                        << "C:\\Older"
                                        << "system"
                                        << "C:\\Older";
    QTest::newRow("user, empty system") << "D:\\Old"
                                        << ""
                                        << "user"
                                        << "D:\\Old";
    QTest::newRow("both empty") << ""
                                << ""
                                << "user"
                                << "";
    QTest::newRow("as it will be") << QString() << "C:\\H"
                                   << "system"
                                   << "C:\\H";
    QTest::newRow("not ASCII, percent signs")
        << "D:\\Gr\u00f6\u00dfe \u691c %1 %2 %PATH%" << QString() << "user"
        << "D:\\Gr\u00f6\u00dfe \u691c %1 %2 %PATH%";
}

void PermanentSwitchTest::currentValue()
{
    QFETCH(QString, user);
    QFETCH(QString, system);
    QFETCH(QString, scope);
    QFETCH(QString, reported);
    if (!user.isNull()) {
        Registry::setString(userKey, "HALCONROOT", user);
    }
    if (!system.isNull()) {
        Registry::setString(systemKey, "HALCONROOT", system);
    }
    HalconInstallation installation(20, 11, 1, 0);
    installation.arch = "x64-win64";
    installation.installDir = "C:\\H";
    QStringList lines;

    QVERIFY(permanentSwitch(installation, false, false, false, &lines));

    QCOMPARE(lines, (QStringList{
                        changeLine("HALCONROOT", scope, reported, "C:\\H"),
                        changeLine("HALCONARCH", "user", "", "x64-win64"),
                        changeLine("HALCONIMAGES", "user", "", ""),
                        changeLine("HALCONEXAMPLES", "user", "", ""),
                        "executing helper process with elevated rights: " + helperExecutablePath() +
                            R"( --env HALCONROOT="C:\H" --env HALCONARCH="x64-win64" )"
                            R"(--env HALCONIMAGES="" --env HALCONEXAMPLES="" )",
                        broadcastLine,
                    }));
}

void PermanentSwitchTest::everyVariableHasItsOwnValue()
{
    Registry::setString(userKey, "HALCONROOT", "root");
    Registry::setString(systemKey, "HALCONARCH", "architecture");
    Registry::setString(userKey, "HALCONIMAGES", "images");
    Registry::setString(systemKey, "HALCONIMAGES", "shadowed");
    Registry::setString(systemKey, "HALCONEXAMPLES", "examples");
    const InstalledHalcon halcon;
    QStringList lines;

    QVERIFY(permanentSwitch(halcon.installation, false, true, true, &lines));

    QCOMPARE(lines.mid(0, 4),
             (QStringList{changeLine("HALCONROOT", "user", "root", halcon.installation.installDir),
                          changeLine("HALCONARCH", "system", "architecture", "x64-win64"),
                          changeLine("HALCONIMAGES", "user", "images", "D:\\Examples\\examples\\images"),
                          changeLine("HALCONEXAMPLES", "system", "examples", "D:\\Examples\\examples")}));
}

void PermanentSwitchTest::otherTypesOfValues()
{
    // Not expanded: what is stored is what is reported.
    Registry::setExpandString(userKey, "HALCONROOT", "%SystemDrive%\\H");
    Registry::setExpandString(systemKey, "HALCONARCH", "%PROCESSOR_ARCHITECTURE%");
    Registry::setDword(systemKey, "HALCONIMAGES", 7);
    // A multi-string is not a string.
    Registry::setStrings(userKey, "HALCONEXAMPLES", {"a", "b"});
    const InstalledHalcon halcon;
    QStringList lines;

    QVERIFY(permanentSwitch(halcon.installation, false, true, true, &lines));

    QCOMPARE(
        lines.mid(0, 4),
        (QStringList{changeLine("HALCONROOT", "user", "%SystemDrive%\\H", halcon.installation.installDir),
                     changeLine("HALCONARCH", "system", "%PROCESSOR_ARCHITECTURE%", "x64-win64"),
                     changeLine("HALCONIMAGES", "system", "7", "D:\\Examples\\examples\\images"),
                     changeLine("HALCONEXAMPLES", "user", "", "D:\\Examples\\examples")}));
}

void PermanentSwitchTest::dryRunDoesNothing()
{
    const InstalledHalcon halcon;
    const ElevatedHelperProgram helper;
    const EchoChild child;
    EchoChild::exitWith(3);
    EnvironmentBroadcastWindow window;
    const QStringList before = environmentLines();
    QStringList lines{"earlier line"};

    QVERIFY(permanentSwitch(halcon.installation, false, true, false, &lines));
    QVERIFY(permanentSwitch(halcon.installation, false, true, false, nullptr));

    QCOMPARE(lines, QStringList{"earlier line"} + halcon.plannedLines() + QStringList{broadcastLine});
    // The program would have waited for a helper.
    QVERIFY(!child.hasRecord());
    QCOMPARE(window.closeAndTakeLines(), QStringList());
    QCOMPARE(environmentLines(), before);
}

void PermanentSwitchTest::run_data()
{
    QTest::addColumn<quint32>("exitCode");
    QTest::addColumn<QStringList>("failure");

    const auto line = [](const QString &value) {
        return QStringList{"helper process returned with value " + value +
                           ". This indicates an error in the execution!"};
    };
    QTest::newRow("success") << 0u << QStringList();
    QTest::newRow("two") << 2u << line("2");
    QTest::newRow("three") << 3u << line("3");
    QTest::newRow("largest") << 0x7fffffffu << line("2147483647");
    QTest::newRow("all bits") << 0xffffffffu << line("-1");
}

void PermanentSwitchTest::run()
{
    QFETCH(quint32, exitCode);
    QFETCH(QStringList, failure);
    const InstalledHalcon halcon;
    const ElevatedHelperProgram helper;
    const EchoChild child;
    EchoChild::exitWith(exitCode);
    EnvironmentBroadcastWindow window;
    const QStringList before = environmentLines();
    QStringList lines{"earlier line"};

    QCOMPARE(permanentSwitch(halcon.installation, true, true, false, &lines), failure.isEmpty());

    QCOMPARE(lines,
             QStringList{"earlier line"} + halcon.plannedLines() + failure + QStringList{broadcastLine});
    // The helper had ended when the window received the broadcast.
    QCOMPARE(window.closeAndTakeLines(), QStringList{"wParam 0, text Environment, after the helper"});
    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, helperExecutablePath());
    QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" " + halcon.arguments());
    QCOMPARE(found.currentDirectory, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    QCOMPARE(found.showCommand, SW_SHOW);
    // The helper sets the variables.
    QCOMPARE(environmentLines(), before);
}

void PermanentSwitchTest::runWithoutAHelper()
{
    ElevatedHelperProgram::remove();
    const InstalledHalcon halcon;
    EnvironmentBroadcastWindow window;
    const ElevatedHelperShellBox box;
    QStringList lines;

    QVERIFY(!permanentSwitch(halcon.installation, true, true, false, &lines));

    QCOMPARE(lines,
             halcon.plannedLines() +
                 (QStringList{
                     "helper process returned with value -1. This indicates an error in the execution!",
                     broadcastLine,
                 }));
    QCOMPARE(window.closeAndTakeLines(), QStringList{"wParam 0, text Environment"});
}

void PermanentSwitchTest::runWithoutAList()
{
    const InstalledHalcon halcon;
    const ElevatedHelperProgram helper;
    const EchoChild child;

    QVERIFY(permanentSwitch(halcon.installation, true, true, false, nullptr));
    QVERIFY(child.hasRecord());
    EchoChild::exitWith(3);
    QVERIFY(!permanentSwitch(halcon.installation, true, true, false, nullptr));
}

QTEST_GUILESS_MAIN(PermanentSwitchTest)

#include "PermanentSwitchTest_win.moc"
