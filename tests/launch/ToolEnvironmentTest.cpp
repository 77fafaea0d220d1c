#include "launch/ToolEnvironment.h"
#include "tests/launch/EnvironmentBlock.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QProcessEnvironment>
#include <QtTest>

using Variables = QMap<QString, QString>;
Q_DECLARE_METATYPE(Variables)

namespace {

QStringList ownEnvironment()
{
    return QProcessEnvironment::systemEnvironment().toStringList();
}

} // namespace

class ToolEnvironmentTest : public QObject {
    Q_OBJECT

private slots:
    void overrides_data()
    {
        columns<QString, QString, QString, Variables>("installDir", "exampleRoot", "arch", "variables");

        row("with examples", "C:\\H", "C:\\E", "x64-win64",
            Variables{{"HALCONARCH", "x64-win64"},
                      {"HALCONEXAMPLES", "C:\\E\\examples"},
                      {"HALCONIMAGES", "C:\\E\\examples\\images"},
                      {"HALCONROOT", "C:\\H"},
                      {"PATH", "C:\\H\\bin\\x64-win64;C:\\W"}});
        row("without examples", "C:\\H", "", "x86sse2-win32",
            Variables{{"HALCONARCH", "x86sse2-win32"},
                      {"HALCONROOT", "C:\\H"},
                      {"PATH", "C:\\H\\bin\\x86sse2-win32;C:\\W"}});
        row("nothing known", "", "", "",
            Variables{{"HALCONARCH", ""}, {"HALCONROOT", ""}, {"PATH", "\\bin\\;C:\\W"}});
        row("directories are taken as they stand", "C:\\Program Files (x86)\\H & Ü;1\\", "D:/E %TEMP%",
            "x86-win32",
            Variables{{"HALCONARCH", "x86-win32"},
                      {"HALCONEXAMPLES", "D:/E %TEMP%\\examples"},
                      {"HALCONIMAGES", "D:/E %TEMP%\\examples\\images"},
                      {"HALCONROOT", "C:\\Program Files (x86)\\H & Ü;1\\"},
                      {"PATH", "C:\\Program Files (x86)\\H & Ü;1\\\\bin\\x86-win32;C:\\W"}});
    }

    void overrides()
    {
        QFETCH(QString, installDir);
        QFETCH(QString, exampleRoot);
        QFETCH(QString, arch);
        const EnvironmentVariable path("PATH", "C:\\W");

        QTEST(variableOverrides(installationIn(installDir, arch, exampleRoot)), "variables");
    }

    void directoryInFrontOfThePath_data()
    {
        columns<QByteArray>("path");

        row<QByteArray>("several directories", "C:\\W;C:\\W\\System32;");
        row<QByteArray>("already there", "C:\\H\\bin\\x64-win64;C:\\W;C:\\H\\bin\\x64-win64");
        row<QByteArray>("duplicates", "C:\\W;C:\\W;;C:\\W");
        row<QByteArray>("absent", {});
    }

    void directoryInFrontOfThePath()
    {
        QFETCH(QByteArray, path);
        const EnvironmentVariable own("PATH", path);
        if (path.isNull()) {
            own.unset();
        }

        QCOMPARE(variableOverrides(installationIn("C:\\H")).value("PATH"), "C:\\H\\bin\\x64-win64;" + path);
    }

    void block()
    {
        const EnvironmentVariable own("LAUNCH_TEST_OWN", "own value");
        const EnvironmentVariable replaced("LAUNCH_TEST_REPLACED", "old value");
        QStringList expected =
            ownEnvironment() + QStringList{"LAUNCH_TEST_NEW=Maß", "LAUNCH_TEST_REPLACED=new value"};
        QVERIFY(expected.removeOne("LAUNCH_TEST_REPLACED=old value"));

        QStringList entries = blockEntries(
            buildEnvironmentBlock({{"LAUNCH_TEST_REPLACED", "new value"}, {"LAUNCH_TEST_NEW", "Maß"}}).get());

        expected.sort();
        entries.sort();
        QCOMPARE(entries, expected);
    }

    void ownEnvironmentStaysAsItIs()
    {
        const QStringList before = ownEnvironment();

        const auto block =
            buildEnvironmentBlock(variableOverrides(installationIn("C:\\H", "x64-win64", "C:\\E")));

        QVERIFY(blockEntries(block.get()).contains("HALCONROOT=C:\\H"));
        QCOMPARE(ownEnvironment(), before);
    }
};

QTEST_GUILESS_MAIN(ToolEnvironmentTest)

#include "ToolEnvironmentTest.moc"
