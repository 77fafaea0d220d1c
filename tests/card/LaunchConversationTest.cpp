#include "card/LaunchConversation.h"
#include "card/VisualStudioChoice.h"
#include "launch/CommandShell.h"
#include "tests/card/BoxLines.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Installations.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Rows.h"

#include <QWidget>

namespace {

VisualStudioVersion visualStudio(const QString &version, const QString &vcvarsBat)
{
    VisualStudioVersion result;
    result.version = version;
    result.edition = "Professional";
    result.architecture = "amd64";
    result.vcvarsBat = vcvarsBat;
    result.idePath = "C:/" + version + "/devenv.exe";
    return result;
}

const QList<VisualStudioVersion> found{visualStudio("14.0", "C:\\14.0\\vcvars64.bat"),
                                       visualStudio("12.0", QString())};
const HalconInstallation installation = installationIn("C:\\H");

/// What the user asks for.
enum class Tool { HDevelop, HDevelopXL, Shell, Ide };

void launch(Tool tool, int row, QWidget &card, const QList<VisualStudioVersion> &versions = found)
{
    const VisualStudioChoice choice(versions, installation.arch);
    switch (tool) {
    case Tool::HDevelop:
        return launchHDevelopOrWarn(installation, false, &card);
    case Tool::HDevelopXL:
        return launchHDevelopOrWarn(installation, true, &card);
    case Tool::Shell:
        return launchShellOrWarn(installation, choice, row, &card);
    case Tool::Ide:
        return launchIdeOrWarn(installation, choice, row, &card);
    }
}

const QString noRowForShell = "Could not launch shell: No valid Visual Studio version selected.";
const QString noRowForIde = "Could not launch Visual Studio IDE: No valid Visual Studio version selected.";

} // namespace

Q_DECLARE_METATYPE(Tool)

class LaunchConversationTest : public QObject {
    Q_OBJECT

private slots:
    void init() { ProcessStartFake::reset(); }

    void started_data()
    {
        columns<Tool, int, QString, QString>("tool", "index", "executable", "arguments");

        row("HDevelop", Tool::HDevelop, 0, R"(C:\H\bin\x64-win64\hdevelop.exe)", "");
        row("HDevelop XL", Tool::HDevelopXL, 0, R"(C:\H\bin\x64-win64\hdevelopxl.exe)", "");
        row("shell", Tool::Shell, 0, "C:\\my cmd.exe", shellArguments(installation, found.first()));
        row("shell without a build environment", Tool::Shell, 1, "C:/12.0/devenv.exe", "");
        row("IDE", Tool::Ide, 0, "C:/14.0/devenv.exe", "");
    }

    void started()
    {
        QFETCH(Tool, tool);
        QFETCH(int, index);
        const EnvironmentVariable interpreter("ComSpec", "C:\\my cmd.exe");
        QWidget card;
        const MessageBoxes boxes;

        launch(tool, index, card);

        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
        QCOMPARE(ProcessStartFake::starts().size(), 1);
        const ProcessStartFake::Start &start = ProcessStartFake::starts().first();
        QTEST(start.executable, "executable");
        QTEST(start.arguments, "arguments");
        QCOMPARE(start.installation.installDir, installation.installDir);
    }

    void notStarted_data()
    {
        columns<Tool, QString>("tool", "heading");

        row("HDevelop", Tool::HDevelop, "There were errors when launching HDevelop 20.11.1.3 (x64-win64):");
        row("HDevelop XL", Tool::HDevelopXL,
            "There were errors when launching HDevelop 20.11.1.3 (x64-win64):");
        row("shell", Tool::Shell,
            "There were errors in launching a CMD shell for HALCON 20.11.1.3 (x64-win64):");
        row("IDE", Tool::Ide,
            "There were errors in launching Visual Studio IDE for HALCON 20.11.1.3 (x64-win64):");
    }

    /// A second attempt does not repeat the errors of the first. Titles of errors are not translated.
    void notStarted()
    {
        QFETCH(Tool, tool);
        QFETCH(QString, heading);
        ProcessStartFake::failWith("CreateProcess failed: no such file");
        QWidget card;
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        launch(tool, 0, card);
        const MarkingTranslator translator;
        launch(tool, 0, card);

        const QString line = "CreateProcess failed: no such file";
        QCOMPARE(boxLines(boxes.shown(), card), warningLines("Errors", heading + '\n' + line) +
                                                    warningLines("Errors", '[' + heading + "\n]" + line));
    }

    void noSuchRow_data()
    {
        columns<Tool, int, QString>("tool", "index", "text");

        row("shell, none", Tool::Shell, -1, noRowForShell);
        row("shell, as many as there are", Tool::Shell, 2, noRowForShell);
        row("shell, more than there are", Tool::Shell, 9, noRowForShell);
        row("IDE, none", Tool::Ide, -1, noRowForIde);
        row("IDE, as many as there are", Tool::Ide, 2, noRowForIde);
    }

    void noSuchRow()
    {
        QFETCH(Tool, tool);
        QFETCH(int, index);
        QFETCH(QString, text);
        QWidget card;
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        launch(tool, index, card);
        const MarkingTranslator translator;
        launch(tool, index, card);

        QCOMPARE(boxLines(boxes.shown(), card),
                 warningLines("Error", text) + warningLines("Error", '[' + text + ']'));
        QCOMPARE(ProcessStartFake::starts().size(), 0);
    }

    void noVisualStudio_data()
    {
        columns<Tool>("tool");

        row("shell", Tool::Shell);
        row("IDE", Tool::Ide);
    }

    /// None for this architecture is none at all.
    void noVisualStudio()
    {
        QFETCH(Tool, tool);
        VisualStudioVersion other = found.first();
        other.architecture = "x86";
        QWidget card;
        const MessageBoxes boxes;

        launch(tool, 0, card, {other});

        QCOMPARE(boxLines(boxes.shown(), card), noVisualStudioLines());
        QCOMPARE(ProcessStartFake::starts().size(), 0);
    }
};

QTEST_MAIN(LaunchConversationTest)
#include "LaunchConversationTest.moc"
