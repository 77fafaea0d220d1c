#include "launch/ProcessStart.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/EchoChild.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Messages.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 3);
    result.installDir = "C:\\H";
    result.arch = "x64-win64";
    return result;
}

} // namespace

class ProcessStartTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void commandLineIsTheArgumentsAlone_data();
    void commandLineIsTheArgumentsAlone();
    void emptyArguments();
    void executableInAnyDirectory_data();
    void executableInAnyDirectory();
    void currentDirectoryIsInherited();
    void successLeavesTheErrorListAlone();
    void logLine_data();
    void logLine();
    void failure_data();
    void failure();
    void failureIsTranslated();
    void failureWithoutErrorList();

private:
    /// A path in this test's own directory, as Windows writes it.
    QString path(const QString &name) const;

    QScopedPointer<QTemporaryDir> directory;
};

void ProcessStartTest::init()
{
    directory.reset(new QTemporaryDir);
    QVERIFY(directory->isValid());
}

void ProcessStartTest::cleanup()
{
    directory.reset();
}

QString ProcessStartTest::path(const QString &name) const
{
    return QDir::toNativeSeparators(directory->filePath(name));
}

void ProcessStartTest::commandLineIsTheArgumentsAlone_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("one argument") << "--halconversion=13.0";
    QTest::newRow("several arguments") << "/K title x & cd /d C:\\";
    QTest::newRow("quotes") << "/K \"\"C:\\Program Files\\a.bat\" x64\" \"b\"";
    QTest::newRow("odd quote") << "a\"b";
    QTest::newRow("backslashes before a quote") << "\"C:\\a\\\\\" b\\";
    QTest::newRow("percent signs") << "%PATH% %1 100%";
    QTest::newRow("carets, pipes and redirections") << "a ^& b | c > d < e";
    QTest::newRow("not ASCII") << "Größe 寸法 Размер";
    QTest::newRow("leading and trailing spaces") << "  a  b  ";
    QTest::newRow("one space") << " ";
    QTest::newRow("long") << QString(30000, 'x');
}

void ProcessStartTest::commandLineIsTheArgumentsAlone()
{
    QFETCH(QString, arguments);
    EchoChild::copyTo(path("tool.exe"));
    const EchoChild child;

    QVERIFY(startProcess(path("tool.exe"), arguments, installation(), nullptr));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
    QCOMPARE(record.commandLine, arguments);
}

/// For an empty command line Windows substitutes the quoted executable; the child still has no arguments.
void ProcessStartTest::emptyArguments()
{
    EchoChild::copyTo(path("a tool.exe"));
    const EchoChild child;

    QVERIFY(startProcess(path("a tool.exe"), "", installation(), nullptr));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
    const QStringList withoutArguments{"", '"' + path("a tool.exe") + '"'};
    QVERIFY2(withoutArguments.contains(record.commandLine), qPrintable(record.commandLine));
}

void ProcessStartTest::executableInAnyDirectory_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << "bin/hdevelop.exe";
    QTest::newRow("spaces") << "Program Files/HALCON 20.11/h develop.exe";
    QTest::newRow("ampersand") << "Black & White/tool.exe";
    QTest::newRow("parentheses") << "Program Files (x86)/tool.exe";
    QTest::newRow("percent signs and carets") << "100% %PATH% ^/tool.exe";
    QTest::newRow("apostrophe and comma") << "it's, so/tool.exe";
    QTest::newRow("not ASCII") << "Größe 寸法 Размер/tool.exe";
    QTest::newRow("long") << QString("a deep directory 0123456789/").repeated(6) + "tool.exe";
}

void ProcessStartTest::executableInAnyDirectory()
{
    QFETCH(QString, name);
    EchoChild::copyTo(path(name));
    const EchoChild child;
    QStringList errors;

    QVERIFY2(startProcess(path(name), "x", installation(), &errors), qPrintable(errors.join('\n')));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
    QCOMPARE(record.executable, path(name));
    QCOMPARE(record.commandLine, "x");
}

void ProcessStartTest::currentDirectoryIsInherited()
{
    EchoChild::copyTo(path("bin/tool.exe"));
    QVERIFY(QDir(directory->path()).mkdir("current"));
    const CurrentDirectory current(path("current"));
    const EchoChild child;

    QVERIFY(startProcess(path("bin/tool.exe"), "x", installation(), nullptr));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
    QCOMPARE(record.currentDirectory, path("current"));
    QCOMPARE(QDir::toNativeSeparators(QDir::currentPath()), path("current"));
}

void ProcessStartTest::successLeavesTheErrorListAlone()
{
    EchoChild::copyTo(path("tool.exe"));
    const EchoChild child;
    QStringList errors{"earlier line"};

    QVERIFY(startProcess(path("tool.exe"), "x", installation(), &errors));

    QCOMPARE(errors, QStringList{"earlier line"});
    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
}

void ProcessStartTest::logLine_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("arguments") << "--halconversion=13.0 \"a b\" %1";
    QTest::newRow("no arguments: the space stays") << "";
}

void ProcessStartTest::logLine()
{
    QFETCH(QString, arguments);
    EchoChild::copyTo(path("my tool.exe"));
    const EchoChild child;
    const LogLines log;

    QVERIFY(startProcess(path("my tool.exe"), arguments, installation(), nullptr));

    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + path("my tool.exe") + " " + arguments});
    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
}

void ProcessStartTest::failure_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("code");

    QTest::newRow("missing executable") << "missing.exe" << WindowsError::fileNotFound;
    QTest::newRow("no executable") << "text.exe" << WindowsError::badExeFormat;
}

void ProcessStartTest::failure()
{
    QFETCH(QString, name);
    QFETCH(quint32, code);
    const QString executable = path(name);
    QFile text(path("text.exe"));
    QVERIFY(text.open(QFile::WriteOnly) && text.write("no program\n") > 0);
    text.close();
    const LogLines log;
    QStringList errors{"earlier line"};

    QVERIFY(!startProcess(executable, "--x", installation(), &errors));

    QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(code)}));
    // The caller reports the failure: only the attempt is logged.
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + executable + " --x"});
}

void ProcessStartTest::failureIsTranslated()
{
    const MarkingTranslator translator;
    const LogLines log;
    QStringList errors;

    QVERIFY(!startProcess(path("missing.exe"), "", installation(), &errors));

    QCOMPARE(errors, QStringList{'[' + createProcessErrorLine(WindowsError::fileNotFound) + ']'});
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + path("missing.exe") + " "});
}

void ProcessStartTest::failureWithoutErrorList()
{
    const LogLines log;

    QVERIFY(!startProcess(path("missing.exe"), "", installation(), nullptr));

    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + path("missing.exe") + " "});
}

QTEST_GUILESS_MAIN(ProcessStartTest)

#include "ProcessStartTest_win.moc"
