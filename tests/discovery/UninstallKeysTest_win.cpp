#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

/// The reading of one uninstall key. What its names and values mean is tested with tables.
class UninstallKeysTest : public QObject {
    Q_OBJECT

private slots:
    void missingKey()
    {
        const CaughtMessages messages;
        const LogLines log;
        QVERIFY(readUninstallKeys("HKEY_LOCAL_MACHINE\\SOFTWARE\\Nobody\\Uninstall").isEmpty());
        QCOMPARE(log.lines(), QStringList{"Investigating SOM HALCON registry key "
                                          "\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Nobody\\Uninstall\""});
        QCOMPARE(messages.warnings(), QStringList());
        QVERIFY(!Registry::exists("HKEY_LOCAL_MACHINE\\SOFTWARE\\Nobody"));
    }

    void wholeKey_data()
    {
        columns<QString>("key");

        row("of the user", Keys::uninstallOfUser);
        row("of the machine", Keys::uninstallOfMachine);
    }

    void wholeKey()
    {
        QFETCH(QString, key);
        HalconKeys keys;
        keys.addGroup(key, "MVTec HALCON 13.0-");
        const QString expandable = keys.addGroup(key, "MVTec HALCON 18.05-Steady");
        Registry::setExpandString(expandable, "InstallLocation", "\"%ProgramFiles%\\MVTec\"");
        keys.addUninstallEntry(key, "MVTec HALCON 20.11", "C:\\elsewhere");
        keys.addUninstallEntry(key, "MVTec HALCON 20.11 Progress", "\"C:\\Pr\u00fcfung \u691c\u67fb\"");
        keys.addUninstallEntry(key, "MVTec HALCON 20.2147483648 Progress", "C:\\elsewhere");
        keys.addUninstallEntry(key, "New MVTec HALCON 22.11 & Tools (\u00fc)", "C:\\H22");
        keys.addUninstallEntry(key, "mvtec halcon 21.05 Steady", "C:\\elsewhere");
        keys.addUninstallEntry(key, "{6F320B93-EE3C-4826-85E0-ADF79F8D4C61}", "C:\\elsewhere");
        // The display name does not matter.
        Registry::setString(key + "\\{6F320B93-EE3C-4826-85E0-ADF79F8D4C61}", "DisplayName",
                            "MVTec HALCON 20.11 Progress");

        const CaughtMessages messages;
        const LogLines log;
        const QList<HalconInstallation> found = readUninstallKeys(key);

        QCOMPARE(
            recordLines(found),
            (QStringList{"13.0.-1.-1 '' x64-win64 |  |  | RuntimeX64",
                         "18.5.-1.-1 'Steady' x64-win64 | %ProgramFiles%\\MVTec | %ProgramFiles%\\MVTec | "
                         "RuntimeX64",
                         "20.11.-1.-1 'Progress' x64-win64 | C:\\Pr\u00fcfung \u691c\u67fb | "
                         "C:\\Pr\u00fcfung \u691c\u67fb | RuntimeX64",
                         "22.11.-1.-1 '' x64-win64 | C:\\H22 | C:\\H22 | RuntimeX64"}));
        const QString rejected =
            "MVTec HALCON 20.2147483648 Progressis not a valid HALCON version containing "
            "major.minor(-optionalstring)";
        QCOMPARE(log.lines(), (QStringList{"Investigating SOM HALCON registry key \"" + key + '"',
                                           "subkey \"MVTec HALCON 13.0-\"", "hasX64",
                                           "subkey \"MVTec HALCON 18.05-Steady\"", "hasX64",
                                           "subkey \"MVTec HALCON 20.11 Progress\"", "hasX64",
                                           "subkey \"MVTec HALCON 20.2147483648 Progress\"", rejected,
                                           "subkey \"New MVTec HALCON 22.11 & Tools (\u00fc)\"", "hasX64"}));
        QCOMPARE(messages.warnings(), QStringList{'"' + rejected + '"'});
    }
};

QTEST_GUILESS_MAIN(UninstallKeysTest)

#include "UninstallKeysTest_win.moc"
