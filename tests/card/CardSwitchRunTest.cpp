#include "card/SingleHalconVersionFrame.h"
#include "launch/ElevatedHelper.h"
#include "tests/card/CardSwitchLines.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/EnvironmentBroadcastWindow.h"
#include "tests/launch/PermanentSwitchMachine.h"
#include "tests/support/Installations.h"
#include "tests/support/Registry.h"

#include <QPushButton>
#include <QtTest>

/// The card's switch with a real child as the fake helper and the real registry. This test program therefore
/// has a directory of its own.
class CardSwitchRunTest : public QObject {
    Q_OBJECT

private slots:
    void init() { clearVariables(); }
    void cleanup() { clearVariables(); }

    void confirmed()
    {
        Registry::setString(userKey, "HALCONROOT", "D:\\Old");
        Registry::setString(systemKey, "HALCONROOT", "C:\\Older");
        Registry::setString(systemKey, "HALCONARCH", "x64-win64");
        const QTemporaryDir directory;
        const QString installDir = QDir::toNativeSeparators(directory.path());
        const QString library = installDir + "\\bin\\x86sse2-win32\\hdevenginexxl.dll";
        EchoChild::copyTo(library);
        const ElevatedHelperProgram helper;
        const EchoChild child;
        EnvironmentBroadcastWindow window;
        const SingleHalconVersionFrame card(installationIn(installDir, "x86sse2-win32", "D:\\Examples"));
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        QTest::mouseClick(card.findChild<QPushButton *>("pbPerm"), Qt::LeftButton);

        const QString arguments = "--env HALCONROOT=\"" + installDir +
                                  "\" --env HALCONARCH=\"x86sse2-win32\" " +
                                  "--env HALCONIMAGES=\"D:\\Examples\\examples\\images\" " +
                                  "--env HALCONEXAMPLES=\"D:\\Examples\\examples\" --x86 \"" + library + '"';
        const QStringList planned{
            changeLine("HALCONROOT", "user", "D:\\Old", installDir),
            changeLine("HALCONARCH", "system", "x64-win64", "x86sse2-win32"),
            changeLine("HALCONIMAGES", "user", "", "D:\\Examples\\examples\\images"),
            changeLine("HALCONEXAMPLES", "user", "", "D:\\Examples\\examples"),
            "executing helper process with elevated rights: " + helperExecutablePath() + " " + arguments,
            broadcastLine,
        };
        QCOMPARE(boxLines(boxes.shown(), card),
                 switchQuestionLines(planned) +
                     informationLines("Switched", "Switched to HALCON 20.11.1.3 (x86sse2-win32)"));
        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" " + arguments);
        QCOMPARE(window.closeAndTakeLines(), QStringList{"wParam 0, text Environment, after the helper"});
    }
};

QTEST_MAIN(CardSwitchRunTest)
#include "CardSwitchRunTest.moc"
