#include "launch/ProcessStart.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

class ProcessStartTest : public QObject {
    Q_OBJECT

private slots:
    void init() { directory.reset(new QTemporaryDir); }
    void cleanup() { directory.reset(); }

    void commandLineIsTheArgumentsAlone_data()
    {
        columns<QString>("arguments");

        row("quotes, backslashes, spaces", "  /K \"\"C:\\a b\\\\\" x64\" \"b  ");
        row("signs that mean something to a shell", "%PATH% %1 ^& | c > d < e");
        row("not ASCII", "Größe 寸法 Размер");
        row("one space", " ");
        row("long", QString(30000, 'x'));
        row("none", "");
    }

    void commandLineIsTheArgumentsAlone()
    {
        QFETCH(QString, arguments);
        const QString executable = path("a tool.exe");
        EchoChild::copyTo(executable);
        const EchoChild child;
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(startProcess(executable, arguments, installationIn("C:\\H"), &errors));

        const EchoRecord record = child.record();
        // For an empty command line Windows substitutes the quoted executable; the child still
        // has no arguments.
        QVERIFY2(record.commandLine == arguments ||
                     (arguments.isEmpty() && record.commandLine == '"' + executable + '"'),
                 qPrintable(record.commandLine));
        // Without arguments, too, a space follows the executable.
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + executable + " " + arguments});
        QCOMPARE(errors, QStringList{"earlier line"});
    }

    void executableInAnyDirectory_data()
    {
        columns<QString>("name");

        row("parentheses and ampersand", "Program Files (x86)/Black & White/h develop.exe");
        row("percent signs, caret and apostrophe", "100% %PATH% ^ it's/tool.exe");
        row("not ASCII", "Größe 寸法 Размер/tool.exe");
        row("long", QString("a deep directory 0123456789/").repeated(6) + "tool.exe");
    }

    void executableInAnyDirectory()
    {
        QFETCH(QString, name);
        EchoChild::copyTo(path(name));
        QVERIFY(QDir(directory->path()).mkdir("current"));
        const CurrentDirectory current(path("current"));
        const EchoChild child;
        QStringList errors;

        QVERIFY2(startProcess(path(name), "x", installationIn("C:\\H"), &errors),
                 qPrintable(errors.join('\n')));

        const EchoRecord record = child.record();
        QCOMPARE(record.executable, path(name));
        QCOMPARE(record.commandLine, "x");
        QCOMPARE(record.currentDirectory, path("current"));
    }

    void failure_data()
    {
        columns<QString, quint32>("name", "code");

        row("missing executable", "missing.exe", WindowsError::fileNotFound);
        row("no executable", "text.exe", WindowsError::badExeFormat);
    }

    void failure()
    {
        QFETCH(QString, name);
        QFETCH(quint32, code);
        const QString executable = path(name);
        QFile text(path("text.exe"));
        QVERIFY(text.open(QFile::WriteOnly) && text.write("no program\n") > 0);
        text.close();
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(!startProcess(executable, "--x", installationIn("C:\\H"), &errors));
        QVERIFY(!startProcess(executable, "--x", installationIn("C:\\H"), nullptr));

        QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(code)}));
        // The caller reports the failure: only the attempts are logged.
        const QString line = "CreateProcess: " + executable + " --x";
        QCOMPARE(log.lines(), (QStringList{line, line}));
    }

    void failureIsTranslated()
    {
        const MarkingTranslator translator;
        const LogLines log;
        QStringList errors;

        QVERIFY(!startProcess(path("missing.exe"), "", installationIn("C:\\H"), &errors));

        QCOMPARE(errors, QStringList{'[' + createProcessErrorLine(WindowsError::fileNotFound) + ']'});
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + path("missing.exe") + " "});
    }

private:
    /// A path in this test's own directory, as Windows writes it.
    QString path(const QString &name) const { return QDir::toNativeSeparators(directory->filePath(name)); }

    QScopedPointer<QTemporaryDir> directory;
};

QTEST_GUILESS_MAIN(ProcessStartTest)

#include "ProcessStartTest_win.moc"
