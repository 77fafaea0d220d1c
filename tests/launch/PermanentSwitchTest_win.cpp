#include "launch/ElevatedHelper.h"
#include "launch/PermanentSwitch.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/EnvironmentBroadcastWindow.h"
#include "tests/launch/PermanentSwitchMachine.h"
#include "tests/support/Installations.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <windows.h>

namespace {

/// One of the two requested libraries exists.
struct InstalledHalcon {
    InstalledHalcon() { EchoChild::copyTo(library); }

    /// The announcement before anything is done, while no variable is set.
    QStringList plannedLines() const
    {
        return {changeLine("HALCONROOT", "user", "", installation.installDir),
                changeLine("HALCONARCH", "user", "", "x64-win64"),
                changeLine("HALCONIMAGES", "user", "", "D:\\Examples\\examples\\images"),
                changeLine("HALCONEXAMPLES", "user", "", "D:\\Examples\\examples"),
                "executing helper process with elevated rights: " + helperExecutablePath() + " " + arguments};
    }

    const QTemporaryDir directory;
    const HalconInstallation installation =
        installationIn(QDir::toNativeSeparators(directory.path()), "x64-win64", "D:\\Examples");
    const QString library = installation.installDir + "\\bin\\x64-win64\\halconx.dll";
    const QString arguments =
        "--env HALCONROOT=\"" + installation.installDir +
        R"(" --env HALCONARCH="x64-win64" --env HALCONIMAGES="D:\Examples\examples\images" )"
        R"(--env HALCONEXAMPLES="D:\Examples\examples" --x64 ")" +
        library + '"';
};

/// What a switch says first, of each variable.
QStringList changeLines()
{
    QStringList lines;
    permanentSwitch(installationIn("C:\\H", "x64-win64", "D:\\E"), false, false, false, &lines);
    return lines.mid(0, 4);
}

} // namespace

class PermanentSwitchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { clearVariables(); }

    void valuesOfUserAndSystem()
    {
        Registry::setString(userKey, "HALCONROOT", "D:\\Old");
        Registry::setString(systemKey, "HALCONARCH", "architecture");
        Registry::setString(userKey, "HALCONIMAGES", "D:\\Gr\u00f6\u00dfe \u691c %1 %2 %PATH%");
        Registry::setString(systemKey, "HALCONIMAGES", "shadowed");

        QCOMPARE(changeLines(),
                 (QStringList{changeLine("HALCONROOT", "user", "D:\\Old", "C:\\H"),
                              changeLine("HALCONARCH", "system", "architecture", "x64-win64"),
                              changeLine("HALCONIMAGES", "user", "D:\\Gr\u00f6\u00dfe \u691c %1 %2 %PATH%",
                                         "D:\\E\\examples\\images"),
                              changeLine("HALCONEXAMPLES", "user", "", "D:\\E\\examples")}));
    }

    void emptyValues()
    {
        Registry::setString(userKey, "HALCONROOT", "");
        Registry::setString(systemKey, "HALCONROOT", "C:\\Older");
        Registry::setString(userKey, "HALCONARCH", "architecture");
        Registry::setString(systemKey, "HALCONARCH", "");
        Registry::setString(userKey, "HALCONIMAGES", "");
        Registry::setString(systemKey, "HALCONIMAGES", "");
        Registry::setString(systemKey, "HALCONEXAMPLES", "examples");

        QCOMPARE(changeLines(),
                 (QStringList{changeLine("HALCONROOT", "system", "C:\\Older", "C:\\H"),
                              changeLine("HALCONARCH", "user", "architecture", "x64-win64"),
                              changeLine("HALCONIMAGES", "user", "", "D:\\E\\examples\\images"),
                              changeLine("HALCONEXAMPLES", "system", "examples", "D:\\E\\examples")}));
    }

    void otherTypesOfValues()
    {
        // Not expanded: what is stored is what is reported.
        Registry::setExpandString(userKey, "HALCONROOT", "%SystemDrive%\\H");
        Registry::setExpandString(systemKey, "HALCONARCH", "%PROCESSOR_ARCHITECTURE%");
        Registry::setDword(systemKey, "HALCONIMAGES", 7);
        // A multi-string is not a string.
        Registry::setStrings(userKey, "HALCONEXAMPLES", {"a", "b"});

        QCOMPARE(changeLines(),
                 (QStringList{changeLine("HALCONROOT", "user", "%SystemDrive%\\H", "C:\\H"),
                              changeLine("HALCONARCH", "system", "%PROCESSOR_ARCHITECTURE%", "x64-win64"),
                              changeLine("HALCONIMAGES", "system", "7", "D:\\E\\examples\\images"),
                              changeLine("HALCONEXAMPLES", "user", "", "D:\\E\\examples")}));
    }

    void run_data()
    {
        const auto row = columns<quint32, QStringList>("exitCode", "failure");

        row("success", 0, {});
        row("all bits", 0xffffffff,
            {"helper process returned with value -1. This indicates an error in the execution!"});
    }

    void run()
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
        const EchoRecord found = child.record();
        QCOMPARE(found.executable, helperExecutablePath());
        QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" " + halcon.arguments);
        QCOMPARE(found.currentDirectory, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
        QCOMPARE(found.showCommand, SW_SHOW);
        // The helper sets the variables.
        QCOMPARE(environmentLines(), before);
    }

    void cleanupTestCase() { clearVariables(); }
};

QTEST_GUILESS_MAIN(PermanentSwitchTest)

#include "PermanentSwitchTest_win.moc"
