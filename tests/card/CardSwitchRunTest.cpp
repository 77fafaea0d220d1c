#include "card/SingleHalconVersionFrame.h"
#include "launch/ElevatedHelper.h"
#include "tests/card/CardSwitchLines.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"
#include "tests/launch/EnvironmentBroadcastWindow.h"
#include "tests/launch/PermanentSwitchMachine.h"
#include "tests/support/Patience.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"

#include <QPushButton>
#include <QtTest>

namespace {

const QStringList halconCom{"halconx.dll", "halconxxl.dll"};
const QStringList engineCom{"hdevenginex.dll", "hdevenginexxl.dll"};

/// HALCON with all four COM libraries, and what a switch to it says and does.
class InstalledHalcon {
public:
    InstalledHalcon()
    {
        for (const char *name : {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll"}) {
            EchoChild::copyTo(directory.filePath("bin/x86sse2-win32/") + name);
        }
        installation.setSuffix("Progress");
        installation.arch = "x86sse2-win32";
        installation.installDir = QDir::toNativeSeparators(directory.path());
        installation.setExampleRoot("D:\\Examples");
    }

    /// @p libraries by their names, in the order in which they are registered.
    QString arguments(const QStringList &libraries) const
    {
        QString result =
            "--env HALCONROOT=\"" + installation.installDir +
            R"(" --env HALCONARCH="x86sse2-win32" --env HALCONIMAGES="D:\Examples\examples\images" )"
            R"(--env HALCONEXAMPLES="D:\Examples\examples" )";
        if (!libraries.isEmpty()) {
            result += "--x86";
        }
        for (const QString &library : libraries) {
            result += " \"" + installation.installDir + "\\bin\\x86sse2-win32\\" + library + '"';
        }
        return result;
    }

    /// The announcement before anything is done, with the variables as initTestCase() leaves them.
    QStringList plannedLines(const QStringList &libraries) const
    {
        return {
            changeLine("HALCONROOT", "user", "D:\\Old", installation.installDir),
            changeLine("HALCONARCH", "system", "x64-win64", "x86sse2-win32"),
            changeLine("HALCONIMAGES", "user", "", "D:\\Examples\\examples\\images"),
            changeLine("HALCONEXAMPLES", "user", "", "D:\\Examples\\examples"),
            "executing helper process with elevated rights: " + helperExecutablePath() + " " +
                arguments(libraries),
        };
    }
    QStringList questionLines(const QStringList &libraries) const
    {
        return switchQuestionLines("If you continue, the following changes will be performed.\n\n" +
                                   (plannedLines(libraries) + QStringList{broadcastLine}).join("\n- "));
    }

    /// What the boxes say when the user agrees and the helper ends with @p exitCode.
    QStringList failedLines(int exitCode) const
    {
        const QStringList libraries = halconCom + engineCom;
        const QStringList planned = plannedLines(libraries);
        const QString failure =
            QString("helper process returned with value %1. This indicates an error in the "
                    "execution!")
                .arg(exitCode);
        const QStringList lines =
            planned + QStringList{broadcastLine} + planned + QStringList{failure, broadcastLine};
        return questionLines(libraries) +
               warningLines("Errors",
                            "There were errors when switching to HALCON 20.11.1 Progress (x86sse2-win32):\n" +
                                lines.join('\n'));
    }

    HalconInstallation installation{20, 11, 1, 0};

private:
    QTemporaryDir directory;
};

void clickSwitch(const SingleHalconVersionFrame &card)
{
    QTest::mouseClick(card.findChild<QPushButton *>("pbPerm"), Qt::LeftButton);
}

const QString switchedText = "Switched to HALCON 20.11.1 Progress (x86sse2-win32)";

} // namespace

/// The card's switch with a real child as the fake helper and the real registry. This test program therefore
/// has a directory of its own.
class CardSwitchRunTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        clearVariables();
        Registry::setString(userKey, "HALCONROOT", "D:\\Old");
        Registry::setString(systemKey, "HALCONROOT", "C:\\Older");
        Registry::setString(systemKey, "HALCONARCH", "x64-win64");
    }

    void cleanupTestCase() { clearVariables(); }

    void confirmed_data()
    {
        // libraries: to register; both boxes are ticked at first
        columns<QStringList, QStringList>("clicked", "libraries");

        row("as they are at first", QStringList(), halconCom + engineCom);
        row("without HALCON COM", QStringList{"cbRegCom"}, engineCom);
        row("without engine COM, by the label", QStringList{"lRegComEngine"}, halconCom);
    }

    void confirmed()
    {
        QFETCH(QStringList, clicked);
        QFETCH(QStringList, libraries);
        const InstalledHalcon halcon;
        const ElevatedHelperProgram helper;
        const EchoChild child;
        EnvironmentBroadcastWindow window;
        SingleHalconVersionFrame card(halcon.installation);
        card.show();
        QVERIFY(eventuallyExposed(&card));
        for (const QString &name : clicked) {
            auto *widget = card.findChild<QWidget *>(name);
            QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(8, widget->height() / 2));
        }
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        clickSwitch(card);

        QCOMPARE(boxLines(boxes.shown(), card),
                 halcon.questionLines(libraries) + informationLines("Switched", switchedText));
        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" " + halcon.arguments(libraries));
        QCOMPARE(window.closeAndTakeLines(), QStringList{"wParam 0, text Environment, after the helper"});
    }

    void notConfirmed()
    {
        const InstalledHalcon halcon;
        const ElevatedHelperProgram helper;
        const EchoChild child;
        EnvironmentBroadcastWindow window;
        const QStringList before = environmentLines();
        SingleHalconVersionFrame card(halcon.installation);
        card.show();
        const MessageBoxes boxes({QMessageBox::Cancel, QMessageBox::Ok});

        clickSwitch(card);

        QCOMPARE(boxLines(boxes.shown(), card),
                 halcon.questionLines(halconCom + engineCom) +
                     informationLines("Cancelled", "No changes were performed."));
        QVERIFY(!child.hasRecord());
        QCOMPARE(window.closeAndTakeLines(), QStringList());
        QCOMPARE(environmentLines(), before);
    }

    void helperFails()
    {
        const InstalledHalcon halcon;
        const ElevatedHelperProgram helper;
        const EchoChild child;
        EchoChild::exitWith(3);
        SingleHalconVersionFrame card(halcon.installation);
        card.show();
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        clickSwitch(card);

        QCOMPARE(boxLines(boxes.shown(), card), halcon.failedLines(3));
    }

    void helperIsMissing()
    {
        ElevatedHelperProgram::remove();
        const InstalledHalcon halcon;
        SingleHalconVersionFrame card(halcon.installation);
        card.show();
        const ElevatedHelperShellBox shellBox;
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        clickSwitch(card);

        QCOMPARE(boxLines(boxes.shown(), card), halcon.failedLines(-1));
    }
};

QTEST_MAIN(CardSwitchRunTest)

#include "CardSwitchRunTest.moc"
