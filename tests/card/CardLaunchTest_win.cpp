#include "card/SingleHalconVersionFrame.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/card/StartVariables.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

HalconInstallation installed(const QTemporaryDir &directory)
{
    const auto path = [&](const char *name) { return QDir::toNativeSeparators(directory.filePath(name)); };
    return installationIn(path("HALCON 20.11"), "x64-win64", path("examples of 20.11"));
}

} // namespace

class CardLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void clickStartsHDevelop()
    {
        const QTemporaryDir directory;
        const HalconInstallation installation = installed(directory);
        const QString programs = installation.installDir + "\\bin\\x64-win64\\";
        EchoChild::copyTo(programs + "hdevelop.exe");
        EchoChild::copyTo(programs + "hdevelopxl.exe");
        SingleHalconVersionFrame card(installation);
        card.show();
        const EchoChild child;
        const MessageBoxes boxes;

        QTest::mouseClick(button(card, "XL"), Qt::LeftButton);

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.executable, programs + "hdevelopxl.exe");
        QCOMPARE(receivedVariables(found), expectedVariables(installation));
        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    }

    void programIsMissing()
    {
        const QTemporaryDir directory;
        const HalconInstallation installation = installed(directory);
        EchoChild::copyTo(installation.installDir + "\\bin\\x64-win64\\hdevelopxl.exe");
        SingleHalconVersionFrame card(installation);
        card.show();
        const EchoChild child;
        const MessageBoxes boxes;

        QTest::mouseClick(button(card, "pbHDevelop"), Qt::LeftButton);

        QCOMPARE(boxLines(boxes.shown(), card),
                 warningLines("Errors", "There were errors when launching HDevelop 20.11.1.3 (x64-win64):\n" +
                                            createProcessErrorLine(WindowsError::fileNotFound)));
        QVERIFY(!child.hasRecord());
    }
};

QTEST_MAIN(CardLaunchTest)
#include "CardLaunchTest_win.moc"
