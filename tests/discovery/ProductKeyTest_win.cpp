#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

const QString heading = "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON";
const QString groupHeading = "Investigating registry key \\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON%1"
                             "/InstalledComponents";
const QString rejection = "%1is not a valid HALCON version containing major.minor(-optionalstring)";

} // namespace

/// The reading of one product key of HALCON. What its values mean is tested with tables of values.
class ProductKeyTest : public QObject {
    Q_OBJECT

private slots:
    void missingKey()
    {
        const CaughtMessages messages;
        const LogLines log;
        const QString key = Keys::product64 + " that is missing";
        QVERIFY(readMainHalconKey(key).isEmpty());
        QCOMPARE(log.lines(), QStringList{heading + " that is missing"});
        QCOMPARE(messages.warnings(), QStringList());
        QVERIFY(!Registry::exists(key));
    }

    void wholeKey()
    {
        HalconKeys keys;
        keys.addVersion(Keys::product64, "12.0", {"Documentation", "RuntimeSSE2", "RuntimeX64", "RuntimeX86"},
                        "C:\\H12", 3);
        keys.addGroup(Keys::product64, "13.0");
        const QString uninitialized = keys.addGroup(Keys::product64, "18.11");
        Registry::setDword(uninitialized + "\\InstalledComponents", "RuntimeX86", 1);
        Registry::setDword(uninitialized + "\\InstalledComponents\\Sub", "RuntimeX64", 1);
        Registry::setDword(uninitialized + "\\InstalledComponents\\Sub\\Deeper", "Examples", 1);
        keys.addVersion(Keys::product64, "20.99999999999-Progress", {"RuntimeX64"}, "C:\\H20", 1);
        keys.addVersion(Keys::product64, "22.05-Steady", {"RuntimeX64"}, "C:\\H22", 1);
        keys.addVersion(Keys::product64, "Pr\u00fcfung", {"RuntimeX64"}, "C:\\P", 1);

        const CaughtMessages messages;
        const LogLines log;
        const QList<HalconInstallation> found = readMainHalconKey(Keys::product64);

        QCOMPARE(
            recordLines(found),
            (QStringList{
                "12.0.3.0 '' x86-win32 | C:\\H12 | C:\\H12\\examples | Documentation RuntimeX86",
                "12.0.3.0 '' x86sse2-win32 | C:\\H12 | C:\\H12\\examples | Documentation RuntimeSSE2",
                "12.0.3.0 '' x64-win64 | C:\\H12 | C:\\H12\\examples | Documentation RuntimeX64",
                // Revision and build are read as 0, so the identity differs from that of an unknown revision.
                "18.11.0.0 '' x86-win32 |  |  | RuntimeX86 Sub/Deeper/Examples",
                "22.5.1.0 'Steady' x64-win64 | C:\\H22 | C:\\H22\\examples | RuntimeX64",
            }));
        QCOMPARE(log.lines(),
                 (QStringList{heading, groupHeading.arg("12.0"), "hasX86", "hasX86SSE2", "hasX64",
                              groupHeading.arg("13.0"), groupHeading.arg("18.11"), "hasX86",
                              rejection.arg("20.99999999999-Progress"), groupHeading.arg("22.05-Steady"),
                              "hasX64", rejection.arg("Pr\u00fcfung")}));
        QCOMPARE(messages.warnings(), (QStringList{'"' + rejection.arg("20.99999999999-Progress") + '"',
                                                   '"' + rejection.arg("Pr\u00fcfung") + '"'}));
        QVERIFY(!Registry::exists(uninitialized + "\\Initialized"));
    }

    void everyTypeOfComponent()
    {
        HalconKeys keys;
        const QString components = keys.addGroup(Keys::product64, "20.11") + "\\InstalledComponents";
        Registry::setString(components, "RuntimeX64", "1");
        Registry::setDword(components, "Number", 1);
        Registry::setQword(components, "Long", 1);
        Registry::setExpandString(components, "Expanded", "1");
        Registry::setString(components, "NoString", "01");
        Registry::setDword(components, "NoNumber", 0);
        Registry::setQword(components, "NoLong", (quint64(1) << 32U) + 1);
        Registry::setStrings(components, "NoStrings", {"1", "1"});
        Registry::setStrings(components, "NoStringAtAll", {});
        Registry::setBinary(components, "NoBinary", QByteArray::fromHex("01000000"));
        Registry::setBinary(components, "NoBytes", {});

        QCOMPARE(recordLines(readMainHalconKey(Keys::product64)),
                 QStringList{"20.11.0.0 '' x64-win64 |  |  | Expanded Long Number RuntimeX64"});
    }

    void everyTypeOfNumberAndDirectory()
    {
        HalconKeys keys;
        const auto initialized = [&keys](const QString &name) {
            const QString group = keys.addGroup(Keys::product64, name);
            Registry::setString(group + "\\InstalledComponents", "RuntimeX64", "1");
            return group + "\\Initialized";
        };
        const QString numbers = initialized("1.0");
        Registry::setDword(numbers, "InstalledRevision", 0x7fffffff);
        Registry::setDword(numbers, "InstalledBuild", 0x80000000);
        Registry::setString(numbers, "InstallDir", "\"C:/Pr\u00fcfung \u691c\u67fb\"");
        const QString longNumbers = initialized("1.1");
        Registry::setQword(longNumbers, "InstalledRevision", (quint64(1) << 32U) + 2);
        Registry::setQword(longNumbers, "InstalledBuild", 3);
        Registry::setExpandString(longNumbers, "ExampleRoot", "%ProgramFiles%\\HALCON\\");
        const QString others = initialized("1.2");
        Registry::setQword(others, "InstalledRevision", ~quint64(0));
        Registry::setString(others, "InstalledBuild", "7");

        QCOMPARE(
            recordLines(readMainHalconKey(Keys::product64)),
            (QStringList{"1.0.2147483647.0 '' x64-win64 | \"C:/Pr\u00fcfung \u691c\u67fb\" |  | RuntimeX64",
                         "1.1.0.3 '' x64-win64 |  | %ProgramFiles%\\HALCON\\ | RuntimeX64",
                         "1.2.0.7 '' x64-win64 |  |  | RuntimeX64"}));
    }

    /// Components and directories count only where they belong.
    void valuesOfTheVersionGroupItself()
    {
        HalconKeys keys;
        const QString group = keys.addGroup(Keys::product64, "20.11");
        Registry::setString(group, "RuntimeX86", "1");
        Registry::setString(group, "InstallDir", "C:\\elsewhere");
        Registry::setString(group + "\\Initialized", "RuntimeSSE2", "1");
        Registry::setString(group + "\\InstalledComponents", "RuntimeX64", "1");
        Registry::setString(group + "\\InstalledComponents", "InstallDir", "C:\\nowhere");
        QCOMPARE(recordLines(readMainHalconKey(Keys::product64)),
                 QStringList{"20.11.0.0 '' x64-win64 |  |  | RuntimeX64"});
    }
};

QTEST_GUILESS_MAIN(ProductKeyTest)

#include "ProductKeyTest_win.moc"
