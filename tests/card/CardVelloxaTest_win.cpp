#include "card/SingleHalconVersionFrame.h"
#include "tests/card/Advertisement.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/card/StartVariables.h"
#include "tests/support/EchoChild.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Messages.h"
#include "tests/support/Registry.h"

#include <QTemporaryDir>
#include <QtTest>

/// Velloxa is looked up once in a process: each of these cases runs in a process and a registry of its own.
class CardVelloxaTest : public QObject {
    Q_OBJECT

private slots:
    void notInstalled();
    void installed();
    void noProgram();

private:
    /// Makes Velloxa's directory and registry entry, and returns its path.
    QString install() const;

    QTemporaryDir directory;
};

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 0);
    result.setSuffix("Progress");
    result.arch = "x64-win64";
    result.installDir = R"(C:\Program Files\HALCON 20.11)";
    result.setExampleRoot(R"(D:\Examples)");
    return result;
}

} // namespace

QString CardVelloxaTest::install() const
{
    const QString installDir = QDir::toNativeSeparators(directory.filePath("Velloxa 2"));
    if (!QDir(directory.path()).mkdir("Velloxa 2")) {
        qFatal("could not make the directory %s", qPrintable(installDir));
    }
    Registry::setString(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)", "InstallDir", installDir);
    return installDir + "\\velloxa.exe";
}

void CardVelloxaTest::notInstalled()
{
    SingleHalconVersionFrame card(installation());
    card.show();
    const LogLines log;
    const MessageBoxes boxes;

    QTest::mouseClick(button(card, "pbVelloxa"), Qt::LeftButton);

    QVERIFY(advertisement() != nullptr);
    QVERIFY(advertisement()->isVisible());
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
}

void CardVelloxaTest::installed()
{
    const QString velloxa = install();
    EchoChild::copyTo(velloxa);
    SingleHalconVersionFrame card(installation());
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
void CardVelloxaTest::noProgram()
{
    const QString velloxa = install();
    QFile text(velloxa);
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("not a program");
    text.close();
    SingleHalconVersionFrame card(installation());
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

QTEST_MAIN(CardVelloxaTest)

#include "CardVelloxaTest_win.moc"
