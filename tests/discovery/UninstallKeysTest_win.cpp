#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

const QString investigatingMachine =
    "Investigating SOM HALCON registry key "
    "\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"";
const QString investigatingUser =
    "Investigating SOM HALCON registry key "
    "\"HKEY_CURRENT_USER\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\"";

} // namespace

/// The reading of one uninstall key.
class UninstallKeysTest : public QObject {
    Q_OBJECT

private slots:
    void missingKey();
    void entry_data();
    void entry();
    void location_data();
    void location();
    void expandableLocation();
    void missingLocation();
    void skippedEntries_data();
    void skippedEntries();
    void numbersBeyond32Bits();
    void foreignProducts();
};

void UninstallKeysTest::missingKey()
{
    const CaughtMessages messages;
    const LogLines log;
    QVERIFY(readUninstallKeys("HKEY_LOCAL_MACHINE\\SOFTWARE\\Nobody\\Uninstall").isEmpty());
    QCOMPARE(log.lines(), QStringList{"Investigating SOM HALCON registry key "
                                      "\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Nobody\\Uninstall\""});
    QCOMPARE(messages.warnings(), QStringList());
    QVERIFY(!Registry::exists("HKEY_LOCAL_MACHINE\\SOFTWARE\\Nobody"));
}

void UninstallKeysTest::entry_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QStringList>("logLines");

    QTest::newRow("of the machine") << Keys::uninstallOfMachine << "MVTec HALCON 20.11 Progress"
                                    << "20.11.-1.-1 'Progress' x64-win64 | C:\\H | C:\\H | RuntimeX64"
                                    << QStringList{investigatingMachine,
                                                   "subkey \"MVTec HALCON 20.11 Progress\"", "hasX64"};
    QTest::newRow("of the user") << Keys::uninstallOfUser << "MVTec HALCON 20.11 Progress"
                                 << "20.11.-1.-1 'Progress' x64-win64 | C:\\H | C:\\H | RuntimeX64"
                                 << QStringList{investigatingUser, "subkey \"MVTec HALCON 20.11 Progress\"",
                                                "hasX64"};
    QTest::newRow("hyphen") << Keys::uninstallOfMachine << "MVTec HALCON 18.05-Steady"
                            << "18.5.-1.-1 'Steady' x64-win64 | C:\\H | C:\\H | RuntimeX64"
                            << QStringList{investigatingMachine, "subkey \"MVTec HALCON 18.05-Steady\"",
                                           "hasX64"};
    QTest::newRow("no suffix") << Keys::uninstallOfMachine << "MVTec HALCON 13.0-"
                               << "13.0.-1.-1 '' x64-win64 | C:\\H | C:\\H | RuntimeX64"
                               << QStringList{investigatingMachine, "subkey \"MVTec HALCON 13.0-\"",
                                              "hasX64"};
    QTest::newRow("text around") << Keys::uninstallOfMachine
                                 << "New MVTec HALCON 22.11 Steady & Tools (\u00fc)"
                                 << "22.11.-1.-1 'Steady' x64-win64 | C:\\H | C:\\H | RuntimeX64"
                                 << QStringList{investigatingMachine,
                                                "subkey \"New MVTec HALCON 22.11 Steady & Tools (\u00fc)\"",
                                                "hasX64"};
}

void UninstallKeysTest::entry()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QFETCH(QString, record);

    HalconKeys keys;
    keys.addUninstallEntry(key, name, "C:\\H");

    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(recordLines(readUninstallKeys(key)), QStringList{record});
    QTEST(log.lines(), "logLines");
    QCOMPARE(messages.warnings(), QStringList());
}

void UninstallKeysTest::location_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("expected");

    QTest::newRow("plain") << "C:\\Program Files\\MVTec"
                           << "C:\\Program Files\\MVTec";
    QTest::newRow("quoted") << "\"C:\\Program Files\\MVTec\""
                            << "C:\\Program Files\\MVTec";
    QTest::newRow("quotes inside") << "C:\\\"Program Files\"\\MVTec"
                                   << "C:\\Program Files\\MVTec";
    QTest::newRow("one quote") << "\"C:\\MVTec"
                               << "C:\\MVTec";
    QTest::newRow("quotes only") << "\"\""
                                 << "";
    QTest::newRow("other marks are kept") << "'C:\\MVTec' (x64) & more"
                                          << "'C:\\MVTec' (x64) & more";
    QTest::newRow("trailing backslash") << "\"C:\\MVTec\\\""
                                        << "C:\\MVTec\\";
    QTest::newRow("non-ASCII") << "\"C:\\Pr\u00fcfung \u691c\u67fb\""
                               << "C:\\Pr\u00fcfung \u691c\u67fb";
    QTest::newRow("empty") << ""
                           << "";
}

void UninstallKeysTest::location()
{
    QFETCH(QString, location);
    QFETCH(QString, expected);

    HalconKeys keys;
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.11 Progress", location);
    const QStringList record{"20.11.-1.-1 'Progress' x64-win64 | " + expected + " | " + expected +
                             " | RuntimeX64"};
    QCOMPARE(recordLines(readUninstallKeys(Keys::uninstallOfMachine)), record);
}

void UninstallKeysTest::expandableLocation()
{
    HalconKeys keys;
    const QString entry = keys.addGroup(Keys::uninstallOfMachine, "MVTec HALCON 20.11 Progress");
    Registry::setExpandString(entry, "InstallLocation", "\"%ProgramFiles%\\MVTec\"");
    const QStringList record{"20.11.-1.-1 'Progress' x64-win64 | %ProgramFiles%\\MVTec | "
                             "%ProgramFiles%\\MVTec | RuntimeX64"};
    QCOMPARE(recordLines(readUninstallKeys(Keys::uninstallOfMachine)), record);
}

void UninstallKeysTest::missingLocation()
{
    HalconKeys keys;
    keys.addGroup(Keys::uninstallOfMachine, "MVTec HALCON 20.11 Progress");
    QCOMPARE(recordLines(readUninstallKeys(Keys::uninstallOfMachine)),
             QStringList{"20.11.-1.-1 'Progress' x64-win64 |  |  | RuntimeX64"});
}

void UninstallKeysTest::skippedEntries_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("nothing after the minor") << "MVTec HALCON 20.11";
    QTest::newRow("other case") << "mvtec halcon 20.11 Progress";
    QTest::newRow("another product of the vendor") << "MVTec MERLIC 5.1 Progress";
    QTest::newRow("product code") << "{6F320B93-EE3C-4826-85E0-ADF79F8D4C61}";
    QTest::newRow("name of a product key") << "20.11-Progress";
}

void UninstallKeysTest::skippedEntries()
{
    QFETCH(QString, name);

    HalconKeys keys;
    keys.addUninstallEntry(Keys::uninstallOfMachine, name, "C:\\elsewhere");
    // The entry's display name does not matter.
    Registry::setString(Keys::uninstallOfMachine + '\\' + name, "DisplayName", "MVTec HALCON 20.11 Progress");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 21.05 Steady", "C:\\H");

    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(recordLines(readUninstallKeys(Keys::uninstallOfMachine)),
             QStringList{"21.5.-1.-1 'Steady' x64-win64 | C:\\H | C:\\H | RuntimeX64"});
    const QStringList expected{investigatingMachine, "subkey \"MVTec HALCON 21.05 Steady\"", "hasX64"};
    QCOMPARE(log.lines(), expected);
    QCOMPARE(messages.warnings(), QStringList());
}

void UninstallKeysTest::numbersBeyond32Bits()
{
    HalconKeys keys;
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.11 Progress", "C:\\H");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.2147483648 Progress", "C:\\H");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 99999999999.0-Steady", "C:\\H");

    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(recordLines(readUninstallKeys(Keys::uninstallOfMachine)),
             QStringList{"20.11.-1.-1 'Progress' x64-win64 | C:\\H | C:\\H | RuntimeX64"});
    const QStringList expected{
        investigatingMachine,
        "subkey \"MVTec HALCON 20.11 Progress\"",
        "hasX64",
        "subkey \"MVTec HALCON 20.2147483648 Progress\"",
        "MVTec HALCON 20.2147483648 Progressis not a valid HALCON version containing "
        "major.minor(-optionalstring)",
        "subkey \"MVTec HALCON 99999999999.0-Steady\"",
        "MVTec HALCON 99999999999.0-Steadyis not a valid HALCON version containing "
        "major.minor(-optionalstring)",
    };
    QCOMPARE(log.lines(), expected);
    const QStringList warnings{
        "\"MVTec HALCON 20.2147483648 Progressis not a valid HALCON version containing "
        "major.minor(-optionalstring)\"",
        "\"MVTec HALCON 99999999999.0-Steadyis not a valid HALCON version containing "
        "major.minor(-optionalstring)\"",
    };
    QCOMPARE(messages.warnings(), warnings);
}

void UninstallKeysTest::foreignProducts()
{
    constexpr int foreignProducts = 500;
    HalconKeys keys;
    for (int number = 0; number < foreignProducts; ++number) {
        const QString name = number % 2 == 0
                                 ? QString("{90160000-008C-0000-1000-%1}").arg(number, 12, 10, QChar('0'))
                                 : QString("Product %1.0 Progress").arg(number);
        keys.addUninstallEntry(Keys::uninstallOfMachine, name, "C:\\Program Files\\" + name);
    }
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 21.05 Steady", "C:\\H21");
    keys.addUninstallEntry(Keys::uninstallOfMachine, "MVTec HALCON 20.11 Progress", "C:\\H20");

    const CaughtMessages messages;
    const LogLines log;
    const QStringList records{"20.11.-1.-1 'Progress' x64-win64 | C:\\H20 | C:\\H20 | RuntimeX64",
                              "21.5.-1.-1 'Steady' x64-win64 | C:\\H21 | C:\\H21 | RuntimeX64"};
    QCOMPARE(recordLines(readUninstallKeys(Keys::uninstallOfMachine)), records);
    const QStringList expected{investigatingMachine, "subkey \"MVTec HALCON 20.11 Progress\"", "hasX64",
                               "subkey \"MVTec HALCON 21.05 Steady\"", "hasX64"};
    QCOMPARE(log.lines(), expected);
    QCOMPARE(messages.warnings(), QStringList());
}

QTEST_GUILESS_MAIN(UninstallKeysTest)

#include "UninstallKeysTest_win.moc"
