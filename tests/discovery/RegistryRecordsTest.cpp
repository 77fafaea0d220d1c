#include "discovery/RegistryRecords.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <limits>

namespace {

using List = QStringList;

/// The values as the registry reader returns them: a string, a list of strings, bytes, or a number whose type
/// has the sign bit that the registry does not know.
QVariant qword(quint64 value)
{
    return static_cast<qlonglong>(value);
}

QVariant dword(quint32 value)
{
    return static_cast<int>(value);
}

const QVariant missing;
const HalconInstallation version(20, 11, -1, -1);

/// Only the 64-bit runtime.
const QVariantMap runtime{{"RuntimeX64", "1"}};

} // namespace

class RegistryRecordsTest : public QObject {
    Q_OBJECT

private slots:
    void componentValue_data()
    {
        columns<QVariant, bool>("value", "installed");

        row("number 1", dword(1), true);
        row("64-bit number 1", qword(1), true);
        row<QVariant>("string 1", "1", true);

        row("number 0", dword(0), false);
        row("number 2", dword(2), false);
        row("number 11", dword(11), false);
        row("greatest number", dword(0xffffffff), false);
        row("64-bit number that ends in 1", qword((quint64(1) << 32U) + 1), false);
        for (const char *text : {"0", "2", "01", "+1", "1.0", " 1", "1 ", "", "true"}) {
            row<QVariant>(qPrintable(QString("string '%1'").arg(text)), text, false);
        }
        row<QVariant>("list of one 0", List{"0"}, false);
        row<QVariant>("list of several", List{"1", "1"}, false);
        row<QVariant>("empty list", List(), false);
        row<QVariant>("bytes of the number 1", QString::fromUtf16(u"\1\0", 2), false);
        row("missing", missing, false);
    }

    void componentValue()
    {
        QFETCH(QVariant, value);
        QFETCH(bool, installed);
        const LogLines log;

        // The other runtime is always there.
        const List found = recordLines(productKeyInstallations(
            version, {{{"RuntimeX64", value}, {"RuntimeX86", "1"}}, missing, missing, missing, missing}));

        List expected{"20.11.0.0 '' x86-win32 |  |  | RuntimeX86"};
        if (installed) {
            expected.append("20.11.0.0 '' x64-win64 |  |  | RuntimeX64");
        }
        QCOMPARE(found, expected);
        QCOMPARE(log.lines(), installed ? (List{"hasX86", "hasX64"}) : List{"hasX86"});
    }

    /// A runtime counts only where it belongs.
    void componentsBelow()
    {
        const QVariantMap components{{"RuntimeX86", 1},         {"Sub/Documentation", 1}, {"Sub/Examples", 0},
                                     {"Sub/Deeper/ToolX64", 1}, {"Sub/RuntimeX64", 1},    {"A", 1}};
        QCOMPARE(
            recordLines(productKeyInstallations(version, {components, missing, missing, missing, missing})),
            List{"20.11.0.0 '' x86-win32 |  |  | A RuntimeX86 Sub/Documentation"});
    }

    void numbers_data()
    {
        columns<QVariant, int>("value", "expected");

        constexpr int greatest = std::numeric_limits<int>::max();
        row("number", dword(3), 3);
        row("greatest signed number", dword(0x7fffffff), greatest);
        row("number beyond 31 bits", dword(0x80000000), 0);
        row("greatest number", dword(0xffffffff), 0);
        row("64-bit number", qword(3), 3);
        row("64-bit number beyond 31 bits", qword(0x80000000), 0);
        row("64-bit number beyond 32 bits", qword((quint64(1) << 32U) + 2), 0);
        row("greatest 64-bit number", qword(~quint64(0)), 0);
        row<QVariant>("string of a number", "3", 3);
        row<QVariant>("string of the greatest signed number", "2147483647", greatest);
        row<QVariant>("string of a number beyond 31 bits", "2147483648", 0);
        row<QVariant>("string of a number beyond 64 bits", "18446744073709551619", 0);
        row<QVariant>("string of a negative number", "-2", -2);
        row<QVariant>("string of the least number", "-2147483648", std::numeric_limits<int>::min());
        row<QVariant>("string of a number below that", "-2147483649", 0);
        row<QVariant>("number and word", "3 beta", 0);
        row<QVariant>("empty string", "", 0);
        row("missing", missing, 0);
    }

    void numbers()
    {
        QFETCH(QVariant, value);
        QFETCH(int, expected);
        const auto both = productKeyInstallations(version, {runtime, missing, missing, value, 17}) +
                          productKeyInstallations(version, {runtime, missing, missing, 18, value});
        QCOMPARE(recordLines(both),
                 (List{QString("20.11.%1.17 '' x64-win64 |  |  | RuntimeX64").arg(expected),
                       QString("20.11.18.%1 '' x64-win64 |  |  | RuntimeX64").arg(expected)}));
    }

    void directories_data()
    {
        columns<QVariant, QString>("value", "expected");

        for (const char *text : {"C:\\Program Files\\HALCON\\", "C:/HALCON", "\\\\server\\share",
                                 "\"quoted\"", "%ProgramFiles%", "Prüfung 検査", ""}) {
            row<QVariant, QString>(text, text, text);
        }
        row<QVariant, QString>("number", 7, "7");
        row<QVariant, QString>("list", List{"a", "b"}, "");
        row<QVariant, QString>("missing", missing, "");
    }

    void directories()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, expected);
        const auto both =
            productKeyInstallations(version, {runtime, value, "examples", missing, missing}) +
            productKeyInstallations(version, {runtime, "installation", value, missing, missing});
        QCOMPARE(recordLines(both),
                 (List{"20.11.0.0 '' x64-win64 | " + expected + " | examples | RuntimeX64",
                       "20.11.0.0 '' x64-win64 | installation | " + expected + " | RuntimeX64"}));
    }

    void everyFieldHasItsValue()
    {
        HalconInstallation steady(22, 5, -1, -1);
        steady.setSuffix("Steady");
        const QVariantMap components{{"RuntimeX64", 1}, {"RuntimeX86", 1}, {"Documentation", "1"}};
        QCOMPARE(recordLines(productKeyInstallations(steady, {components, "C:\\H", "D:\\E", 4, 9})),
                 (List{"22.5.4.9 'Steady' x86-win32 | C:\\H | D:\\E | Documentation RuntimeX86",
                       "22.5.4.9 'Steady' x64-win64 | C:\\H | D:\\E | Documentation RuntimeX64"}));
    }

    void installLocation_data()
    {
        columns<QVariant, QString>("value", "expected");

        row<QVariant, QString>("plain", "C:\\Program Files\\MVTec", "C:\\Program Files\\MVTec");
        row<QVariant, QString>("quoted", "\"C:\\Program Files\\MVTec\\\"", "C:\\Program Files\\MVTec\\");
        row<QVariant, QString>("quotes inside", "C:\\\"Program Files\"\\MVTec", "C:\\Program Files\\MVTec");
        row<QVariant, QString>("one quote", "\"%ProgramFiles%\\Prüfung", "%ProgramFiles%\\Prüfung");
        row<QVariant, QString>("other marks are kept", "'C:\\MVTec' (x64) & more",
                               "'C:\\MVTec' (x64) & more");
        row<QVariant, QString>("quotes only", "\"\"", "");
        row<QVariant, QString>("missing", missing, "");
    }

    void installLocation()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, expected);
        const LogLines log;
        QCOMPARE(recordLines(uninstallKeyInstallations(version, value)),
                 List{"20.11.-1.-1 '' x64-win64 | " + expected + " | " + expected + " | RuntimeX64"});
        QCOMPARE(log.lines(), List{"hasX64"});
    }
};

QTEST_GUILESS_MAIN(RegistryRecordsTest)

#include "RegistryRecordsTest.moc"
