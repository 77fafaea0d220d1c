#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

const QStringList headings{
    "Get all HALCON versions",
    "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\Wow6432Node\\MVTec\\HALCON",
    "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
    "Investigating SOM HALCON registry key "
    "\"HKEY_CURRENT_USER\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"",
    "Investigating SOM HALCON registry key "
    "\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"",
};

} // namespace

/// The discovery over all four keys of a machine.
class RegistryDiscoveryTest : public QObject {
    Q_OBJECT

private slots:
    void noInstallation()
    {
        const QStringList keys{Keys::product32, Keys::product64, Keys::uninstallOfUser,
                               Keys::uninstallOfMachine};
        for (const QString &key : keys) {
            Registry::removeTree(key);
        }
        const CaughtMessages messages;
        const LogLines log;
        QVERIFY(getAllHalconVersions().isEmpty());
        QCOMPARE(log.lines(), headings);
        QCOMPARE(messages.warnings(), QStringList());
        for (const QString &key : keys) {
            QVERIFY2(!Registry::exists(key), qPrintable(key));
        }
    }

    void wholeMachine()
    {
        HalconKeys keys;
        keys.addVersion(Keys::product32, "9.0", {"Documentation", "RuntimeSSE2", "RuntimeX86"}, "C:\\H9", 5);
        // The same in both views, and of another revision in one of them.
        keys.addVersion(Keys::product32, "13.0", {"RuntimeX64"}, "C:\\H13", 0);
        keys.addVersion(Keys::product64, "13.0", {"RuntimeX64"}, "C:\\H13", 0);
        keys.addVersion(Keys::product32, "20.11-Progress", {"RuntimeX64"}, "C:\\H20", 1);
        keys.addVersion(Keys::product64, "20.11-Progress", {"RuntimeX64", "RuntimeX86"}, "C:\\H20", 2);
        keys.addGroup(Keys::product64, "Licenses");
        // The same for the user and the machine; one of an uninstall key has no revision.
        keys.addUninstallEntry(Keys::uninstallOfUser, "MVTec HALCON 20.11 Progress", "\"C:\\H20\"");
        keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.11-Progress", "C:\\H20");
        keys.addUninstallEntry(Keys::uninstallOfUser, "MVTec HALCON 22.11 Steady", "C:\\H22");
        keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 9.0-", "C:\\H9 x64");
        keys.addUninstallEntry(Keys::uninstallOfMachine, "Some editor", "C:\\Editor");

        const CaughtMessages messages;
        const LogLines log;
        const QStringList records{
            "9.0.5.0 '' x86-win32 | C:\\H9 | C:\\H9\\examples | Documentation RuntimeX86",
            "9.0.5.0 '' x86sse2-win32 | C:\\H9 | C:\\H9\\examples | Documentation RuntimeSSE2",
            "9.0.-1.-1 '' x64-win64 | C:\\H9 x64 | C:\\H9 x64 | RuntimeX64",
            "13.0.0.0 '' x64-win64 | C:\\H13 | C:\\H13\\examples | RuntimeX64",
            "20.11.2.0 'Progress' x86-win32 | C:\\H20 | C:\\H20\\examples | RuntimeX86",
            "20.11.-1.-1 'Progress' x64-win64 | C:\\H20 | C:\\H20 | RuntimeX64",
            "20.11.1.0 'Progress' x64-win64 | C:\\H20 | C:\\H20\\examples | RuntimeX64",
            "20.11.2.0 'Progress' x64-win64 | C:\\H20 | C:\\H20\\examples | RuntimeX64",
            "22.11.-1.-1 'Steady' x64-win64 | C:\\H22 | C:\\H22 | RuntimeX64",
        };
        QCOMPARE(recordLines(getAllHalconVersions()), records);

        const auto group = [](const QString &name, const QStringList &runtimes) {
            return QStringList{"Investigating registry key \\HKEY_LOCAL_MACHINE\\Software\\" + name +
                               "/InstalledComponents"} +
                   runtimes;
        };
        const auto subkey = [](const QString &name) {
            return QStringList{"subkey \"MVTec HALCON " + name + '"', "hasX64"};
        };
        const QString rejection =
            "Licensesis not a valid HALCON version containing major.minor(-optionalstring)";
        const QStringList expected = headings.mid(0, 2) +
                                     group("Wow6432Node\\MVTec\\HALCON13.0", {"hasX64"}) +
                                     group("Wow6432Node\\MVTec\\HALCON20.11-Progress", {"hasX64"}) +
                                     group("Wow6432Node\\MVTec\\HALCON9.0", {"hasX86", "hasX86SSE2"}) +
                                     headings.mid(2, 1) + group("MVTec\\HALCON13.0", {"hasX64"}) +
                                     group("MVTec\\HALCON20.11-Progress", {"hasX86", "hasX64", rejection}) +
                                     headings.mid(3, 1) + subkey("20.11 Progress") + subkey("22.11 Steady") +
                                     headings.mid(4) + subkey("20.11-Progress") + subkey("9.0-");
        QCOMPARE(log.lines(), expected);
        QCOMPARE(messages.warnings(), QStringList{'"' + rejection + '"'});
    }

    void readsAnew()
    {
        for (const quint32 revision : {3, 4}) {
            HalconKeys keys;
            keys.addVersion(Keys::product64, "18.11", {"RuntimeX64"}, "C:\\H", revision);
            QCOMPARE(getAllHalconVersions().constFirst().revision, int(revision));
        }
    }
};

QTEST_GUILESS_MAIN(RegistryDiscoveryTest)

#include "RegistryDiscoveryTest_win.moc"
