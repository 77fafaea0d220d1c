#include "launch/PermanentSwitch.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class PermanentSwitchArgumentsTest : public QObject {
    Q_OBJECT

private slots:
    void libraries_data()
    {
        columns<QString, bool, bool, QStringList, QString, QStringList>(
            "arch", "registerHalconCom", "registerEngineCom", "present", "option", "registered");

        using List = QStringList;
        const List halcon{"halconx.dll", "halconxxl.dll"};
        const List engine{"hdevenginex.dll", "hdevenginexxl.dll"};
        const List all = halcon + engine;
        row("nothing asked for", "x64-win64", false, false, all, "", List());
        row("HALCON COM", "x64-win64", true, false, all, "--x64", halcon);
        row("engine COM", "x64-win64", false, true, all, "--x64", engine);
        row("both", "x64-win64", true, true, all, "--x64", all);
        row("SSE2", "x86sse2-win32", true, true, all, "--x86", all);
        row("32-bit", "x86-win32", false, true, all, "--x86", engine);
        row("32-bit in another case", "X86-other", true, false, all, "--x86", halcon);
        row("none present", "x64-win64", true, true, List(), "--x64", List());
        for (const QString &library : all) {
            row(qPrintable(library + " alone"), "x64-win64", true, true, List{library}, "--x64",
                List{library});
        }
        row("other files", "x64-win64", true, true, List{"halcon.dll", "halconx.dll.bak"}, "--x64", List());
    }

    void libraries()
    {
        QFETCH(QString, arch);
        QFETCH(bool, registerHalconCom);
        QFETCH(bool, registerEngineCom);
        QFETCH(QStringList, present);
        QFETCH(QString, option);
        QFETCH(QStringList, registered);
        // Where a backslash is an ordinary character the names of these files have some, and are still found.
        const QTemporaryDir directory;
        const QString root = QDir::toNativeSeparators(directory.filePath("HALCON 20.11"));
        for (const QString &fileName : present) {
            QFile file(root + "\\bin\\" + arch + "\\" + fileName);
            QVERIFY(QDir().mkpath(QFileInfo(file).path()) && file.open(QFile::WriteOnly));
        }

        QString expected = "--env HALCONROOT=\"" + root + "\" --env HALCONARCH=\"" + arch +
                           "\" --env HALCONIMAGES=\"D:\\E\\examples\\images\" "
                           "--env HALCONEXAMPLES=\"D:\\E\\examples\" " +
                           option;
        for (const QString &fileName : registered) {
            expected += " \"" + root + "\\bin\\" + arch + "\\" + fileName + "\"";
        }
        QCOMPARE(helperArguments(installationIn(root, arch, "D:\\E"), registerHalconCom, registerEngineCom),
                 expected);
    }

    void variables_data()
    {
        // arguments: end in a space, because nothing is registered
        columns<QString, QString, QString, QString>("installDir", "arch", "exampleRoot", "arguments");

        row("no examples: their variables are emptied", R"(C:\H)", "x64-win64", "",
            R"(--env HALCONROOT="C:\H" --env HALCONARCH="x64-win64" --env HALCONIMAGES="" )"
            R"(--env HALCONEXAMPLES="" )");
        row("signs that mean something to a shell or to the text's own pattern", R"(C:\%1 & %PATH% ^)", "%2",
            R"(D:\%1%2)",
            R"(--env HALCONROOT="C:\%1 & %PATH% ^" --env HALCONARCH="%2" )"
            R"(--env HALCONIMAGES="D:\%1%2\examples\images" --env HALCONEXAMPLES="D:\%1%2\examples" )");
        row("a backslash at the end is not escaped", "C:\\Gr\u00f6\u00dfe\\", "x64-win64", "D:\\",
            "--env HALCONROOT=\"C:\\Gr\u00f6\u00dfe\\\" --env HALCONARCH=\"x64-win64\" "
            R"(--env HALCONIMAGES="D:\\examples\images" --env HALCONEXAMPLES="D:\\examples" )");
    }

    void variables()
    {
        QFETCH(QString, installDir);
        QFETCH(QString, arch);
        QFETCH(QString, exampleRoot);
        QTEST(helperArguments(installationIn(installDir, arch, exampleRoot), false, false), "arguments");
    }
};

QTEST_GUILESS_MAIN(PermanentSwitchArgumentsTest)

#include "PermanentSwitchArgumentsTest.moc"
