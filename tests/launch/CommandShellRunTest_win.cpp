// The real shell: the screen and the title of its console, and the environment of a program started in it.

#include "launch/CommandShell.h"
#include "tests/companions/TestConsole.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Patience.h"

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
    void init();
    void cleanup();
    void colourTellsArchitecture_data();
    void colourTellsArchitecture();
    void nameOfDirectory_data();
    void nameOfDirectory();
    void programsByTheirNames_data();
    void programsByTheirNames();
    void nameOfScript_data();
    void nameOfScript();
    void editionInBanner_data();
    void editionInBanner();
    void editionCutsBanner_data();
    void editionCutsBanner();
    void editionRedirectsBanner();
    void editionReadsFile();
    void halconEditionCutsTitle();
    void missingDirectory();
    void directoryNamedLikeVariable();
    void failingScript();
    void missingScript_data();
    void missingScript();
    void scriptNamedLikeVariable();
    void missingColourTool();

private:
    /// A path in this test's own directory, as Windows writes it.
    QString path(const QString &name) const;

    /// Makes the directory @p name and sets it as the installation's.
    void makeInstallation(const QString &name);

    /// Writes the script of Visual Studio.
    void makeScript(const QString &name, const QByteArrayList &lines);

    /// Opens the shell and waits until the console shows @p lines and then the prompt. Then starts a program
    /// in the shell, stores its record in found, and ends the shell.
    void run(const QStringList &lines);

    QScopedPointer<QTemporaryDir> directory;
    HalconInstallation installation{20, 11, 1, 0};
    VisualStudioVersion visualStudio;
    QString prompt; ///< the shell's current directory at the end
    QStringList banner;
    QVector<quint16> colours; ///< of the screen's lines, by their first characters
    quint16 colourBefore = 0;
    quint16 colourAfter = 0;
    QString title;
    EchoRecord found;
};

void CommandShellRunTest::init()
{
    directory.reset(new QTemporaryDir);
    QVERIFY(directory->isValid());
    // Copied again, because one case removes it, and it may be out of date.
    QVERIFY(!QFile::exists(colourTool()) || QFile::remove(colourTool()));
    QVERIFY(QFile::copy(HUEBOX_EXECUTABLE, colourTool()));
    EchoChild::copyTo(path("tools/report.exe"));

    installation = HalconInstallation(20, 11, 1, 0);
    installation.arch = "x64-win64";
    makeInstallation("HALCON-20.11");
    visualStudio = VisualStudioVersion();
    visualStudio.edition = "Professional";
    visualStudio.version = "14.0";
    visualStudio.architecture = "amd64";
    visualStudio.ideName = "devenv";
    makeScript("VC/vcvars.bat", scriptLines(path("tools")));
    banner = QStringList{
        "HALCON 20.11.1 (x64-win64)",
        "type 'devenv' to launch Visual Studio 14.0 (Professional) (amd64)",
        "type 'hdevelop.exe' to launch HDevelop (20.11.1 (x64-win64))",
    };
}

void CommandShellRunTest::cleanup()
{
    directory.reset();
}

QString CommandShellRunTest::path(const QString &name) const
{
    return QDir::toNativeSeparators(directory->filePath(name));
}

void CommandShellRunTest::makeInstallation(const QString &name)
{
    installation.installDir = path(name);
    prompt = installation.installDir;
    EchoChild::copyTo(installation.installDir + "\\bin\\x64-win64\\report.exe");
}

void CommandShellRunTest::makeScript(const QString &name, const QByteArrayList &lines)
{
    visualStudio.vcvarsBat = path(name);
    QVERIFY(QDir().mkpath(QFileInfo(visualStudio.vcvarsBat).path()));
    QFile script(visualStudio.vcvarsBat);
    QVERIFY(script.open(QFile::WriteOnly));
    script.write(lines.join("\r\n") + "\r\n");
}

void CommandShellRunTest::run(const QStringList &lines)
{
    const EchoChild child;
    TestConsole console;
    colourBefore = console.attributes();
    found = EchoRecord();
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
    QVERIFY(child.waitForRecord(found));
    console.type("exit");
    EVENTUALLY_COMPARE(console.otherProcesses(), 0);
    // The title is "HALCON 20.11.1 (x64-win64) ": the space before the next command is part of it.
    QCOMPARE(found.currentDirectory, prompt);
    QCOMPARE(found.variable("HALCONROOT"), installation.installDir);
    QCOMPARE(found.variable("HALCONARCH"), installation.arch);
}

void CommandShellRunTest::colourTellsArchitecture_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<int>("colour");

    constexpr int intense = 8;
    QTest::newRow("64-bit: red") << "x64-win64" << (4 | intense);
    QTest::newRow("SSE2: green") << "x86sse2-win32" << (2 | intense);
    QTest::newRow("32-bit: blue") << "x86-win32" << (1 | intense);
}

void CommandShellRunTest::colourTellsArchitecture()
{
    QFETCH(QString, arch);
    QFETCH(int, colour);
    installation.arch = arch;
    banner.replaceInStrings("x64-win64", arch);

    run(banner);

    QCOMPARE(colours, QVector<quint16>(3, quint16(colour)));
    QCOMPARE(colourAfter, colourBefore);
    // The space that separates the command from the next one is part of the title.
    QCOMPARE(title, "HALCON 20.11.1 (" + arch + ") ");
    // The shell finds the script's programs first, and the script could use HALCON's variables.
    QCOMPARE(found.executable, path("tools\\report.exe"));
    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
    QCOMPARE(found.variable("SEEN_ROOT"), installation.installDir);
    QCOMPARE(found.variable("PATH"), path("tools") + ';' + installation.installDir + "\\bin\\" + arch + ';' +
                                         qEnvironmentVariable("PATH"));
}

void CommandShellRunTest::nameOfDirectory_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "HALCON 20.11  Steady";
    QTest::newRow("parentheses") << "HALCON (x64)";
    QTest::newRow("ampersand") << "Black & White&Co";
    QTest::newRow("percent sign") << "100% HALCON";
    QTest::newRow("percent signs around no variable's name") << "%NO SUCH NAME% HALCON";
    QTest::newRow("caret") << "HALCON^20";
    QTest::newRow("apostrophe") << "it's HALCON";
    QTest::newRow("comma, equals sign") << "a,b=c";
    QTest::newRow("exclamation marks") << "HALCON!PATH!";
    QTest::newRow("umlauts") << "Größe";
    QTest::newRow("beyond the code page") << "寸法 Размер 😀";
}

void CommandShellRunTest::nameOfDirectory()
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

void CommandShellRunTest::programsByTheirNames_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("outcome");

    QTest::newRow("found") << "HALCON, 20.11"
                           << "found";
    QTest::newRow("PATH cannot hold a semicolon") << "HALCON; 20.11"
                                                  << "missing";
}

/// Whether HALCON's programs are found by name; everything else in the shell is unchanged.
void CommandShellRunTest::programsByTheirNames()
{
    QFETCH(QString, directory);
    makeInstallation(directory);
    QVERIFY(QFile::copy(HUEBOX_EXECUTABLE, installation.installDir + "\\bin\\x64-win64\\halcontool.exe"));
    makeScript("VC/vcvars.bat", QByteArrayList{"@echo off", "set HALCON_TOOL=found", "halcontool >nul 2>nul",
                                               "if errorlevel 1 set HALCON_TOOL=missing"} +
                                    scriptLines(path("tools")));

    run(banner);

    QTEST(found.variable("HALCON_TOOL"), "outcome");
    QCOMPARE(found.executable, path("tools\\report.exe"));
}

void CommandShellRunTest::nameOfScript_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "Visual Studio 14.0/VC bin/vc vars.bat";
    QTest::newRow("parentheses") << "Program Files (x86)/vcvars(64).bat";
    QTest::newRow("ampersand") << "Black & White&Co/vc&vars.bat";
    QTest::newRow("percent sign") << "100% VC/vcvars.bat";
    QTest::newRow("caret") << "V^C/vc^vars.bat";
    QTest::newRow("apostrophe") << "it's/vcvars.bat";
    QTest::newRow("exclamation marks") << "V!PATH!C/vcvars.bat";
    QTest::newRow("umlauts") << "Größe/vcvärs.bat";
    QTest::newRow("beyond the code page") << "寸法 Размер 😀/寸.bat";
    QTest::newRow("the command interpreter's other kind of script") << "VC/vcvars.cmd";
}

void CommandShellRunTest::nameOfScript()
{
    QFETCH(QString, name);
    makeScript(name, scriptLines(path("tools")));

    run(banner);

    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
    QCOMPARE(found.executable, path("tools\\report.exe"));
}

void CommandShellRunTest::editionInBanner_data()
{
    QTest::addColumn<QString>("edition");
    QTest::addColumn<QString>("shown");

    QTest::newRow("plain") << "Visual Studio Community 2022"
                           << "Visual Studio Community 2022";
    QTest::newRow("parentheses") << "Community (2022)"
                                 << "Community (2022)";
    QTest::newRow("apostrophe") << "Developer's"
                                << "Developer's";
    QTest::newRow("percent sign") << "100% free"
                                  << "100% free";
    QTest::newRow("not ASCII") << "Größe 寸法 Размер 😀"
                               << "Größe 寸法 Размер 😀";
    QTest::newRow("exclamation marks") << "a!PATH!"
                                       << "a!PATH!";
    QTest::newRow("several spaces become one") << "A   B"
                                               << "A B";
    QTest::newRow("carets are lost") << "A^B^^C"
                                     << "AB^C";
    QTest::newRow("quotes are lost, what they enclose stays") << "\"A  & B\""
                                                              << "A  & B";
    QTest::newRow("variable's value instead of its name") << "for %HALCONARCH%"
                                                          << "for x64-win64";
}

void CommandShellRunTest::editionInBanner()
{
    QFETCH(QString, edition);
    QFETCH(QString, shown);
    visualStudio.edition = edition;

    run(banner.replaceInStrings("Professional", shown));
}

void CommandShellRunTest::editionCutsBanner_data()
{
    QTest::addColumn<QString>("edition");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("command");

    QTest::newRow("ampersand") << "Black & White"
                               << QStringList{"type 'devenv' to launch Visual Studio 14.0 (Black"}
                               << "White) (amd64)";
    QTest::newRow("ampersand without spaces")
        << "Black&White" << QStringList{"type 'devenv' to launch Visual Studio 14.0 (Black"}
        << "White) (amd64)";
    // What is taken for a command gets the line as its input.
    QTest::newRow("vertical bar") << "Black|White" << QStringList{} << "White) (amd64)";
}

/// The rest of the line is taken for a command; everything else is unchanged.
void CommandShellRunTest::editionCutsBanner()
{
    QFETCH(QString, edition);
    QFETCH(QStringList, before);
    QFETCH(QString, command);
    visualStudio.edition = edition;

    run(QStringList{banner.at(0)} + before + answerTo(command) + QStringList{banner.at(2)});

    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
}

/// The line goes into a file in the script's last directory.
void CommandShellRunTest::editionRedirectsBanner()
{
    makeScript("VC/vcvars.bat", scriptLines(path("tools")) << "cd /d \"" + path("tools").toLatin1() + "\"");
    visualStudio.edition = "Black>White";

    run({banner.at(0), banner.at(2)});

    QFile file(path("tools/White)"));
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("type 'devenv' to launch Visual Studio 14.0 (Black (amd64)\r\n"));
}

/// Without the file that the line names only the interpreter's error is printed.
void CommandShellRunTest::editionReadsFile()
{
    visualStudio.edition = "Black<White";

    run(QStringList{banner.at(0)} + answerTo("echo <White) (amd64)") + QStringList{banner.at(2)});

    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
}

void CommandShellRunTest::halconEditionCutsTitle()
{
    installation.suffix = "A & B";
    const QStringList answer = answerTo("B (x64-win64)");

    run(answer + QStringList{"HALCON 20.11.1 A"} + answer + QStringList{banner.at(1)} +
        QStringList{"type 'hdevelop.exe' to launch HDevelop (20.11.1 A"} + answerTo("B (x64-win64))"));

    QCOMPARE(title, "HALCON 20.11.1 A ");
}

/// The shell stays in the script's last directory; everything else is unchanged.
void CommandShellRunTest::missingDirectory()
{
    installation.installDir = path("missing");
    prompt = "C:\\";

    run(banner + answerTo("cd /d \"" + path("missing") + '"'));

    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
}

/// The script exists, but the shell looks for another one.
void CommandShellRunTest::directoryNamedLikeVariable()
{
    makeInstallation("%HALCONARCH% directory");
    prompt = "C:\\";

    run(banner + answerTo("cd /d \"" + path("x64-win64 directory") + '"'));

    makeInstallation("x64-win64 directory");
    installation.installDir = path("%HALCONARCH% directory");
    run(banner);
}

void CommandShellRunTest::failingScript()
{
    makeScript("VC/vcvars.bat", scriptLines(path("tools")) << "exit /b 1");

    run(banner);

    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
}

void CommandShellRunTest::missingScript_data()
{
    QTest::addColumn<QString>("script");

    QTest::newRow("missing") << "C:\\missing\\vcvars.bat";
    QTest::newRow("none") << "";
}

void CommandShellRunTest::missingScript()
{
    QFETCH(QString, script);
    visualStudio.vcvarsBat = script;

    run(answerTo('"' + script + '"') + banner);

    QCOMPARE(found.executable, installation.installDir + "\\bin\\x64-win64\\report.exe");
    QCOMPARE(found.variable("PATH"),
             installation.installDir + "\\bin\\x64-win64;" + qEnvironmentVariable("PATH"));
    QVERIFY(found.variable("BUILD_ENVIRONMENT").isNull());
}

/// The script exists, but the shell looks for another one.
void CommandShellRunTest::scriptNamedLikeVariable()
{
    makeScript("%HALCONARCH%/vcvars.bat", scriptLines(path("tools")));

    run(answerTo('"' + path("x64-win64\\vcvars.bat") + '"') + banner);

    QVERIFY(found.variable("BUILD_ENVIRONMENT").isNull());
}

void CommandShellRunTest::missingColourTool()
{
    QStringList answers;
    QVERIFY(QFile::remove(colourTool()));
    for (const QString &line : banner) {
        answers += answerTo('"' + colourTool() + "\" --fgred --fgint " + line);
    }
    QCOMPARE(answers.size(), 3);

    run(answers);

    QCOMPARE(title, "HALCON 20.11.1 (x64-win64) ");
    QCOMPARE(found.variable("BUILD_ENVIRONMENT"), "on");
}

QTEST_GUILESS_MAIN(CommandShellRunTest)

#include "CommandShellRunTest_win.moc"
