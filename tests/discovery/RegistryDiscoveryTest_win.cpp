#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

QStringList identities(const QList<HalconInstallation> &installations)
{
    QStringList texts;
    for (const HalconInstallation &each : installations) {
        texts.append(each.versionArchText());
    }
    return texts;
}

} // namespace

/// The discovery over all four keys of a machine.
class RegistryDiscoveryTest : public QObject {
    Q_OBJECT

private slots:
    void noInstallation();
    void wholeMachine();
    void architecturesOfOneVersion();
    void sameInstallationInBothViews();
    void otherRevisionInTheOtherView();
    void productKeyAndUninstallKey();
    void sameUninstallEntryOfUserAndMachine();
    void everySource_data();
    void everySource();
    void readsAnew();
};

void RegistryDiscoveryTest::noInstallation()
{
    const QStringList keys{Keys::product32, Keys::product64, Keys::uninstallOfUser, Keys::uninstallOfMachine};
    for (const QString &key : keys) {
        Registry::removeTree(key);
    }
    const CaughtMessages messages;
    const LogLines log;
    QVERIFY(getAllHalconVersions().isEmpty());
    const QStringList expected{
        "Get all HALCON versions",
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\Wow6432Node\\MVTec\\HALCON",
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
        "Investigating SOM HALCON registry key "
        "\"HKEY_CURRENT_USER\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"",
        "Investigating SOM HALCON registry key "
        "\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"",
    };
    QCOMPARE(log.lines(), expected);
    QCOMPARE(messages.warnings(), QStringList());
    for (const QString &key : keys) {
        QVERIFY2(!Registry::exists(key), qPrintable(key));
    }
}

void RegistryDiscoveryTest::wholeMachine()
{
    HalconKeys keys;
    keys.addVersion(Keys::product32, "9.0", {"Documentation", "RuntimeSSE2", "RuntimeX86"}, "C:\\H9", 5);
    keys.addVersion(Keys::product64, "20.11-Progress", {"Documentation", "RuntimeX64", "RuntimeX86"},
                    "C:\\H20", 2);
    keys.addVersion(Keys::product64, "13.0", {"RuntimeX64"}, "C:\\H13", 0);
    keys.addGroup(Keys::product64, "Licenses");
    keys.addUninstallEntry(Keys::uninstallOfUser, "MVTec HALCON 22.11 Steady", "\"C:\\H22\"");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "Some editor", "C:\\Editor");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 9.0-", "C:\\H9 x64");

    const CaughtMessages messages;
    const LogLines log;
    const QStringList records{
        "9.0.5.0 '' x86-win32 | C:\\H9 | C:\\H9\\examples | Documentation RuntimeX86",
        "9.0.5.0 '' x86sse2-win32 | C:\\H9 | C:\\H9\\examples | Documentation RuntimeSSE2",
        "9.0.-1.-1 '' x64-win64 | C:\\H9 x64 | C:\\H9 x64 | RuntimeX64",
        "13.0.0.0 '' x64-win64 | C:\\H13 | C:\\H13\\examples | RuntimeX64",
        "20.11.2.0 'Progress' x86-win32 | C:\\H20 | C:\\H20\\examples | Documentation RuntimeX86",
        "20.11.2.0 'Progress' x64-win64 | C:\\H20 | C:\\H20\\examples | Documentation RuntimeX64",
        "22.11.-1.-1 'Steady' x64-win64 | C:\\H22 | C:\\H22 | RuntimeX64",
    };
    QCOMPARE(recordLines(getAllHalconVersions()), records);

    const QStringList expected{
        "Get all HALCON versions",
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\Wow6432Node\\MVTec\\HALCON",
        "Investigating registry key "
        "\\HKEY_LOCAL_MACHINE\\Software\\Wow6432Node\\MVTec\\HALCON9.0/InstalledComponents",
        "hasX86",
        "hasX86SSE2",
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
        "Investigating registry key \\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON13.0/InstalledComponents",
        "hasX64",
        "Investigating registry key "
        "\\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON20.11-Progress/InstalledComponents",
        "hasX86",
        "hasX64",
        "Licensesis not a valid HALCON version containing major.minor(-optionalstring)",
        "Investigating SOM HALCON registry key "
        "\"HKEY_CURRENT_USER\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"",
        "subkey \"MVTec HALCON 22.11 Steady\"",
        "hasX64",
        "Investigating SOM HALCON registry key "
        "\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"",
        "subkey \"MVTec HALCON 9.0-\"",
        "hasX64",
    };
    QCOMPARE(log.lines(), expected);
    const QStringList warnings{
        "\"Licensesis not a valid HALCON version containing major.minor(-optionalstring)\""};
    QCOMPARE(messages.warnings(), warnings);
}

void RegistryDiscoveryTest::architecturesOfOneVersion()
{
    HalconKeys keys;
    keys.addVersion(Keys::product64, "20.11-Progress", {"RuntimeX64"}, "C:\\H20", 2);
    keys.addVersion(Keys::product32, "20.11-Progress", {"RuntimeX86", "RuntimeSSE2"}, "C:\\H20 x86", 2);
    const QStringList expected{"20.11.2 Progress (x86-win32)", "20.11.2 Progress (x86sse2-win32)",
                               "20.11.2 Progress (x64-win64)"};
    QCOMPARE(identities(getAllHalconVersions()), expected);
}

void RegistryDiscoveryTest::sameInstallationInBothViews()
{
    HalconKeys keys;
    keys.addVersion(Keys::product32, "20.11-Progress", {"RuntimeX64", "RuntimeX86"}, "C:\\H20", 2);
    keys.addVersion(Keys::product64, "20.11-Progress", {"RuntimeX64", "RuntimeX86"}, "C:\\H20", 2);
    const QStringList expected{
        "20.11.2.0 'Progress' x86-win32 | C:\\H20 | C:\\H20\\examples | RuntimeX86",
        "20.11.2.0 'Progress' x64-win64 | C:\\H20 | C:\\H20\\examples | RuntimeX64",
    };
    QCOMPARE(recordLines(getAllHalconVersions()), expected);
}

void RegistryDiscoveryTest::otherRevisionInTheOtherView()
{
    HalconKeys keys;
    keys.addVersion(Keys::product32, "20.11-Progress", {"RuntimeX64"}, "C:\\H20", 2);
    keys.addVersion(Keys::product64, "20.11-Progress", {"RuntimeX64"}, "C:\\H20", 1);
    const QStringList expected{"20.11.1 Progress (x64-win64)", "20.11.2 Progress (x64-win64)"};
    QCOMPARE(identities(getAllHalconVersions()), expected);
}

void RegistryDiscoveryTest::productKeyAndUninstallKey()
{
    // The uninstall key knows no revision, so the two differ.
    HalconKeys keys;
    keys.addVersion(Keys::product64, "20.11-Progress", {"RuntimeX64"}, "C:\\H20", 0);
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.11 Progress", "C:\\H20");
    const QStringList expected{
        "20.11.-1.-1 'Progress' x64-win64 | C:\\H20 | C:\\H20 | RuntimeX64",
        "20.11.0.0 'Progress' x64-win64 | C:\\H20 | C:\\H20\\examples | RuntimeX64",
    };
    QCOMPARE(recordLines(getAllHalconVersions()), expected);
}

void RegistryDiscoveryTest::sameUninstallEntryOfUserAndMachine()
{
    HalconKeys keys;
    keys.addUninstallEntry(Keys::uninstallOfUser, "MVTec HALCON 20.11 Progress", "C:\\H20");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.11-Progress", "C:\\H20");
    const QStringList expected{"20.11.-1.-1 'Progress' x64-win64 | C:\\H20 | C:\\H20 | RuntimeX64"};
    QCOMPARE(recordLines(getAllHalconVersions()), expected);
}

void RegistryDiscoveryTest::everySource_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("32-bit view") << Keys::product32 << "18.11-Progress"
                                 << "18.11.3 Progress (x64-win64)";
    QTest::newRow("64-bit view") << Keys::product64 << "18.11-Progress"
                                 << "18.11.3 Progress (x64-win64)";
    QTest::newRow("uninstall key of the user") << Keys::uninstallOfUser << "MVTec HALCON 18.11 Progress"
                                               << "18.11 Progress (x64-win64)";
    QTest::newRow("uninstall key of the machine") << Keys::uninstallOfMachine << "MVTec HALCON 18.11 Progress"
                                                  << "18.11 Progress (x64-win64)";
}

void RegistryDiscoveryTest::everySource()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QFETCH(QString, expected);

    HalconKeys keys;
    if (key.endsWith("Uninstall")) {
        keys.addUninstallEntry(key, name, "C:\\H18");
    } else {
        keys.addVersion(key, name, {"RuntimeX64"}, "C:\\H18", 3);
    }
    QCOMPARE(identities(getAllHalconVersions()), QStringList{expected});
}

void RegistryDiscoveryTest::readsAnew()
{
    HalconKeys keys;
    keys.addVersion(Keys::product64, "18.11", {"RuntimeX64"}, "C:\\H18", 3);
    QCOMPARE(identities(getAllHalconVersions()), QStringList{"18.11.3 (x64-win64)"});
    keys.addVersion(Keys::product64, "18.11", {"RuntimeX64"}, "C:\\H18", 4);
    QCOMPARE(identities(getAllHalconVersions()), QStringList{"18.11.4 (x64-win64)"});
}

QTEST_GUILESS_MAIN(RegistryDiscoveryTest)

#include "RegistryDiscoveryTest_win.moc"
