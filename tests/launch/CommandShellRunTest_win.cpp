// The real shell: the screen and the title of its console, and the environment of a program started in it.

#include "launch/CommandShell.h"
#include "tests/companions/TestConsole.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString colourTool()
{
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + "\\huebox.exe";
}

/// What the command interpreter itself prints for @p command in a chain, as lines. Its messages differ
/// between systems, but are ASCII in these tests.
QStringList answerTo(const QString &command)
{
    QProcess interpreter;
    interpreter.setProgram(qEnvironmentVariable("ComSpec"));
    interpreter.setNativeArguments("/C \"" + command + " & rem\"");
    interpreter.setProcessChannelMode(QProcess::MergedChannels);
    interpreter.start();
    if (!interpreter.waitForFinished(patienceMilliseconds)) {
        qFatal("no answer to %s", qPrintable(command));
    }
    QStringList lines = QString::fromLatin1(interpreter.readAll()).split("\r\n");
    lines.removeLast();
    return lines;
}

/// Like a real script: sets variables, prepends the directory @p tools to PATH, and changes the current
/// directory.
QByteArrayList scriptLines(const QString &tools)
{
    return {
        "@echo off",
        "set BUILD_ENVIRONMENT=on",
        "set \"SEEN_ROOT=%HALCONROOT%\"",
        "set \"PATH=" + tools.toLatin1() + ";%PATH%\"",
        "cd /d C:\\",
    };
}

} // namespace

class CommandShellRunTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        directory.reset(new QTemporaryDir);
        QVERIFY(directory->isValid());
        // Copied again, because one case removes it, and it may be out of date.
        QVERIFY(!QFile::exists(colourTool()) || QFile::remove(colourTool()));
        QVERIFY(QFile::copy(HUEBOX_EXECUTABLE, colourTool()));
        EchoChild::copyTo(path("tools/report.exe"));

        installation = installationIn(QString());
        makeInstallation("HALCON-20.11");
        visualStudio = {"", "Professional", "14.0", "amd64", "", "", "", "devenv", "", false};
        makeScript("VC/vcvars.bat", scriptLines(path("tools")));
        banner = QStringList{
            "HALCON 20.11.1.3 (x64-win64)",
            "type 'devenv' to launch Visual Studio 14.0 (Professional) (amd64)",
            "type 'hdevelop.exe' to launch HDevelop (20.11.1.3 (x64-win64))",
        };
    }

    void cleanup() { directory.reset(); }

    void colourTellsArchitecture_data()
    {
        columns<QString, int>("arch", "colour");

        constexpr int intense = 8;
        row("64-bit: red", "x64-win64", (4 | intense));
        row("SSE2: green", "x86sse2-win32", (2 | intense));
        row("32-bit: blue", "x86-win32", (1 | intense));
    }

    void colourTellsArchitecture()
    {
        QFETCH(QString, arch);
        QFETCH(int, colour);
        installation.arch = arch;
        banner.replaceInStrings("x64-win64", arch);

        run(banner);

        QCOMPARE(colours, QVector<quint16>(3, quint16(colour)));
        QCOMPARE(colourAfter, colourBefore);
        // The space that separates the command from the next one is part of the title.
        QCOMPARE(title, "HALCON 20.11.1.3 (" + arch + ") ");
        // The shell finds the script's programs first, and the script could use HALCON's variables.
        QCOMPARE(found.executable, path("tools\\report.exe"));
        QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
        QCOMPARE(found.variable("SEEN_ROOT"), installation.installDir);
        QCOMPARE(found.variable("PATH"), path("tools") + ';' + installation.installDir + "\\bin\\" + arch +
                                             ';' + qEnvironmentVariable("PATH"));
    }

    void nameOfDirectory_data()
    {
        columns<QString>("name");

        row("spaces, parentheses, ampersands", "HALCON (x64)  Black & White&Co");
        row("percent signs", "100% %NO SUCH NAME% HALCON");
        row("caret, apostrophe, comma, equals sign, exclamation marks", "a^b it's, c=d !PATH!");
        row("beyond the code page", "Größe 寸法 Размер 😀");
    }

    void nameOfDirectory()
    {
        QFETCH(QString, name);
        makeInstallation(name);
        // Not every version of the interpreter preserves a percent sign in the value of %PATH%.
        makeScript("VC/vcvars.bat", {"@echo off", "set BUILD_ENVIRONMENT=on", "cd /d C:\\"});

        run(banner);

        QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
        QCOMPARE(found.executable, installation.installDir + "\\bin\\x64-win64\\report.exe");
        QCOMPARE(found.variable("PATH"),
                 installation.installDir + "\\bin\\x64-win64;" + qEnvironmentVariable("PATH"));
    }

    void nameOfScript_data()
    {
        columns<QString>("name");

        row("spaces, parentheses, ampersands", "Program Files (x86)/Black & White&Co/vc & vars(64).bat");
        row("percent sign, caret, apostrophe, exclamation marks", "100% V^C it's !PATH!/vc^vars.bat");
        row("beyond the code page", "Größe 寸法 Размер 😀/寸ä.bat");
        row("the command interpreter's other kind of script", "VC/vcvars.cmd");
    }

    void nameOfScript()
    {
        QFETCH(QString, name);
        makeScript(name, scriptLines(path("tools")));

        run(banner);

        QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
        QCOMPARE(found.executable, path("tools\\report.exe"));
    }

    void editionInBanner_data()
    {
        columns<QString, QString>("edition", "shown");

        row("signs that stay", "Developer's (2022) 100% free a!PATH!",
            "Developer's (2022) 100% free a!PATH!");
        row("not ASCII", "Größe 寸法 Размер 😀", "Größe 寸法 Размер 😀");
        row("several spaces become one, carets are lost", "A   B^C^^D", "A BC^D");
        row("quotes are lost, what they enclose stays", "\"A  & B\"", "A  & B");
        row("variable's value instead of its name", "for %HALCONARCH%", "for x64-win64");
    }

    void editionInBanner()
    {
        QFETCH(QString, edition);
        QFETCH(QString, shown);
        visualStudio.edition = edition;

        run(banner.replaceInStrings("Professional", shown));
    }

    void nothingThere_data()
    {
        columns<QString>("script");

        row("missing script", "C:\\missing\\vcvars.bat");
        row("no script", "");
    }

    /// Without script, colour tool and directory the shell opens all the same, and the interpreter complains.
    void nothingThere()
    {
        QFETCH(QString, script);
        visualStudio.vcvarsBat = script;
        QVERIFY(QFile::remove(colourTool()));
        QStringList answers = answerTo('"' + script + '"');
        for (const QString &line : banner) {
            answers += answerTo('"' + colourTool() + "\" --fgred --fgint " + line);
        }
        // The shell stays in the program's directory, where the test finds the program that it starts.
        const CurrentDirectory current(path("tools"));
        prompt = path("tools");
        installation.installDir = path("missing");

        run(answers + answerTo("cd /d \"" + installation.installDir + '"'));

        QCOMPARE(title, "HALCON 20.11.1.3 (x64-win64) ");
        QCOMPARE(found.variable("PATH"),
                 installation.installDir + "\\bin\\x64-win64;" + qEnvironmentVariable("PATH"));
        QVERIFY(found.variable("BUILD_ENVIRONMENT").isNull());
    }

private:
    /// A path in this test's own directory, as Windows writes it.
    QString path(const QString &name) const { return QDir::toNativeSeparators(directory->filePath(name)); }

    /// Makes the directory @p name and sets it as the installation's.
    void makeInstallation(const QString &name)
    {
        installation.installDir = path(name);
        prompt = installation.installDir;
        EchoChild::copyTo(installation.installDir + "\\bin\\x64-win64\\report.exe");
    }

    /// Writes the script of Visual Studio.
    void makeScript(const QString &name, const QByteArrayList &lines)
    {
        visualStudio.vcvarsBat = path(name);
        QVERIFY(QDir().mkpath(QFileInfo(visualStudio.vcvarsBat).path()));
        QFile script(visualStudio.vcvarsBat);
        QVERIFY(script.open(QFile::WriteOnly));
        script.write(lines.join("\r\n") + "\r\n");
    }

    /// Opens the shell and waits until the console shows @p lines and then the prompt. Then starts a program
    /// in the shell, stores its record in found, and ends the shell.
    void run(const QStringList &lines)
    {
        const EchoChild child;
        TestConsole console;
        colourBefore = console.attributes();
        QStringList errors;

        QVERIFY2(startShell(installation, visualStudio, &errors), qPrintable(errors.join('\n')));

        const QStringList screen = lines + QStringList{"", prompt + '>'};
        EVENTUALLY_COMPARE(console.lines(), screen);
        colours.clear();
        for (int line = 0; line < lines.size(); ++line) {
            colours += console.attributes(line, 1);
        }
        colourAfter = console.attributes();
        title = console.title();

        console.type("report");
        found = child.record();
        console.type("exit");
        EVENTUALLY_COMPARE(console.otherProcesses(), 0);
        QCOMPARE(found.currentDirectory, prompt);
        QCOMPARE(found.variable("HALCONROOT"), installation.installDir);
        QCOMPARE(found.variable("HALCONARCH"), installation.arch);
    }

    QScopedPointer<QTemporaryDir> directory;
    HalconInstallation installation = installationIn(QString());
    VisualStudioVersion visualStudio;
    QString prompt; ///< the shell's current directory at the end
    QStringList banner;
    QVector<quint16> colours; ///< of the screen's lines, by their first characters
    quint16 colourBefore = 0;
    quint16 colourAfter = 0;
    QString title;
    EchoRecord found;
};

QTEST_GUILESS_MAIN(CommandShellRunTest)

#include "CommandShellRunTest_win.moc"
