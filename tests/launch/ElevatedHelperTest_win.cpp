#include "companions/common/WindowsHandle.h"
#include "launch/ElevatedHelper.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

namespace {

constexpr int notStarted = -1;

/// An event that keeps children from recording anything and from ending until it is set.
class ChildrenWait {
public:
    ChildrenWait() : event(CreateEventW(nullptr, TRUE, FALSE, L"ElevatedHelperTest"))
    {
        qputenv("ECHO_CHILD_EVENT", "ElevatedHelperTest");
    }
    ChildrenWait(const ChildrenWait &) = delete;
    ChildrenWait &operator=(const ChildrenWait &) = delete;
    ~ChildrenWait()
    {
        release();
        qunsetenv("ECHO_CHILD_EVENT");
    }
    void release() const { SetEvent(event.get()); }

private:
    WindowsHandle event;
};

} // namespace

class ElevatedHelperTest : public QObject {
    Q_OBJECT

private slots:
    void pathBesideTheProgram();
    void exitCode_data();
    void exitCode();
    void notStartable_data();
    void notStartable();
    void withoutWaiting_data();
    void withoutWaiting();
    void showCommand_data();
    void showCommand();
    void startsInTheProgramsDirectory();
    void argumentsAsTheyStand_data();
    void argumentsAsTheyStand();
    void executableInAnyDirectory_data();
    void executableInAnyDirectory();

private:
    QString path(const QString &name) const { return QDir::toNativeSeparators(directory.filePath(name)); }

    QTemporaryDir directory;
};

void ElevatedHelperTest::pathBesideTheProgram()
{
    QCOMPARE(helperExecutablePath(),
             QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + "\\qz_com_helper.exe");
    QVERIFY(!helperExecutablePath().contains('/'));
    // The path is returned whether or not the helper exists.
    QVERIFY(!QFile::exists(helperFile()));
    const ElevatedHelperProgram helper;
    QVERIFY(QFile::exists(helperExecutablePath()));
}

void ElevatedHelperTest::exitCode_data()
{
    QTest::addColumn<quint32>("exitCode");
    QTest::addColumn<int>("result");

    QTest::newRow("success") << 0u << 0;
    QTest::newRow("one") << 1u << 1;
    QTest::newRow("three") << 3u << 3;
    QTest::newRow("the code that stands for a process that is still running") << 259u << 259;
    QTest::newRow("largest") << 0x7fffffffu << 0x7fffffff;
    QTest::newRow("all bits") << 0xffffffffu << -1;
}

void ElevatedHelperTest::exitCode()
{
    QFETCH(quint32, exitCode);
    const ElevatedHelperProgram helper;
    const EchoChild child;
    EchoChild::exitWith(exitCode);

    QTEST(runElevated(helperExecutablePath(), "x", true, true), "result");

    // Its end was waited for.
    QVERIFY(child.hasRecord());
}

void ElevatedHelperTest::notStartable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("wait");

    for (const bool wait : {true, false}) {
        const QByteArray suffix = wait ? "" : ", not waited for";
        QTest::newRow("missing" + suffix) << "missing.exe" << wait;
        QTest::newRow("missing directory" + suffix) << "missing/tool.exe" << wait;
        QTest::newRow("no program" + suffix) << "text.exe" << wait;
        QTest::newRow("empty file" + suffix) << "empty.exe" << wait;
    }
}

void ElevatedHelperTest::notStartable()
{
    QFETCH(QString, name);
    QFETCH(bool, wait);
    QFile text(path("text.exe"));
    QVERIFY(text.open(QFile::WriteOnly) && text.write("no program\n") > 0);
    QVERIFY(QFile(path("empty.exe")).open(QFile::WriteOnly));
    text.close();
    const ElevatedHelperShellBox box;

    QCOMPARE(runElevated(path(name), "x", false, wait), notStarted);

    // The shell itself tells the user, too.
    QCOMPARE(box.closed(), 1);
}

void ElevatedHelperTest::withoutWaiting_data()
{
    QTest::addColumn<quint32>("exitCode");

    QTest::newRow("child succeeds") << 0u;
    QTest::newRow("child fails") << 3u;
}

void ElevatedHelperTest::withoutWaiting()
{
    QFETCH(quint32, exitCode);
    const ElevatedHelperProgram helper;
    const EchoChild child;
    EchoChild::exitWith(exitCode);
    const ChildrenWait children;

    QCOMPARE(runElevated(helperExecutablePath(), "x", true, false), 0);

    QVERIFY(!child.hasRecord());
    children.release();
    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
}

void ElevatedHelperTest::showCommand_data()
{
    QTest::addColumn<bool>("show");
    QTest::addColumn<int>("command");

    QTest::newRow("shown") << true << SW_SHOW;
    QTest::newRow("hidden") << false << SW_HIDE;
}

void ElevatedHelperTest::showCommand()
{
    QFETCH(bool, show);
    const ElevatedHelperProgram helper;
    const EchoChild child;

    QCOMPARE(runElevated(helperExecutablePath(), "x", show, true), 0);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QTEST(found.showCommand, "command");
}

void ElevatedHelperTest::startsInTheProgramsDirectory()
{
    EchoChild::copyTo(path("elsewhere/tool.exe"));
    const EchoChild child;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(directory.path()));

    const int result = runElevated(path("elsewhere/tool.exe"), "x", true, true);

    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(result, 0);
    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, path("elsewhere/tool.exe"));
    QCOMPARE(found.currentDirectory, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
}

void ElevatedHelperTest::argumentsAsTheyStand_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("one") << "--help";
    QTest::newRow("switch") << R"(--env HALCONROOT="C:\Program Files\H" --env HALCONIMAGES="" )";
    QTest::newRow("libraries") << R"(--env A="C:\x\" --x64 "C:\H\bin\x64-win64\halconx.dll")";
    QTest::newRow("copy") << R"(--copy="C:\H\license\a b.dat" "D:\my licences\a b.dat")";
    QTest::newRow("odd quote") << "a\"b";
    QTest::newRow("percent signs") << "%PATH% %1 %* 100%";
    QTest::newRow("carets, pipes and redirections") << "a ^& b | c > d < e";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe \u5bf8\u6cd5";
    QTest::newRow("spaces within") << "a  b   c";
    QTest::newRow("space at the end") << "a ";
    QTest::newRow("long") << QString(1500, 'x');
    QTest::newRow("very long") << QString(20000, 'x');
}

void ElevatedHelperTest::argumentsAsTheyStand()
{
    QFETCH(QString, arguments);
    const ElevatedHelperProgram helper;
    const EchoChild child;

    QCOMPARE(runElevated(helperExecutablePath(), arguments, true, true), 0);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" " + arguments);
}

void ElevatedHelperTest::executableInAnyDirectory_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "Program Files/my helper.exe";
    QTest::newRow("ampersand and parentheses") << "Black & White (x86)/helper.exe";
    QTest::newRow("percent signs and carets") << "100% %PATH% ^/helper.exe";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe \u5bf8\u6cd5/helper.exe";
}

/// Without arguments the command line is only the program.
void ElevatedHelperTest::executableInAnyDirectory()
{
    QFETCH(QString, name);
    EchoChild::copyTo(path(name));
    const EchoChild child;

    QCOMPARE(runElevated(path(name), "", true, true), 0);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, path(name));
    QCOMPARE(found.commandLine.trimmed(), '"' + path(name) + '"');
}

QTEST_GUILESS_MAIN(ElevatedHelperTest)

#include "ElevatedHelperTest_win.moc"
