#include "launch/CommandShell.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Messages.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstdlib>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 0);
    result.installDir = "C:\\Program Files\\HALCON Größe 寸法";
    result.exampleRoot = "D:\\Examples";
    result.arch = "x64-win64";
    return result;
}

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

/// Sets this program's ComSpec to another value until the end, to an empty one, or removes it.
class ComSpec {
public:
    explicit ComSpec(const QString &value) : before(qEnvironmentVariable("ComSpec")) { set(value); }
    ComSpec(const ComSpec &) = delete;
    ComSpec &operator=(const ComSpec &) = delete;
    ~ComSpec() { set(before); }

private:
    /// The wide function accepts every character; the 8-bit value that programs see is converted from it.
    static void set(const QString &value) { _wputenv_s(L"ComSpec", value.toStdWString().c_str()); }

    QString before;
};

} // namespace

class CommandShellStartTest : public QObject {
    Q_OBJECT

private slots:
    void started_data();
    void started();
    void failure_data();
    void failure();
    void interpreterBeyondCodePage();
    void failureWithoutErrorList();

private:
    QTemporaryDir directory;
};

void CommandShellStartTest::started_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << "cmd.exe";
    QTest::newRow("spaces") << "a shell/c m d.exe";
    QTest::newRow("another name") << "shell & (co).exe";
    QTest::newRow("8-bit letters") << "Größe/cmdé.exe";
}

void CommandShellStartTest::started()
{
    QFETCH(QString, name);
    const QString interpreter = QDir::toNativeSeparators(directory.filePath(name));
    EchoChild::copyTo(interpreter);
    const EchoChild child;
    const ComSpec comSpec(interpreter);
    const LogLines log;
    QStringList errors{"earlier line"};

    QVERIFY2(startShell(installation(), visualStudio(), &errors), qPrintable(errors.join('\n')));

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, interpreter);
    QCOMPARE(found.commandLine, shellArguments(installation(), visualStudio()));
    QVERIFY(found.commandLine.startsWith(
        "/K \"\"C:\\VC\\bin\\vcvars.bat\" & title HALCON 20.11.1 (x64-win64) & "));
    QVERIFY(found.commandLine.endsWith(" & cd /d \"C:\\Program Files\\HALCON Größe 寸法\"\""));
    QCOMPARE(found.variable("HALCONROOT"), "C:\\Program Files\\HALCON Größe 寸法");
    QCOMPARE(found.variable("HALCONARCH"), "x64-win64");
    QCOMPARE(found.variable("HALCONIMAGES"), "D:\\Examples\\examples\\images");
    QCOMPARE(found.variable("HALCONEXAMPLES"), "D:\\Examples\\examples");
    QCOMPARE(found.variable("PATH"),
             "C:\\Program Files\\HALCON Größe 寸法\\bin\\x64-win64;" + qEnvironmentVariable("PATH"));
    QCOMPARE(errors, QStringList{"earlier line"});
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter + ' ' + found.commandLine});
}

void CommandShellStartTest::failure_data()
{
    QTest::addColumn<QString>("interpreter");
    QTest::addColumn<quint32>("code");

    constexpr quint32 pathNotFound = 3;
    QTest::newRow("no ComSpec") << "" << pathNotFound;
    QTest::newRow("missing interpreter") << "C:\\missing.exe" << WindowsError::fileNotFound;
    QTest::newRow("missing directory") << "C:\\missing\\cmd.exe" << pathNotFound;
}

void CommandShellStartTest::failure()
{
    QFETCH(QString, interpreter);
    QFETCH(quint32, code);
    const ComSpec comSpec(interpreter);
    const LogLines log;
    QStringList errors{"earlier line"};

    QVERIFY(!startShell(installation(), visualStudio(), &errors));

    QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(code)}));
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter + ' ' +
                                      shellArguments(installation(), visualStudio())});
}

/// ComSpec is read as an 8-bit string, which cannot hold a letter outside the system's code page.
void CommandShellStartTest::interpreterBeyondCodePage()
{
    const QString interpreter = QDir::toNativeSeparators(directory.filePath("寸.exe"));
    EchoChild::copyTo(interpreter);
    const ComSpec comSpec(interpreter);
    const LogLines log;
    QStringList errors;

    QVERIFY(!startShell(installation(), visualStudio(), &errors));

    QString shown = interpreter;
    shown.replace("寸", "?");
    QCOMPARE(log.lines(),
             QStringList{"CreateProcess: " + shown + ' ' + shellArguments(installation(), visualStudio())});
    constexpr quint32 invalidName = 123;
    QCOMPARE(errors, QStringList{createProcessErrorLine(invalidName)});
}

void CommandShellStartTest::failureWithoutErrorList()
{
    const ComSpec comSpec("C:\\missing.exe");
    const LogLines log;

    QVERIFY(!startShell(installation(), visualStudio(), nullptr));

    QCOMPARE(log.lines(),
             QStringList{"CreateProcess: C:\\missing.exe " + shellArguments(installation(), visualStudio())});
}

QTEST_GUILESS_MAIN(CommandShellStartTest)

#include "CommandShellStartTest_win.moc"
