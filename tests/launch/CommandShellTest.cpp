#include "launch/CommandShell.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QtTest>

class CommandShellTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        installation = installationIn("C:\\HALCON-20.11");
        visualStudio = {"", "Professional", "14.0", "amd64", "", "", "C:\\VC\\bin\\vcvars.bat", "devenv",
                        "", false};
    }

    void wholeLine()
    {
        const QString directory = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
        QCOMPARE(shellArguments(installation, visualStudio).replace(directory, "@"),
                 "/K \"\"C:\\VC\\bin\\vcvars.bat\" & title HALCON 20.11.1.3 (x64-win64)"
                 " & \"@\\huebox.exe\" --fgred --fgint HALCON 20.11.1.3 (x64-win64)"
                 " & \"@\\huebox.exe\" --fgred --fgint type 'devenv' to launch"
                 " Visual Studio 14.0 (Professional) (amd64)"
                 " & \"@\\huebox.exe\" --fgred --fgint type 'hdevelop.exe' to launch"
                 " HDevelop (20.11.1.3 (x64-win64))"
                 " & cd /d \"C:\\HALCON-20.11\"\"");
    }

    void colourTellsArchitecture_data()
    {
        columns<QString, QString>("arch", "colour");

        row("64-bit", "x64-win64", "--fgred");
        row("SSE2", "x86sse2-win32", "--fggreen");
        row("32-bit", "x86-win32", "--fgblue");
        row("unexpected", "arm64-win64", "--fgred");
        row("another case is unexpected", "X86-WIN32", "--fgred");
    }

    void colourTellsArchitecture()
    {
        QFETCH(QString, arch);
        QFETCH(QString, colour);
        installation.arch = arch;

        QCOMPARE(shellArguments(installation, visualStudio),
                 expected("20.11.1.3 (" + arch + ')', "Visual Studio 14.0 (Professional) (amd64)", colour));
    }

    void namesOfFiles_data()
    {
        columns<QString>("name");

        row("spaces and parentheses", "C:\\Program Files (x86)\\a");
        row("signs that mean something to a shell", "C:\\Black & White ^ 100% %PATH% %1 it's");
        row("not ASCII, forward slashes", "C:/Größe 寸法 Размер 😀");
        row("none", "");
    }

    /// They are quoted and otherwise unchanged.
    void namesOfFiles()
    {
        QFETCH(QString, name);
        installation.installDir = name;
        visualStudio.vcvarsBat = name + "\\vcvars.bat";

        QCOMPARE(shellArguments(installation, visualStudio),
                 expected("20.11.1.3 (x64-win64)", "Visual Studio 14.0 (Professional) (amd64)"));
    }

    void bannerTexts_data()
    {
        columns<QString, QString, QString, QString, QString>("suffix", "ideName", "edition", "halcon",
                                                             "studio");

        row("edition of HALCON", "Progress", "devenv", "Professional", "20.11.1.3 Progress (x64-win64)",
            "Visual Studio 14.0 (Professional) (amd64)");
        row("no IDE", "", "", "Professional", "20.11.1.3 (x64-win64)",
            "Visual Studio 14.0 (Professional) (amd64)");
        row("nothing is quoted", "A&B", "WDExpress", "Größe & (%PATH%) %1", "20.11.1.3 A&B (x64-win64)",
            "Visual Studio 14.0 (Größe & (%PATH%) %1) (amd64)");
    }

    void bannerTexts()
    {
        QFETCH(QString, suffix);
        QFETCH(QString, ideName);
        QFETCH(QString, edition);
        QFETCH(QString, halcon);
        QFETCH(QString, studio);
        installation.suffix = suffix;
        visualStudio.ideName = ideName;
        visualStudio.edition = edition;

        QCOMPARE(shellArguments(installation, visualStudio), expected(halcon, studio));
    }

private:
    /// The whole command line: @p halcon and @p studio are what the banner says, @p colour is how.
    QString expected(const QString &halcon, const QString &studio, const QString &colour = "--fgred") const
    {
        const QString tool = " & \"" + QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) +
                             "\\huebox.exe\" " + colour + " --fgint ";
        return "/K \"\"" + visualStudio.vcvarsBat + "\" & title HALCON " + halcon + tool + "HALCON " +
               halcon + tool + "type '" + visualStudio.ideName + "' to launch " + studio + tool +
               "type 'hdevelop.exe' to launch HDevelop (" + halcon + ") & cd /d \"" +
               installation.installDir + "\"\"";
    }

    HalconInstallation installation = installationIn("C:\\HALCON-20.11");
    VisualStudioVersion visualStudio;
};

QTEST_GUILESS_MAIN(CommandShellTest)

#include "CommandShellTest.moc"
