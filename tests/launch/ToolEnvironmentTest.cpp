#include "launch/ToolEnvironment.h"
#include "tests/launch/EnvironmentBlock.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QProcessEnvironment>
#include <QtTest>

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
        const auto row =
            columns<QString, QString, QString, QStringList>("installDir", "exampleRoot", "arch", "variables");

        row("with examples", "C:\\H", "C:\\E", "x64-win64",
            {"HALCONARCH=x64-win64", "HALCONEXAMPLES=C:\\E\\examples", "HALCONIMAGES=C:\\E\\examples\\images",
             "HALCONROOT=C:\\H", "PATH=C:\\H\\bin\\x64-win64;C:\\W"});
        row("without examples", "C:\\H", "", "x86sse2-win32",
            {"HALCONARCH=x86sse2-win32", "HALCONROOT=C:\\H", "PATH=C:\\H\\bin\\x86sse2-win32;C:\\W"});
        row("nothing known", "", "", "", {"HALCONARCH=", "HALCONROOT=", "PATH=\\bin\\;C:\\W"});
        row("directories are taken as they stand", "C:\\a (x86)\\H & Ü;1\\", "D:/E %TEMP%", "x86-win32",
            {"HALCONARCH=x86-win32", "HALCONEXAMPLES=D:/E %TEMP%\\examples",
             "HALCONIMAGES=D:/E %TEMP%\\examples\\images", "HALCONROOT=C:\\a (x86)\\H & Ü;1\\",
             "PATH=C:\\a (x86)\\H & Ü;1\\\\bin\\x86-win32;C:\\W"});
    }

    void overrides()
    {
        QFETCH(QString, installDir);
        QFETCH(QString, exampleRoot);
        QFETCH(QString, arch);
        const EnvironmentVariable path("PATH", "C:\\W");

        const QMap<QString, QString> overrides =
            variableOverrides(installationIn(installDir, arch, exampleRoot));

        QStringList variables;
        for (auto variable = overrides.begin(); variable != overrides.end(); ++variable) {
            variables.append(variable.key() + '=' + variable.value());
        }
        QTEST(variables, "variables");
    }

    void directoryInFrontOfThePath_data()
    {
        columns<QByteArray>("path");

        row<QByteArray>("several directories", "C:\\W;C:\\W\\System32;;C:\\W;");
        row<QByteArray>("already there", "C:\\H\\bin\\x64-win64;C:\\W;C:\\H\\bin\\x64-win64");
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
};

QTEST_GUILESS_MAIN(ToolEnvironmentTest)

#include "ToolEnvironmentTest.moc"
