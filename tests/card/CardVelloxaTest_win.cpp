#include "card/SingleHalconVersionFrame.h"
#include "tests/card/Advertisement.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/card/StartVariables.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Registry.h"

#include <QTemporaryDir>
#include <QtTest>

/// Velloxa's directory is looked up once in a process. It has only the 64-bit build.
class CardVelloxaTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString installDir = QDir::toNativeSeparators(directory.filePath("Velloxa 2"));
        QVERIFY(QDir(directory.path()).mkdir("Velloxa 2"));
        Registry::setString(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)", "InstallDir",
                            installDir);
        velloxa = installDir + "\\velloxa.exe";
    }

    void cleanup()
    {
        if (advertisement() != nullptr) {
            advertisement()->close();
        }
        EVENTUALLY_VERIFY(advertisement() == nullptr);
        // A running program cannot be removed.
        EVENTUALLY_VERIFY(!QFile::exists(velloxa) || QFile::remove(velloxa));
    }

    void notInstalled()
    {
        SingleHalconVersionFrame card(progressInstallation("x86sse2-win32"));
        card.show();
        const LogLines log;
        const MessageBoxes boxes;

        QTest::mouseClick(button(card, "pbVelloxa"), Qt::LeftButton);

        QVERIFY(advertisement() != nullptr);
        QVERIFY(advertisement()->isVisible());
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    }

    void installed()
    {
        EchoChild::copyTo(velloxa);
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        card.show();
        const EchoChild child;
        const MessageBoxes boxes;

        QTest::mouseClick(button(card, "pbVelloxa"), Qt::LeftButton);

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.executable, velloxa);
        QCOMPARE(found.commandLine, QString("--halconversion=20.11"));
        QCOMPARE(receivedVariables(found), expectedVariables(card.installation()));
        QVERIFY(advertisement() == nullptr);
        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    }

    /// The system's error about the failed start is not shown to the user.
    void noProgram()
    {
        QFile text(velloxa);
        QVERIFY(text.open(QIODevice::WriteOnly));
        text.write("not a program");
        text.close();
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        card.show();
        const LogLines log;
        const MessageBoxes boxes;

        QTest::mouseClick(button(card, "pbVelloxa"), Qt::LeftButton);

        QVERIFY(advertisement() != nullptr);
        QVERIFY(advertisement()->isVisible());
        QVERIFY(advertisement()->parentWidget() == nullptr);
        // The start was tried.
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + velloxa + " --halconversion=20.11"});
        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    }

private:
    QTemporaryDir directory;
    QString velloxa; ///< the path of its program
};

QTEST_MAIN(CardVelloxaTest)
#include "CardVelloxaTest_win.moc"
