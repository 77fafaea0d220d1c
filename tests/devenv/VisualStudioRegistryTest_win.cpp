#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/PlainStudio.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

const QString root = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Corvanta tests\VisualStudio)";
const QString rootLine = "Try to detect Visual Studio (pre-VS2017) in registry at "
                         "HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvanta tests\\VisualStudio";

/// Compares the products below the root with those that must be found, and with what the user sees of them.
void expect(const QStringList &names, const QList<PlainStudio> &studios, bool express = false)
{
    const PlainFindings expected = findingsOf(studios);
    const CaughtMessages messages;
    const LogLines log;
    const QList<VisualStudioVersion> found = detectVisualStudioInRegistry(root, express);
    QCOMPARE(displayNames(found), names);
    QCOMPARE(fieldsOf(found), expected.records);
    QCOMPARE(log.lines(), QStringList{rootLine} + expected.log);
    QCOMPARE(messages.warnings(), QStringList());
}

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
        const auto row = columns<QStringList, QStringList>("files", "names");

        row("both", {"amd64/vcvars64.bat", "vcvars32.bat"},
            {"Visual Studio 14.0 (A) (amd64)", "Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A)"});
        row("64-bit only", {"amd64/vcvars64.bat"},
            {"Visual Studio 14.0 (A) (amd64)", "Visual Studio 14.0 (A)"});
        row("32-bit only", {"vcvars32.bat"}, {"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A)"});
        row("none", {}, {"Visual Studio 14.0 (A)"});
    }

    void scripts()
    {
        QFETCH(QStringList, files);
        QFETCH(QStringList, names);
        VisualStudioMachine machine;
        machine.addFile("VS 14/Common7/IDE/devenv.exe");
        for (const QString &file : files) {
            machine.addFile("VS 14/VC/bin/" + file);
        }
        machine.addEdition(root, "14.0", "A", machine.path("VS 14"));

        expect(names, {registeredStudio("A", "14.0", machine.path("VS 14"))});
    }

    void severalEditions()
    {
        VisualStudioMachine machine;
        machine.addEdition(root, "12.0", "Premium", machine.path("VS 12"));
        machine.addEdition(root, "12.0", "Ultimate", machine.path("VS 12 U"));
        machine.addFile("VS 12/VC/bin/vcvars32.bat");
        // What an uninstalled edition leaves behind.
        Registry::setString(machine.setup(root, "12.0") + "\\VS\\Professional", "Version", "12.0.21005");

        expect({"Visual Studio 12.0 (Premium) (x86)", "Visual Studio 12.0 (Premium)",
                "Visual Studio 12.0 (Ultimate)"},
               {registeredStudio("Premium", "12.0", machine.path("VS 12")),
                registeredStudio("Ultimate", "12.0", machine.path("VS 12 U"))});
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
        expect({}, {});
    }

    void directoryNames_data()
    {
        // name: as registered; empty: the value exists, so the product counts
        columns<QString, QStringList>("name", "names");

        const QStringList names{"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A)"};
        row("non-ASCII", "Pr\u00fcfung \u691c\u67fb", names);
        row("trailing backslash", "VS 14.0\\", names);
        row("empty", "", QStringList{"Visual Studio 14.0 (A)"});
    }

    void directoryNames()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, names);
        VisualStudioMachine machine;
        machine.addFile(name + "/Common7/IDE/devenv.exe");
        machine.addFile(name + "/VC/bin/vcvars32.bat");
        const QString dir = name.isEmpty() ? QString() : machine.path(name);
        machine.addEdition(root, "14.0", "A", dir);

        expect(names, {registeredStudio("A", "14.0", dir)});
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
        machine.addExpress(root, "10.0", machine.path("VS 10\\VC"));

        expect({"Visual Studio 10.0 (Express Edition) (amd64)", "Visual Studio 10.0 (Express Edition) (x86)",
                "Visual Studio 10.0 (Express Edition)"},
               {expressStudio("10.0", machine.slashPath("VS 10"), machine.path("VS 10\\VC"))}, true);
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

        expect({"Visual Studio 10.0 (Express Edition)"}, {expressStudio("10.0", productDir, registered)},
               true);
    }

    void expressIgnoresEditions()
    {
        VisualStudioMachine machine;
        machine.addEdition(root, "10.0", "Professional", machine.path("VS 10"));
        expect({}, {}, true);

        // One record, whatever the number of editions.
        machine.addEdition(root, "10.0", "Ultimate", machine.path("VS 10"));
        machine.addExpress(root, "10.0", machine.path("VS 10 Express\\VC"));
        QCOMPARE(displayNames(detectVisualStudioInRegistry(root, true)),
                 QStringList{"Visual Studio 10.0 (Express Edition)"});
    }
};

QTEST_GUILESS_MAIN(VisualStudioRegistryTest)

#include "VisualStudioRegistryTest_win.moc"
