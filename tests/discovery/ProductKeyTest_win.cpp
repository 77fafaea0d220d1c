#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Messages.h"

#include <QtTest>

#include <functional>

using WriteValue = std::function<void(const QString &key, const QString &name)>;
Q_DECLARE_METATYPE(WriteValue)

namespace {

WriteValue text(const QString &value)
{
    return [value](const QString &key, const QString &name) { Registry::setString(key, name, value); };
}

WriteValue expandText(const QString &value)
{
    return [value](const QString &key, const QString &name) { Registry::setExpandString(key, name, value); };
}

WriteValue texts(const QStringList &values)
{
    return [values](const QString &key, const QString &name) { Registry::setStrings(key, name, values); };
}

WriteValue dword(quint32 value)
{
    return [value](const QString &key, const QString &name) { Registry::setDword(key, name, value); };
}

WriteValue qword(quint64 value)
{
    return [value](const QString &key, const QString &name) { Registry::setQword(key, name, value); };
}

WriteValue binary(const QByteArray &value)
{
    return [value](const QString &key, const QString &name) { Registry::setBinary(key, name, value); };
}

WriteValue nothing()
{
    return [](const QString &, const QString &) {};
}

} // namespace

/// The reading of one product key of HALCON.
class ProductKeyTest : public QObject {
    Q_OBJECT

private slots:
    void missingKey();
    void emptyKey();
    void version();
    void architectures();
    void componentValue_data();
    void componentValue();
    void nestedComponents();
    void nestedRuntimeIsNoRuntime();
    void nothingInitialized();
    void emptyGroup();
    void numbers_data();
    void numbers();
    void directories_data();
    void directories();
    void invalidGroups();
    void wholeLog_data();
    void wholeLog();
    void valuesOfTheVersionGroupItself();
};

void ProductKeyTest::missingKey()
{
    const CaughtMessages messages;
    const LogLines log;
    const QString key = Keys::product64 + " that is missing";
    QVERIFY(readMainHalconKey(key).isEmpty());
    const QStringList expected{
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON that is missing"};
    QCOMPARE(log.lines(), expected);
    QCOMPARE(messages.warnings(), QStringList());
    QVERIFY(!Registry::exists(key));
}

void ProductKeyTest::emptyKey()
{
    Registry::createKey(Keys::product64);
    const CaughtMessages messages;
    const LogLines log;
    QVERIFY(readMainHalconKey(Keys::product64).isEmpty());
    const QStringList expected{
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON"};
    QCOMPARE(log.lines(), expected);
    QCOMPARE(messages.warnings(), QStringList());
}

void ProductKeyTest::version()
{
    HalconKeys keys;
    const QString group = keys.addGroup(Keys::product64, "20.11-Progress");
    Registry::setDword(group + "\\InstalledComponents", "RuntimeX64", 1);
    Registry::setString(group + "\\Initialized", "InstallDir",
                        "C:\\Program Files\\MVTec\\HALCON-20.11-Progress");
    Registry::setString(group + "\\Initialized", "ExampleRoot",
                        "D:\\Public\\HALCON-20.11-Progress\\examples");
    Registry::setDword(group + "\\Initialized", "InstalledRevision", 2);
    Registry::setDword(group + "\\Initialized", "InstalledBuild", 7);

    const QStringList expected{
        "20.11.2.7 'Progress' x64-win64 | C:\\Program Files\\MVTec\\HALCON-20.11-Progress | "
        "D:\\Public\\HALCON-20.11-Progress\\examples | RuntimeX64"};
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)), expected);
}

void ProductKeyTest::architectures()
{
    HalconKeys keys;
    keys.addVersion(
        Keys::product64, "12.0",
        {"DocumentationEnglish", "HDevelopX64", "HDevelopX86", "RuntimeSSE2", "RuntimeX64", "RuntimeX86"},
        "C:\\H12", 3);
    const QStringList expected{
        "12.0.3.0 '' x86-win32 | C:\\H12 | C:\\H12\\examples | DocumentationEnglish HDevelopX86 RuntimeX86",
        "12.0.3.0 '' x86sse2-win32 | C:\\H12 | C:\\H12\\examples | DocumentationEnglish RuntimeSSE2",
        "12.0.3.0 '' x64-win64 | C:\\H12 | C:\\H12\\examples | DocumentationEnglish HDevelopX64 RuntimeX64",
    };
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)), expected);
}

void ProductKeyTest::componentValue_data()
{
    QTest::addColumn<WriteValue>("write");
    QTest::addColumn<bool>("installed");

    QTest::newRow("number 1") << dword(1) << true;
    QTest::newRow("string 1") << text("1") << true;
    QTest::newRow("64-bit number 1") << qword(1) << true;
    QTest::newRow("expandable string 1") << expandText("1") << true;

    QTest::newRow("number 0") << dword(0) << false;
    QTest::newRow("number 2") << dword(2) << false;
    QTest::newRow("number 11") << dword(11) << false;
    QTest::newRow("greatest number") << dword(0xffffffff) << false;
    QTest::newRow("64-bit number 0") << qword(0) << false;
    QTest::newRow("64-bit number that ends in 1") << qword((quint64(1) << 32U) + 1) << false;
    QTest::newRow("string 0") << text("0") << false;
    QTest::newRow("string 2") << text("2") << false;
    QTest::newRow("string with a leading 0") << text("01") << false;
    QTest::newRow("string with a sign") << text("+1") << false;
    QTest::newRow("string with a fraction") << text("1.0") << false;
    QTest::newRow("string with a leading space") << text(" 1") << false;
    QTest::newRow("string with a trailing space") << text("1 ") << false;
    QTest::newRow("empty string") << text("") << false;
    QTest::newRow("word") << text("true") << false;
    QTest::newRow("list of one 0") << texts({"0"}) << false;
    QTest::newRow("list of several") << texts({"1", "1"}) << false;
    QTest::newRow("empty list") << texts({}) << false;
    QTest::newRow("bytes of the number 1") << binary(QByteArray::fromHex("01000000")) << false;
    QTest::newRow("no bytes") << binary({}) << false;
}

void ProductKeyTest::componentValue()
{
    QFETCH(WriteValue, write);
    QFETCH(bool, installed);

    // The constant runtime distinguishes a component that does not count from a group that was not read.
    HalconKeys keys;
    const QString group = keys.addGroup(Keys::product64, "20.11-Progress");
    Registry::setString(group + "\\InstalledComponents", "RuntimeX86", "1");
    write(group + "\\InstalledComponents", "RuntimeX64");

    const LogLines log;
    const QStringList found = recordLines(readMainHalconKey(Keys::product64));
    QStringList expected{"20.11.0.0 'Progress' x86-win32 |  |  | RuntimeX86"};
    QStringList expectedLog{
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
        "Investigating registry key "
        "\\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON20.11-Progress/InstalledComponents",
        "hasX86"};
    if (installed) {
        expected.append("20.11.0.0 'Progress' x64-win64 |  |  | RuntimeX64");
        expectedLog.append("hasX64");
    }
    QCOMPARE(found, expected);
    QCOMPARE(log.lines(), expectedLog);
}

void ProductKeyTest::nestedComponents()
{
    HalconKeys keys;
    const QString components = keys.addGroup(Keys::product64, "20.11") + "\\InstalledComponents";
    Registry::setDword(components, "RuntimeX64", 1);
    Registry::setDword(components, "RuntimeX86", 1);
    Registry::setDword(components + "\\Sub", "RuntimeX64", 1);
    Registry::setDword(components + "\\Sub\\Deeper", "Documentation", 1);
    Registry::setDword(components + "\\Sub\\Deeper", "Examples", 0);

    const QStringList expected{
        "20.11.0.0 '' x86-win32 |  |  | RuntimeX86 Sub/Deeper/Documentation",
        "20.11.0.0 '' x64-win64 |  |  | RuntimeX64 Sub/Deeper/Documentation Sub/RuntimeX64",
    };
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)), expected);
}

void ProductKeyTest::nestedRuntimeIsNoRuntime()
{
    HalconKeys keys;
    const QString components = keys.addGroup(Keys::product64, "20.11") + "\\InstalledComponents";
    Registry::setDword(components, "RuntimeX86", 1);
    Registry::setDword(components + "\\Sub", "RuntimeX64", 1);
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)),
             QStringList{"20.11.0.0 '' x86-win32 |  |  | RuntimeX86"});
}

void ProductKeyTest::nothingInitialized()
{
    HalconKeys keys;
    const QString group = keys.addGroup(Keys::product64, "13.0");
    Registry::setString(group + "\\InstalledComponents", "RuntimeX64", "1");
    // Revision and build are read as 0, so the identity differs from that of an unknown revision.
    const QList<HalconInstallation> found = readMainHalconKey(Keys::product64);
    QCOMPARE(recordLines(found), QStringList{"13.0.0.0 '' x64-win64 |  |  | RuntimeX64"});
    QCOMPARE(found.first().versionArchText(), QString("13.0.0 (x64-win64)"));
    QVERIFY(!Registry::exists(group + "\\Initialized"));
}

void ProductKeyTest::emptyGroup()
{
    HalconKeys keys;
    keys.addGroup(Keys::product64, "13.0");
    keys.addVersion(Keys::product64, "20.11", {"Documentation"}, "C:\\H20", 1);

    const CaughtMessages messages;
    const LogLines log;
    QVERIFY(readMainHalconKey(Keys::product64).isEmpty());
    const QStringList expected{
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
        "Investigating registry key \\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON13.0/InstalledComponents",
        "Investigating registry key \\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON20.11/InstalledComponents",
    };
    QCOMPARE(log.lines(), expected);
    QCOMPARE(messages.warnings(), QStringList());
}

void ProductKeyTest::numbers_data()
{
    QTest::addColumn<WriteValue>("write");
    QTest::addColumn<int>("expected");

    QTest::newRow("number") << dword(3) << 3;
    QTest::newRow("number 0") << dword(0) << 0;
    QTest::newRow("greatest signed number") << dword(0x7fffffff) << 0x7fffffff;
    QTest::newRow("number beyond 31 bits") << dword(0x80000000) << 0;
    QTest::newRow("greatest number") << dword(0xffffffff) << 0;
    QTest::newRow("64-bit number") << qword(3) << 3;
    QTest::newRow("64-bit number beyond 31 bits") << qword(0x80000000) << 0;
    QTest::newRow("64-bit number beyond 32 bits") << qword((quint64(1) << 32U) + 2) << 0;
    QTest::newRow("greatest 64-bit number") << qword(~quint64(0)) << 0;
    QTest::newRow("string of a number") << text("3") << 3;
    QTest::newRow("string of the greatest signed number") << text("2147483647") << 0x7fffffff;
    QTest::newRow("string of a number beyond 31 bits") << text("2147483648") << 0;
    QTest::newRow("string of a number beyond 32 bits") << text("4294967298") << 0;
    QTest::newRow("string of a number beyond 64 bits") << text("18446744073709551619") << 0;
    QTest::newRow("missing") << nothing() << 0;
    QTest::newRow("word") << text("three") << 0;
    QTest::newRow("number and word") << text("3 beta") << 0;
    QTest::newRow("empty string") << text("") << 0;
}

void ProductKeyTest::numbers()
{
    QFETCH(WriteValue, write);
    QFETCH(int, expected);

    HalconKeys keys;
    const QString ofRevision = keys.addGroup(Keys::product64, "13.0");
    Registry::setString(ofRevision + "\\InstalledComponents", "RuntimeX64", "1");
    Registry::setDword(ofRevision + "\\Initialized", "InstalledBuild", 17);
    write(ofRevision + "\\Initialized", "InstalledRevision");
    const QString ofBuild = keys.addGroup(Keys::product64, "20.11");
    Registry::setString(ofBuild + "\\InstalledComponents", "RuntimeX64", "1");
    Registry::setDword(ofBuild + "\\Initialized", "InstalledRevision", 18);
    write(ofBuild + "\\Initialized", "InstalledBuild");

    const QString number = QString::number(expected);
    const QStringList expectedRecords{"13.0." + number + ".17 '' x64-win64 |  |  | RuntimeX64",
                                      "20.11.18." + number + " '' x64-win64 |  |  | RuntimeX64"};
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)), expectedRecords);
}

void ProductKeyTest::directories_data()
{
    QTest::addColumn<WriteValue>("write");
    QTest::addColumn<QString>("expected");

    QTest::newRow("spaces") << text("C:\\Program Files\\MVTec HALCON") << "C:\\Program Files\\MVTec HALCON";
    QTest::newRow("non-ASCII") << text("C:\\Pr\u00fcfung \u691c\u67fb\\HALCON")
                               << "C:\\Pr\u00fcfung \u691c\u67fb\\HALCON";
    QTest::newRow("trailing backslash") << text("C:\\HALCON\\") << "C:\\HALCON\\";
    QTest::newRow("forward slashes") << text("C:/HALCON") << "C:/HALCON";
    QTest::newRow("network share") << text("\\\\server\\share\\HALCON") << "\\\\server\\share\\HALCON";
    QTest::newRow("quotes are kept") << text("\"C:\\HALCON\"") << "\"C:\\HALCON\"";
    QTest::newRow("variables are kept") << expandText("%ProgramFiles%\\HALCON") << "%ProgramFiles%\\HALCON";
    QTest::newRow("empty") << text("") << "";
    QTest::newRow("missing") << nothing() << "";
}

void ProductKeyTest::directories()
{
    QFETCH(WriteValue, write);
    QFETCH(QString, expected);

    HalconKeys keys;
    const QString group = keys.addGroup(Keys::product64, "20.11");
    Registry::setString(group + "\\InstalledComponents", "RuntimeX64", "1");
    write(group + "\\Initialized", "InstallDir");
    Registry::setString(group + "\\Initialized", "ExampleRoot", "the examples");
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)),
             QStringList{"20.11.0.0 '' x64-win64 | " + expected + " | the examples | RuntimeX64"});

    Registry::setString(group + "\\Initialized", "ExampleRoot", "");
    Registry::setString(group + "\\Initialized", "InstallDir", "the installation");
    write(group + "\\Initialized", "ExampleRoot");
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)),
             QStringList{"20.11.0.0 '' x64-win64 | the installation | " + expected + " | RuntimeX64"});
}

void ProductKeyTest::invalidGroups()
{
    HalconKeys keys;
    keys.addVersion(Keys::product64, "13.0", {"RuntimeX64"}, "C:\\H13", 4);
    keys.addVersion(Keys::product64, "20.99999999999-Progress", {"RuntimeX64"}, "C:\\H20", 1);
    keys.addVersion(Keys::product64, "2147483648.0", {"RuntimeX64"}, "C:\\H21", 1);
    keys.addVersion(Keys::product64, "22.05-Steady", {"RuntimeX64"}, "C:\\H22", 1);
    keys.addVersion(Keys::product64, "Licenses", {"RuntimeX64"}, "C:\\L", 1);
    keys.addVersion(Keys::product64, "Pr\u00fcfung", {"RuntimeX64"}, "C:\\P", 1);

    const CaughtMessages messages;
    const LogLines log;
    const QStringList records{"13.0.4.0 '' x64-win64 | C:\\H13 | C:\\H13\\examples | RuntimeX64",
                              "22.5.1.0 'Steady' x64-win64 | C:\\H22 | C:\\H22\\examples | RuntimeX64"};
    QCOMPARE(recordLines(readMainHalconKey(Keys::product64)), records);

    const QStringList expectedLog{
        "Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
        "Investigating registry key \\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON13.0/InstalledComponents",
        "hasX64",
        "20.99999999999-Progressis not a valid HALCON version containing major.minor(-optionalstring)",
        "2147483648.0is not a valid HALCON version containing major.minor(-optionalstring)",
        "Investigating registry key "
        "\\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON22.05-Steady/InstalledComponents",
        "hasX64",
        "Licensesis not a valid HALCON version containing major.minor(-optionalstring)",
        "Pr\u00fcfungis not a valid HALCON version containing major.minor(-optionalstring)",
    };
    QCOMPARE(log.lines(), expectedLog);
    const QStringList warnings{
        "\"20.99999999999-Progressis not a valid HALCON version containing major.minor(-optionalstring)\"",
        "\"2147483648.0is not a valid HALCON version containing major.minor(-optionalstring)\"",
        "\"Licensesis not a valid HALCON version containing major.minor(-optionalstring)\"",
        "\"Pr\u00fcfungis not a valid HALCON version containing major.minor(-optionalstring)\"",
    };
    QCOMPARE(messages.warnings(), warnings);
}

void ProductKeyTest::wholeLog_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("32-bit view") << Keys::product32
                                 << QStringList{"Investigating main HALCON registry key "
                                                "HKEY_LOCAL_MACHINE\\Software\\Wow6432Node\\MVTec\\HALCON",
                                                "Investigating registry key "
                                                "\\HKEY_LOCAL_MACHINE\\Software\\Wow6432Node\\MVTec\\HALCON"
                                                "20.11-Progress/InstalledComponents",
                                                "hasX86", "hasX86SSE2", "hasX64"};
    QTest::newRow("64-bit view")
        << Keys::product64
        << QStringList{"Investigating main HALCON registry key HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON",
                       "Investigating registry key "
                       "\\HKEY_LOCAL_MACHINE\\Software\\MVTec\\HALCON20.11-Progress/InstalledComponents",
                       "hasX86", "hasX86SSE2", "hasX64"};
    QTest::newRow("the user's part of the registry")
        << "HKEY_CURRENT_USER\\Software\\MVTec\\HALCON"
        << QStringList{"Investigating main HALCON registry key HKEY_CURRENT_USER\\Software\\MVTec\\HALCON",
                       "Investigating registry key "
                       "\\HKEY_CURRENT_USER\\Software\\MVTec\\HALCON20.11-Progress/InstalledComponents",
                       "hasX86", "hasX86SSE2", "hasX64"};
}

void ProductKeyTest::wholeLog()
{
    QFETCH(QString, key);
    HalconKeys keys;
    keys.addVersion(key, "20.11-Progress", {"RuntimeX64", "RuntimeSSE2", "RuntimeX86"}, "C:\\H20", 1);
    const LogLines log;
    QCOMPARE(readMainHalconKey(key).size(), 3);
    QTEST(log.lines(), "expected");
}

void ProductKeyTest::valuesOfTheVersionGroupItself()
{
    // Components and directories count only where they belong.
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

QTEST_GUILESS_MAIN(ProductKeyTest)

#include "ProductKeyTest_win.moc"
