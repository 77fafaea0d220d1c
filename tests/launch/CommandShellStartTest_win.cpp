#include "launch/CommandShell.h"
#include "tests/launch/WideVariable.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const HalconInstallation installation =
    installationIn("C:\\Program Files\\HALCON Größe 寸法", "x64-win64", "D:\\Examples");

VisualStudioVersion visualStudio()
{
    VisualStudioVersion result;
    result.edition = "Professional";
    result.version = "14.0";
    result.architecture = "amd64";
    result.vcvarsBat = "C:\\VC\\bin\\vcvars.bat";
    result.ideName = "devenv";
    return result;
}

} // namespace

class CommandShellStartTest : public QObject {
    Q_OBJECT

private slots:
    void started_data()
    {
        columns<QString>("name");

        row("another name", "a shell/shell & (co).exe");
        row("8-bit letters", "Größe/cmdé.exe");
    }

    void started()
    {
        QFETCH(QString, name);
        const QString interpreter = QDir::toNativeSeparators(directory.filePath(name));
        EchoChild::copyTo(interpreter);
        const EchoChild child;
        const WideVariable comSpec("ComSpec", interpreter);
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY2(startShell(installation, visualStudio(), &errors), qPrintable(errors.join('\n')));

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.executable, interpreter);
        QCOMPARE(found.commandLine, shellArguments(installation, visualStudio()));
        QVERIFY(found.commandLine.startsWith(
            "/K \"\"C:\\VC\\bin\\vcvars.bat\" & title HALCON 20.11.1.3 (x64-win64) & "));
        QVERIFY(found.commandLine.endsWith(" & cd /d \"C:\\Program Files\\HALCON Größe 寸法\"\""));
        QCOMPARE(found.variable("HALCONROOT"), "C:\\Program Files\\HALCON Größe 寸法");
        QCOMPARE(found.variable("HALCONEXAMPLES"), "D:\\Examples\\examples");
        QCOMPARE(found.variable("PATH"),
                 "C:\\Program Files\\HALCON Größe 寸法\\bin\\x64-win64;" + qEnvironmentVariable("PATH"));
        QCOMPARE(errors, QStringList{"earlier line"});
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter + ' ' + found.commandLine});
    }

    void failure_data()
    {
        columns<QString, quint32>("interpreter", "code");

        constexpr quint32 pathNotFound = 3;
        row("no ComSpec", "", pathNotFound);
        row("missing directory", "C:\\missing\\cmd.exe", pathNotFound);
    }

    void failure()
    {
        QFETCH(QString, interpreter);
        QFETCH(quint32, code);
        const WideVariable comSpec("ComSpec", interpreter);
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(!startShell(installation, visualStudio(), &errors));

        QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(code)}));
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter + ' ' +
                                          shellArguments(installation, visualStudio())});
    }

    /// ComSpec is read as an 8-bit string, which cannot hold a letter outside the system's code page.
    void interpreterBeyondCodePage()
    {
        const QString interpreter = QDir::toNativeSeparators(directory.filePath("寸.exe"));
        EchoChild::copyTo(interpreter);
        const WideVariable comSpec("ComSpec", interpreter);
        const LogLines log;
        QStringList errors;

        QVERIFY(!startShell(installation, visualStudio(), &errors));

        QString shown = interpreter;
        shown.replace("寸", "?");
        QCOMPARE(log.lines(),
                 QStringList{"CreateProcess: " + shown + ' ' + shellArguments(installation, visualStudio())});
        constexpr quint32 invalidName = 123;
        QCOMPARE(errors, QStringList{createProcessErrorLine(invalidName)});
    }

private:
    QTemporaryDir directory;
};

QTEST_GUILESS_MAIN(CommandShellStartTest)

#include "CommandShellStartTest_win.moc"
