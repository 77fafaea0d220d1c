#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/RecordLines.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

const QString root = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Corvanta tests\VisualStudio)";
const QString rootLine = "Try to detect Visual Studio (pre-VS2017) in registry at "
                         "HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvanta tests\\VisualStudio";

/// Each product is searched for its IDE once before its directory is known.
const QString firstSearch = currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist";
const QStringList firstExpressSearch{currentDriveRoot() + "Common7/IDE/wdexpress.exe does NOT exist",
                                     currentDriveRoot() + "Common7/IDE/vcexpress.exe does NOT exist",
                                     currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist"};

} // namespace

/// The detection below one root key.
class VisualStudioRegistryTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { Registry::removeTree(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Corvanta tests)"); }

    void missingRoot()
    {
        const CaughtMessages messages;
        const LogLines log;
        QVERIFY(detectVisualStudioInRegistry(root + " missing", false).isEmpty());
        QVERIFY(detectVisualStudioInRegistry(root + " missing", true).isEmpty());
        const QStringList expected{rootLine + " missing", rootLine + " missing"};
        QCOMPARE(log.lines(), expected);
        QCOMPARE(messages.warnings(), QStringList());
        QVERIFY(!Registry::exists(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Corvanta tests)"));
    }

    void scripts_data()
    {
        columns<bool, bool>("has64", "has32");

        row("both", true, true);
        row("64-bit only", true, false);
        row("32-bit only", false, true);
        row("none", false, false);
    }

    void scripts()
    {
        QFETCH(bool, has64);
        QFETCH(bool, has32);

        VisualStudioMachine machine;
        const QString dir = machine.path("VS 14");
        const QString idePath = machine.slashPath("VS 14/Common7/IDE/devenv.exe");
        machine.addFile("VS 14/Common7/IDE/devenv.exe");
        machine.addEdition(root, "14.0", "Professional", dir);

        QList<VisualStudioVersion> records;
        QStringList logLines{rootLine, firstSearch, idePath + " exists"};
        const QString script64 = dir + "\\VC\\bin\\amd64\\vcvars64.bat";
        if (has64) {
            machine.addFile("VS 14/VC/bin/amd64/vcvars64.bat");
            records.append(
                {"", "Professional", "14.0", "amd64", dir, dir + "\\VC", script64, "devenv", idePath, false});
        }
        logLines.append(script64 + (has64 ? " found" : " NOT found"));
        const QString script32 = dir + "\\VC\\bin\\vcvars32.bat";
        if (has32) {
            machine.addFile("VS 14/VC/bin/vcvars32.bat");
            records.append(
                {"", "Professional", "14.0", "x86", dir, dir + "\\VC", script32, "devenv", idePath, false});
        }
        logLines.append(script32 + (has32 ? " found" : " NOT found"));
        records.append({"", "Professional", "14.0", "", dir, dir + "\\VC", "", "devenv", idePath, false});

        const CaughtMessages messages;
        const LogLines log;
        QCOMPARE(fieldLines(detectVisualStudioInRegistry(root, false)), fieldLines(records));
        QCOMPARE(log.lines(), logLines);
        QCOMPARE(messages.warnings(), QStringList());
    }

    void severalEditions()
    {
        VisualStudioMachine machine;
        machine.addEdition(root, "12.0", "Premium", machine.path("VS 12"));
        machine.addEdition(root, "12.0", "Ultimate", machine.path("VS 12 U"));
        machine.addFile("VS 12/VC/bin/vcvars32.bat");
        // What an uninstalled edition leaves behind.
        Registry::setString(machine.setup(root, "12.0") + "\\VS\\Professional", "Version", "12.0.21005");

        const LogLines log;
        const QStringList expected{"Visual Studio 12.0 (Premium) (x86)", "Visual Studio 12.0 (Premium)",
                                   "Visual Studio 12.0 (Ultimate)"};
        QCOMPARE(displayNames(detectVisualStudioInRegistry(root, false)), expected);
        const QStringList logLines{
            rootLine,
            firstSearch,
            machine.slashPath("VS 12/Common7/IDE/devenv.exe does NOT exist"),
            machine.path("VS 12\\VC\\bin\\amd64\\vcvars64.bat NOT found"),
            machine.path("VS 12\\VC\\bin\\vcvars32.bat found"),
            firstSearch,
            machine.slashPath("VS 12 U/Common7/IDE/devenv.exe does NOT exist"),
            machine.path("VS 12 U\\VC\\bin\\amd64\\vcvars64.bat NOT found"),
            machine.path("VS 12 U\\VC\\bin\\vcvars32.bat NOT found"),
        };
        QCOMPARE(log.lines(), logLines);
    }

    void versionNames_data()
    {
        columns<QString, bool>("name", "counts");

        row("two numbers", "14.0", true);
        row("configuration", "14.0_Config", true);
        row("no dot", "1400", true);
        row("another character for the dot", "14-0", true);
        row("leading text", "Version 14.0", true);
        row("no minor", "14.x", false);
        row("two characters for the dot", "14..0", false);
        row("no digit", "SxS", false);
        row("other digits than ASCII", "\u0967\u0967.\u0966", false);
    }

    void versionNames()
    {
        QFETCH(QString, name);
        QFETCH(bool, counts);

        VisualStudioMachine machine;
        machine.addEdition(root, name, "Professional", machine.path("VS"));
        const QStringList expected =
            counts ? QStringList{"Visual Studio " + name + " (Professional)"} : QStringList();
        QCOMPARE(displayNames(detectVisualStudioInRegistry(root, false)), expected);
    }

    void keysThatDoNotCount()
    {
        VisualStudioMachine machine;
        const QString setup = machine.setup(root, "14.0");
        Registry::setString(root + "\\14.0", "ProductDir", machine.path("a"));
        Registry::setString(setup, "ProductDir", machine.path("b"));
        Registry::setString(setup + "\\VS", "ProductDir", machine.path("c"));
        Registry::setString(setup + "\\VC", "ProductDir", machine.path("d"));
        Registry::setString(setup + "\\VS\\Professional\\Deeper", "ProductDir", machine.path("e"));
        Registry::setString(setup + "\\VS\\Professional", "InstallDir", machine.path("f"));
        const LogLines log;
        QCOMPARE(displayNames(detectVisualStudioInRegistry(root, false)), QStringList());
        QCOMPARE(log.lines(), QStringList{rootLine});
    }

    void directoryNames_data()
    {
        // name: as registered
        // slashName: as the search for the IDE names it
        columns<QString, QString>("name", "slashName");

        row("non-ASCII", "Pr\u00fcfung \u691c\u67fb", "Pr\u00fcfung \u691c\u67fb");
        row("trailing backslash", "VS 14.0\\", "VS 14.0");
    }

    void directoryNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, slashName);

        VisualStudioMachine machine;
        machine.addFile(slashName + "/Common7/IDE/devenv.exe");
        machine.addFile(slashName + "/VC/bin/vcvars32.bat");
        const QString dir = machine.path(name);
        const QString idePath = machine.slashPath(slashName) + "/Common7/IDE/devenv.exe";
        machine.addEdition(root, "14.0", "Professional", dir);

        const LogLines log;
        const QList<VisualStudioVersion> records{
            {"", "Professional", "14.0", "x86", dir, dir + "\\VC", dir + "\\VC\\bin\\vcvars32.bat", "devenv",
             idePath, false},
            {"", "Professional", "14.0", "", dir, dir + "\\VC", "", "devenv", idePath, false},
        };
        QCOMPARE(fieldLines(detectVisualStudioInRegistry(root, false)), fieldLines(records));
        const QStringList logLines{rootLine, firstSearch, idePath + " exists",
                                   dir + "\\VC\\bin\\amd64\\vcvars64.bat NOT found",
                                   dir + "\\VC\\bin\\vcvars32.bat found"};
        QCOMPARE(log.lines(), logLines);
    }

    void emptyDirectory()
    {
        // The value exists, so the product counts.
        VisualStudioMachine machine;
        machine.addEdition(root, "14.0", "Professional", "");
        const LogLines log;
        QCOMPARE(fieldLines(detectVisualStudioInRegistry(root, false)),
                 fieldLines({{"", "Professional", "14.0", "", "", "\\VC", "", "", "", false}}));
        const QStringList logLines{rootLine, firstSearch, firstSearch,
                                   "\\VC\\bin\\amd64\\vcvars64.bat NOT found",
                                   "\\VC\\bin\\vcvars32.bat NOT found"};
        QCOMPARE(log.lines(), logLines);
    }

    void ideOfTheFirstSearch()
    {
        VisualStudioMachine machine;
        machine.addEdition(root, "12.0", "Professional", machine.path("VS 12"));
        machine.addEdition(root, "14.0", "Professional", machine.path("VS 14"));
        machine.addFile("VS 14/Common7/IDE/devenv.exe");

        const FileOnCurrentDrive ide("Common7/IDE/devenv.exe");

        const QList<VisualStudioVersion> found = detectVisualStudioInRegistry(root, false);
        QCOMPARE(found.size(), 2);
        QCOMPARE(found.at(0).version, QString("12.0"));
        QCOMPARE(found.at(0).ideName, QString("devenv"));
        QCOMPARE(found.at(0).idePath, currentDriveRoot() + "Common7/IDE/devenv.exe");
        QCOMPARE(found.at(1).version, QString("14.0"));
        QCOMPARE(found.at(1).idePath, machine.slashPath("VS 14/Common7/IDE/devenv.exe"));
    }

    void expressProduct()
    {
        VisualStudioMachine machine;
        machine.addFile("VS 10/Common7/IDE/vcexpress.exe");
        machine.addFile("VS 10/VC/bin/vcvars32.bat");
        machine.addFile("VS 10/VC/bin/amd64/vcvars64.bat");
        const QString dir = machine.path("VS 10\\VC");
        const QString productDir = machine.slashPath("VS 10");
        const QString idePath = productDir + "/Common7/IDE/vcexpress.exe";
        machine.addExpress(root, "10.0", dir);

        const QString script64 = dir + "\\bin\\amd64\\vcvars64.bat";
        const QString script32 = dir + "\\bin\\vcvars32.bat";
        const QList<VisualStudioVersion> records{
            {"", "Express Edition", "10.0", "amd64", productDir, dir, script64, "vcexpress", idePath, true},
            {"", "Express Edition", "10.0", "x86", productDir, dir, script32, "vcexpress", idePath, true},
            {"", "Express Edition", "10.0", "", productDir, dir, "", "vcexpress", idePath, true},
        };
        const LogLines log;
        QCOMPARE(fieldLines(detectVisualStudioInRegistry(root, true)), fieldLines(records));
        const QStringList logLines =
            QStringList{rootLine} + firstExpressSearch +
            QStringList{productDir + "/Common7/IDE/wdexpress.exe does NOT exist", idePath + " exists",
                        script64 + " found", script32 + " found"};
        QCOMPARE(log.lines(), logLines);
    }

    void expressDirectory_data()
    {
        columns<QString, QString>("registered", "productDir");

        // Its parent would be the root of the drive.
        row("empty", "", "");
        row("plain", "C:\\VS 10\\VC", "C:/VS 10");
        row("trailing backslash", "C:\\VS 10\\VC\\", "C:/VS 10");
        row("below the root", "C:\\VC", "C:/");
    }

    void expressDirectory()
    {
        QFETCH(QString, registered);
        QFETCH(QString, productDir);

        VisualStudioMachine machine;
        machine.addExpress(root, "10.0", registered);
        const LogLines log;
        QCOMPARE(fieldLines(detectVisualStudioInRegistry(root, true)),
                 fieldLines({{"", "Express Edition", "10.0", "", productDir, registered, "", "", "", true}}));
        QStringList secondSearch;
        for (const char *each : {"wdexpress", "vcexpress", "devenv"}) {
            const QString path = QDir::cleanPath(productDir + "/Common7/IDE/" + each) + ".exe";
            secondSearch.append(QFileInfo(path).absoluteFilePath() + " does NOT exist");
        }
        const QStringList scriptLines{registered + "\\bin\\amd64\\vcvars64.bat NOT found",
                                      registered + "\\bin\\vcvars32.bat NOT found"};
        QCOMPARE(log.lines(), QStringList{rootLine} + firstExpressSearch + secondSearch + scriptLines);
    }

    void expressIgnoresEditions()
    {
        VisualStudioMachine machine;
        machine.addEdition(root, "10.0", "Professional", machine.path("VS 10"));
        const LogLines log;
        QVERIFY(detectVisualStudioInRegistry(root, true).isEmpty());
        QCOMPARE(log.lines(), QStringList{rootLine});

        // One record, whatever the number of editions.
        machine.addEdition(root, "10.0", "Ultimate", machine.path("VS 10"));
        machine.addExpress(root, "10.0", machine.path("VS 10 Express\\VC"));
        QCOMPARE(displayNames(detectVisualStudioInRegistry(root, true)),
                 QStringList{"Visual Studio 10.0 (Express Edition)"});
    }
};

QTEST_GUILESS_MAIN(VisualStudioRegistryTest)

#include "VisualStudioRegistryTest_win.moc"
