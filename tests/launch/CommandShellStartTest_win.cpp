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

const VisualStudioVersion visualStudio{
    "", "Professional", "14.0", "amd64", "", "", "C:\\VC\\bin\\vcvars.bat", "devenv", "", false};

QString expectedArguments()
{
    return shellArguments(installation, visualStudio);
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

        QVERIFY2(startShell(installation, visualStudio, &errors), qPrintable(errors.join('\n')));

        const EchoRecord found = child.record();
        QCOMPARE(found.executable, interpreter);
        QCOMPARE(found.commandLine, expectedArguments());
        QCOMPARE(found.variable("HALCONROOT"), "C:\\Program Files\\HALCON Größe 寸法");
        QCOMPARE(errors, QStringList{"earlier line"});
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter + ' ' + expectedArguments()});
    }

    void noInterpreter()
    {
        const WideVariable comSpec("ComSpec", QString());
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(!startShell(installation, visualStudio, &errors));

        constexpr quint32 pathNotFound = 3;
        QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(pathNotFound)}));
        QCOMPARE(log.lines(), QStringList{"CreateProcess:  " + expectedArguments()});
    }

    /// ComSpec is read as an 8-bit string, which cannot hold a letter outside the system's code page.
    void interpreterBeyondCodePage()
    {
        const QString interpreter = QDir::toNativeSeparators(directory.filePath("寸.exe"));
        EchoChild::copyTo(interpreter);
        const WideVariable comSpec("ComSpec", interpreter);
        const LogLines log;
        QStringList errors;

        QVERIFY(!startShell(installation, visualStudio, &errors));

        QString shown = interpreter;
        shown.replace("寸", "?");
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + shown + ' ' + expectedArguments()});
        constexpr quint32 invalidName = 123;
        QCOMPARE(errors, QStringList{createProcessErrorLine(invalidName)});
    }

private:
    QTemporaryDir directory;
};

QTEST_GUILESS_MAIN(CommandShellStartTest)

#include "CommandShellStartTest_win.moc"
