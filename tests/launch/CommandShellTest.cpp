#include "launch/CommandShell.h"

#include <QtTest>

namespace {

HalconInstallation installation(const QString &arch, const QString &installDir = "C:\\HALCON-20.11")
{
    HalconInstallation result(20, 11, 1, 0);
    result.installDir = installDir;
    result.arch = arch;
    return result;
}

VisualStudioVersion visualStudio(const QString &vcvarsBat = "C:\\VC\\bin\\vcvars.bat")
{
    VisualStudioVersion result;
    result.edition = "Professional";
    result.version = "14.0";
    result.architecture = "amd64";
    result.vcvarsBat = vcvarsBat;
    result.ideName = "devenv";
    return result;
}

/// @p text with each @ replaced by the colour tool.
QString withColourTool(const QString &text)
{
    const QString directory = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    return QString(text).replace('@', '"' + directory + "\\huebox.exe\"");
}

} // namespace

class CommandShellTest : public QObject {
    Q_OBJECT

private slots:
    void architecture_data();
    void architecture();
    void namesOfFiles_data();
    void namesOfFiles();
    void bannerTexts_data();
    void bannerTexts();
};

void CommandShellTest::architecture_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<QString>("arguments");

    QTest::newRow("64-bit") << "x64-win64"
                            << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                               " & title HALCON 20.11.1 (x64-win64)"
                               " & @ --fgred --fgint HALCON 20.11.1 (x64-win64)"
                               " & @ --fgred --fgint type 'devenv' to launch"
                               " Visual Studio 14.0 (Professional) (amd64)"
                               " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                               " HDevelop (20.11.1 (x64-win64))"
                               " & cd /d \"C:\\HALCON-20.11\"\"";
    QTest::newRow("SSE2") << "x86sse2-win32"
                          << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                             " & title HALCON 20.11.1 (x86sse2-win32)"
                             " & @ --fggreen --fgint HALCON 20.11.1 (x86sse2-win32)"
                             " & @ --fggreen --fgint type 'devenv' to launch"
                             " Visual Studio 14.0 (Professional) (amd64)"
                             " & @ --fggreen --fgint type 'hdevelop.exe' to launch"
                             " HDevelop (20.11.1 (x86sse2-win32))"
                             " & cd /d \"C:\\HALCON-20.11\"\"";
    QTest::newRow("32-bit") << "x86-win32"
                            << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                               " & title HALCON 20.11.1 (x86-win32)"
                               " & @ --fgblue --fgint HALCON 20.11.1 (x86-win32)"
                               " & @ --fgblue --fgint type 'devenv' to launch"
                               " Visual Studio 14.0 (Professional) (amd64)"
                               " & @ --fgblue --fgint type 'hdevelop.exe' to launch"
                               " HDevelop (20.11.1 (x86-win32))"
                               " & cd /d \"C:\\HALCON-20.11\"\"";
    QTest::newRow("unexpected") << "arm64-win64"
                                << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                                   " & title HALCON 20.11.1 (arm64-win64)"
                                   " & @ --fgred --fgint HALCON 20.11.1 (arm64-win64)"
                                   " & @ --fgred --fgint type 'devenv' to launch"
                                   " Visual Studio 14.0 (Professional) (amd64)"
                                   " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                                   " HDevelop (20.11.1 (arm64-win64))"
                                   " & cd /d \"C:\\HALCON-20.11\"\"";
    QTest::newRow("another case is unexpected") << "X86-WIN32"
                                                << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                                                   " & title HALCON 20.11.1 (X86-WIN32)"
                                                   " & @ --fgred --fgint HALCON 20.11.1 (X86-WIN32)"
                                                   " & @ --fgred --fgint type 'devenv' to launch"
                                                   " Visual Studio 14.0 (Professional) (amd64)"
                                                   " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                                                   " HDevelop (20.11.1 (X86-WIN32))"
                                                   " & cd /d \"C:\\HALCON-20.11\"\"";
}

void CommandShellTest::architecture()
{
    QFETCH(QString, arch);
    QFETCH(QString, arguments);

    QCOMPARE(shellArguments(installation(arch), visualStudio()), withColourTool(arguments));
}

void CommandShellTest::namesOfFiles_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "C:\\Program Files\\a b";
    QTest::newRow("parentheses") << "C:\\Program Files (x86)\\a";
    QTest::newRow("ampersand") << "C:\\Black & White";
    QTest::newRow("percent signs") << "C:\\100% %PATH% %1";
    QTest::newRow("caret") << "C:\\a^b";
    QTest::newRow("apostrophe") << "C:\\it's";
    QTest::newRow("not ASCII") << "C:\\Größe 寸法 Размер 😀";
    QTest::newRow("forward slashes") << "C:/a/b";
    QTest::newRow("none") << "";
}

/// They are quoted and otherwise unchanged.
void CommandShellTest::namesOfFiles()
{
    QFETCH(QString, name);
    const QString middle = withColourTool("title HALCON 20.11.1 (x64-win64)"
                                          " & @ --fgred --fgint HALCON 20.11.1 (x64-win64)"
                                          " & @ --fgred --fgint type 'devenv' to launch"
                                          " Visual Studio 14.0 (Professional) (amd64)"
                                          " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                                          " HDevelop (20.11.1 (x64-win64))");

    QCOMPARE(shellArguments(installation("x64-win64", name), visualStudio()),
             "/K \"\"C:\\VC\\bin\\vcvars.bat\" & " + middle + " & cd /d \"" + name + "\"\"");
    QCOMPARE(shellArguments(installation("x64-win64"), visualStudio(name)),
             "/K \"\"" + name + "\" & " + middle + " & cd /d \"C:\\HALCON-20.11\"\"");
}

void CommandShellTest::bannerTexts_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("ideName");
    QTest::addColumn<QString>("edition");
    QTest::addColumn<QString>("architecture");
    QTest::addColumn<QString>("arguments");

    QTest::newRow("edition of HALCON") << "Progress"
                                       << "devenv"
                                       << "Professional"
                                       << "amd64"
                                       << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                                          " & title HALCON 20.11.1 Progress (x64-win64)"
                                          " & @ --fgred --fgint HALCON 20.11.1 Progress (x64-win64)"
                                          " & @ --fgred --fgint type 'devenv' to launch"
                                          " Visual Studio 14.0 (Professional) (amd64)"
                                          " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                                          " HDevelop (20.11.1 Progress (x64-win64))"
                                          " & cd /d \"C:\\HALCON-20.11\"\"";
    QTest::newRow("no IDE, no architecture") << ""
                                             << ""
                                             << "Professional"
                                             << ""
                                             << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                                                " & title HALCON 20.11.1 (x64-win64)"
                                                " & @ --fgred --fgint HALCON 20.11.1 (x64-win64)"
                                                " & @ --fgred --fgint type '' to launch"
                                                " Visual Studio 14.0 (Professional)"
                                                " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                                                " HDevelop (20.11.1 (x64-win64))"
                                                " & cd /d \"C:\\HALCON-20.11\"\"";
    QTest::newRow("nothing is quoted") << "A&B"
                                       << "WDExpress"
                                       << "Größe & (%PATH%) %1"
                                       << "x86"
                                       << "/K \"\"C:\\VC\\bin\\vcvars.bat\""
                                          " & title HALCON 20.11.1 A&B (x64-win64)"
                                          " & @ --fgred --fgint HALCON 20.11.1 A&B (x64-win64)"
                                          " & @ --fgred --fgint type 'WDExpress' to launch"
                                          " Visual Studio 14.0 (Größe & (%PATH%) %1) (x86)"
                                          " & @ --fgred --fgint type 'hdevelop.exe' to launch"
                                          " HDevelop (20.11.1 A&B (x64-win64))"
                                          " & cd /d \"C:\\HALCON-20.11\"\"";
}

void CommandShellTest::bannerTexts()
{
    QFETCH(QString, suffix);
    QFETCH(QString, ideName);
    QFETCH(QString, edition);
    QFETCH(QString, architecture);
    QFETCH(QString, arguments);
    HalconInstallation halcon = installation("x64-win64");
    halcon.suffix = suffix;
    VisualStudioVersion studio = visualStudio();
    studio.ideName = ideName;
    studio.edition = edition;
    studio.architecture = architecture;

    QCOMPARE(shellArguments(halcon, studio), withColourTool(arguments));
}

QTEST_GUILESS_MAIN(CommandShellTest)

#include "CommandShellTest.moc"
