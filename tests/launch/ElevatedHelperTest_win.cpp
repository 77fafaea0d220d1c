#include "companions/common/WindowsHandle.h"
#include "launch/ElevatedHelper.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/Rows.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

namespace {

constexpr int notStarted = -1;

} // namespace

class ElevatedHelperTest : public QObject {
    Q_OBJECT

private slots:
    void pathBesideTheProgram()
    {
        QCOMPARE(helperExecutablePath(),
                 QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + "\\qz_com_helper.exe");
    }

    void exitCode_data()
    {
        columns<quint32, int>("exitCode", "result");

        row<quint32>("success", 0, 0);
        row<quint32>("failure", 3, 3);
        row<quint32>("the code that stands for a process that is still running", 259, 259);
        row<quint32>("all bits", 0xffffffff, -1);
    }

    void exitCode()
    {
        QFETCH(quint32, exitCode);
        const ElevatedHelperProgram helper;
        const EchoChild child;
        EchoChild::exitWith(exitCode);

        QTEST(runElevated(helperExecutablePath(), "x", true, true), "result");

        // Its end was waited for.
        QVERIFY(child.hasRecord());
    }

    void notStartable_data()
    {
        columns<QString, bool>("name", "wait");

        row("missing", "missing/tool.exe", true);
        row("missing, not waited for", "missing/tool.exe", false);
        row("no program", "text.exe", true);
    }

    void notStartable()
    {
        QFETCH(QString, name);
        QFETCH(bool, wait);
        QFile text(path("text.exe"));
        QVERIFY(text.open(QFile::WriteOnly) && text.write("no program\n") > 0);
        text.close();
        const ElevatedHelperShellBox box;

        QCOMPARE(runElevated(path(name), "x", false, wait), notStarted);

        // The shell itself tells the user, too.
        QCOMPARE(box.closed(), 1);
    }

    void withoutWaiting()
    {
        const ElevatedHelperProgram helper;
        const EchoChild child;
        EchoChild::exitWith(3);
        // Keeps the child from recording anything and from ending until it is set.
        const WindowsHandle event(CreateEventW(nullptr, TRUE, FALSE, L"ElevatedHelperTest"));
        const EnvironmentVariable nameOfTheEvent("ECHO_CHILD_EVENT", "ElevatedHelperTest");

        QCOMPARE(runElevated(helperExecutablePath(), "x", false, false), 0);

        QVERIFY(!child.hasRecord());
        SetEvent(event.get());
        const EchoRecord found = child.record();
        QCOMPARE(found.showCommand, SW_HIDE);
    }

    void argumentsAsTheyStand_data()
    {
        columns<QString>("arguments");

        row("switch", R"(--env HALCONROOT="C:\Program Files\H" --env A="C:\x\" --x64 "C:\H\halconx.dll")");
        row("copy", R"(--copy="C:\H\license\a b.dat" "D:\my licences\a b.dat")");
        row("odd quote, space at the end", "a\"b  c ");
        row("signs that mean something to a shell", "%PATH% %1 %* ^& b | c > d < e");
        row("not ASCII", "Gr\u00f6\u00dfe \u5bf8\u6cd5");
        row("long", QString(20000, 'x'));
    }

    void argumentsAsTheyStand()
    {
        QFETCH(QString, arguments);
        const ElevatedHelperProgram helper;
        const EchoChild child;

        QCOMPARE(runElevated(helperExecutablePath(), arguments, true, true), 0);

        const EchoRecord found = child.record();
        QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" " + arguments);
        QCOMPARE(found.showCommand, SW_SHOW);
    }

    void executableInAnyDirectory_data()
    {
        columns<QString>("name");

        row("spaces, ampersand and parentheses", "Black & White (x86)/my helper.exe");
        row("percent signs and carets", "100% %PATH% ^/helper.exe");
        row("not ASCII", "Gr\u00f6\u00dfe \u5bf8\u6cd5/helper.exe");
    }

    /// It starts in the program's directory. Without arguments the command line is only the executable.
    void executableInAnyDirectory()
    {
        QFETCH(QString, name);
        EchoChild::copyTo(path(name));
        const EchoChild child;
        const CurrentDirectory current(directory.path());

        QCOMPARE(runElevated(path(name), "", true, true), 0);

        const EchoRecord found = child.record();
        QCOMPARE(found.executable, path(name));
        QCOMPARE(found.commandLine.trimmed(), '"' + path(name) + '"');
        QCOMPARE(found.currentDirectory, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    }

private:
    QString path(const QString &name) const { return QDir::toNativeSeparators(directory.filePath(name)); }

    QTemporaryDir directory;
};

QTEST_GUILESS_MAIN(ElevatedHelperTest)

#include "ElevatedHelperTest_win.moc"
