#include "launch/ProcessStart.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Installations.h"

#include <QProcessEnvironment>
#include <QtTest>

using Variables = QMap<QString, QString>;
Q_DECLARE_METATYPE(Variables)

namespace {

/// The entries of an environment block, and its length with all terminating zeros in 16-bit units.
/// AddressSanitizer finds a block that is too short for its entries.
struct ParsedBlock {
    QStringList entries;
    int length = 0;
};

ParsedBlock parse(const std::shared_ptr<char16_t[]> &block)
{
    ParsedBlock result;
    while (block[result.length] != 0) {
        const QString entry = QString::fromUtf16(block.get() + result.length);
        result.entries.append(entry);
        result.length += entry.size() + 1;
    }
    result.length += 1;
    return result;
}

QStringList ownEnvironment()
{
    return QProcessEnvironment::systemEnvironment().toStringList();
}

} // namespace

class EnvironmentTest : public QObject {
    Q_OBJECT

private slots:
    void overrides_data();
    void overrides();
    void newDirectoryIsAlwaysInFrontOfThePath_data();
    void newDirectoryIsAlwaysInFrontOfThePath();
    void absentPath();
    void overriddenValues_data();
    void overriddenValues();
    void blockHoldsTheOwnEnvironmentAndTheOverrides();
    void withoutOverrides();
    void addedVariableLengthensTheBlockByItsEntry();
    void ownEnvironmentStaysAsItIs();
    void repeatedBuildsNeverLengthenThePath();
};

void EnvironmentTest::overrides_data()
{
    QTest::addColumn<QString>("installDir");
    QTest::addColumn<QString>("exampleRoot");
    QTest::addColumn<QString>("arch");
    QTest::addColumn<Variables>("variables");

    QTest::newRow("with examples") << "C:\\H"
                                   << "C:\\E"
                                   << "x64-win64"
                                   << Variables{{"HALCONARCH", "x64-win64"},
                                                {"HALCONEXAMPLES", "C:\\E\\examples"},
                                                {"HALCONIMAGES", "C:\\E\\examples\\images"},
                                                {"HALCONROOT", "C:\\H"},
                                                {"PATH", "C:\\H\\bin\\x64-win64;C:\\W"}};
    QTest::newRow("without examples")
        << "C:\\H"
        << ""
        << "x64-win64"
        << Variables{
               {"HALCONARCH", "x64-win64"}, {"HALCONROOT", "C:\\H"}, {"PATH", "C:\\H\\bin\\x64-win64;C:\\W"}};
    QTest::newRow("SSE2") << "C:\\H"
                          << ""
                          << "x86sse2-win32"
                          << Variables{{"HALCONARCH", "x86sse2-win32"},
                                       {"HALCONROOT", "C:\\H"},
                                       {"PATH", "C:\\H\\bin\\x86sse2-win32;C:\\W"}};
    QTest::newRow("32-bit") << "C:\\H"
                            << ""
                            << "x86-win32"
                            << Variables{{"HALCONARCH", "x86-win32"},
                                         {"HALCONROOT", "C:\\H"},
                                         {"PATH", "C:\\H\\bin\\x86-win32;C:\\W"}};
    QTest::newRow("directories are taken as they stand")
        << "C:\\Program Files (x86)\\H & Ü;1\\"
        << "D:/E %TEMP%"
        << "x64-win64"
        << Variables{{"HALCONARCH", "x64-win64"},
                     {"HALCONEXAMPLES", "D:/E %TEMP%\\examples"},
                     {"HALCONIMAGES", "D:/E %TEMP%\\examples\\images"},
                     {"HALCONROOT", "C:\\Program Files (x86)\\H & Ü;1\\"},
                     {"PATH", "C:\\Program Files (x86)\\H & Ü;1\\\\bin\\x64-win64;C:\\W"}};
}

void EnvironmentTest::overrides()
{
    QFETCH(QString, installDir);
    QFETCH(QString, exampleRoot);
    QFETCH(QString, arch);
    HalconInstallation record(20, 11, 1, 3);
    record.installDir = installDir;
    record.exampleRoot = exampleRoot;
    record.arch = arch;

    const EnvironmentVariable path("PATH", "C:\\W");

    QTEST(variableOverrides(record), "variables");
}

void EnvironmentTest::newDirectoryIsAlwaysInFrontOfThePath_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("one directory") << "C:\\W"
                                   << "C:\\H\\bin\\x64-win64;C:\\W";
    QTest::newRow("several directories") << "C:\\W;C:\\W\\System32"
                                         << "C:\\H\\bin\\x64-win64;C:\\W;C:\\W\\System32";
    QTest::newRow("already in front") << "C:\\H\\bin\\x64-win64;C:\\W"
                                      << "C:\\H\\bin\\x64-win64;C:\\H\\bin\\x64-win64;C:\\W";
    QTest::newRow("already at the end") << "C:\\W;C:\\H\\bin\\x64-win64"
                                        << "C:\\H\\bin\\x64-win64;C:\\W;C:\\H\\bin\\x64-win64";
    QTest::newRow("another version's directory") << "C:\\H12\\bin\\x64-win64;C:\\W"
                                                 << "C:\\H\\bin\\x64-win64;C:\\H12\\bin\\x64-win64;C:\\W";
    QTest::newRow("duplicates of others") << "C:\\W;C:\\W;;C:\\W"
                                          << "C:\\H\\bin\\x64-win64;C:\\W;C:\\W;;C:\\W";
    QTest::newRow("closing semicolon") << "C:\\W;"
                                       << "C:\\H\\bin\\x64-win64;C:\\W;";
}

void EnvironmentTest::newDirectoryIsAlwaysInFrontOfThePath()
{
    QFETCH(QString, before);
    const EnvironmentVariable path("PATH", before.toLatin1());

    QTEST(variableOverrides(installationIn("C:\\H")).value("PATH"), "after");
}

void EnvironmentTest::absentPath()
{
    const EnvironmentVariable path("PATH");
    path.unset();
    QVERIFY(!QProcessEnvironment::systemEnvironment().contains("PATH"));

    QCOMPARE(variableOverrides(installationIn("C:\\H")).value("PATH"), "C:\\H\\bin\\x64-win64;");
}

void EnvironmentTest::overriddenValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");

    QTest::newRow("plain") << "LAUNCH_TEST_NEW"
                           << "value";
    QTest::newRow("replaces") << "LAUNCH_TEST_OWN"
                              << "new value";
    QTest::newRow("empty") << "LAUNCH_TEST_NEW"
                           << "";
    QTest::newRow("empty instead of the own value") << "LAUNCH_TEST_OWN"
                                                    << "";
    QTest::newRow("equals signs") << "LAUNCH_TEST_NEW"
                                  << "=a=b==";
    QTest::newRow("not ASCII") << "LAUNCH_TEST_NEW"
                               << "Größe, 寸法, Размер";
    QTest::newRow("outside the basic plane")
        << "LAUNCH_TEST_NEW" << QString::fromUcs4(U"\U0001F52D telescope");
    QTest::newRow("name that is not ASCII") << "LAUNCH_TEST_MAß"
                                            << "1";
    QTest::newRow("spaces and quotes") << "LAUNCH_TEST_NEW"
                                       << "  \"C:\\Program Files\"\t";
    QTest::newRow("nothing is expanded") << "LAUNCH_TEST_NEW"
                                         << "%LAUNCH_TEST_OWN% $LAUNCH_TEST_OWN";
    QTest::newRow("long") << "LAUNCH_TEST_NEW" << QString(20000, QLatin1Char('x'));
}

void EnvironmentTest::overriddenValues()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    const EnvironmentVariable own("LAUNCH_TEST_OWN", "own value");

    const QStringList entries = parse(buildEnvironmentBlock({{name, value}})).entries;

    QCOMPARE(entries.filter(QRegularExpression('^' + name + '=')), QStringList{name + '=' + value});
    QVERIFY(name == "LAUNCH_TEST_OWN" || entries.contains("LAUNCH_TEST_OWN=own value"));
}

void EnvironmentTest::blockHoldsTheOwnEnvironmentAndTheOverrides()
{
    const EnvironmentVariable own("LAUNCH_TEST_OWN", "own value");
    const EnvironmentVariable replaced("LAUNCH_TEST_REPLACED", "old value");

    const ParsedBlock block =
        parse(buildEnvironmentBlock({{"LAUNCH_TEST_REPLACED", "new value"}, {"LAUNCH_TEST_NEW", "added"}}));

    QProcessEnvironment expected = QProcessEnvironment::systemEnvironment();
    expected.insert("LAUNCH_TEST_NEW", "added");
    expected.insert("LAUNCH_TEST_REPLACED", "new value");
    QCOMPARE(block.entries, expected.toStringList());
    // Once each in the list, which proves that the comparison above covers them.
    QCOMPARE(block.entries.filter("LAUNCH_TEST_"),
             (QStringList{"LAUNCH_TEST_NEW=added", "LAUNCH_TEST_OWN=own value",
                          "LAUNCH_TEST_REPLACED=new value"}));
}

void EnvironmentTest::withoutOverrides()
{
    QCOMPARE(parse(buildEnvironmentBlock({})).entries, ownEnvironment());
}

void EnvironmentTest::addedVariableLengthensTheBlockByItsEntry()
{
    const ParsedBlock plain = parse(buildEnvironmentBlock({}));
    const ParsedBlock longer = parse(buildEnvironmentBlock({{"LAUNCH_TEST_NEW", "Maß"}}));

    QCOMPARE(plain.length, ownEnvironment().join(QChar()).size() + 2);
    QCOMPARE(longer.length, plain.length + QString("LAUNCH_TEST_NEW=Maß").size() + 1);
}

void EnvironmentTest::ownEnvironmentStaysAsItIs()
{
    const QStringList before = ownEnvironment();

    const auto block =
        buildEnvironmentBlock(variableOverrides(installationIn("C:\\H", "x64-win64", "C:\\E")));

    QVERIFY(parse(block).entries.contains("HALCONROOT=C:\\H"));
    QCOMPARE(ownEnvironment(), before);
}

void EnvironmentTest::repeatedBuildsNeverLengthenThePath()
{
    const EnvironmentVariable path("PATH", "C:\\W");

    for (int start = 0; start < 3; ++start) {
        const QStringList entries =
            parse(buildEnvironmentBlock(variableOverrides(installationIn("C:\\H")))).entries;
        QCOMPARE(entries.filter(QRegularExpression("^PATH=")),
                 QStringList{"PATH=C:\\H\\bin\\x64-win64;C:\\W"});
    }
}

QTEST_GUILESS_MAIN(EnvironmentTest)

#include "EnvironmentTest.moc"
