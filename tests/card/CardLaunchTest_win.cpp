#include "card/SingleHalconVersionFrame.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/card/HalconVariables.h"
#include "tests/support/EchoChild.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

/// HALCON in @p directory, with the directory for its programs but no program in it yet.
HalconInstallation installationIn(const QTemporaryDir &directory)
{
    HalconInstallation result(20, 11, 1, 0);
    result.setSuffix("Progress");
    result.arch = "x64-win64";
    result.installDir = QDir::toNativeSeparators(directory.filePath("HALCON 20.11"));
    result.setExampleRoot(QDir::toNativeSeparators(directory.filePath("examples of 20.11")));
    if (!QDir().mkpath(result.installDir + "\\bin\\x64-win64")) {
        qFatal("could not make a directory in %s", qPrintable(directory.path()));
    }
    return result;
}

} // namespace

class CardLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void clickStartsHDevelop_data();
    void clickStartsHDevelop();
    void programIsMissing_data();
    void programIsMissing();
};

void CardLaunchTest::clickStartsHDevelop_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("program");

    QTest::newRow("HDevelop") << "pbHDevelop"
                              << "hdevelop.exe";
    QTest::newRow("version number") << "pbMajor"
                                    << "hdevelop.exe";
    QTest::newRow("architecture badge") << "x64"
                                        << "hdevelop.exe";
    QTest::newRow("HDevelop XL") << "pbHDevelopXL"
                                 << "hdevelopxl.exe";
    QTest::newRow("XL badge") << "XL"
                              << "hdevelopxl.exe";
}

void CardLaunchTest::clickStartsHDevelop()
{
    QFETCH(QString, name);
    QFETCH(QString, program);
    const QTemporaryDir directory;
    const HalconInstallation installation = installationIn(directory);
    const QString programs = installation.installDir + "\\bin\\x64-win64\\";
    EchoChild::copyTo(programs + "hdevelop.exe");
    EchoChild::copyTo(programs + "hdevelopxl.exe");
    SingleHalconVersionFrame card(installation);
    card.show();
    const EchoChild child;
    const MessageBoxes boxes;

    QTest::mouseClick(button(card, name), Qt::LeftButton);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, programs + program);
    QCOMPARE(halconVariables(found), halconVariables(installation));
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
}

void CardLaunchTest::programIsMissing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("otherProgram");

    QTest::newRow("HDevelop") << "pbHDevelop"
                              << "hdevelopxl.exe";
    QTest::newRow("HDevelop XL") << "pbHDevelopXL"
                                 << "hdevelop.exe";
}

/// The heading is the same for both.
void CardLaunchTest::programIsMissing()
{
    QFETCH(QString, name);
    QFETCH(QString, otherProgram);
    const QTemporaryDir directory;
    const HalconInstallation installation = installationIn(directory);
    EchoChild::copyTo(installation.installDir + "\\bin\\x64-win64\\" + otherProgram);
    SingleHalconVersionFrame card(installation);
    card.show();
    const EchoChild child;
    const MessageBoxes boxes;

    QTest::mouseClick(button(card, name), Qt::LeftButton);

    QCOMPARE(
        boxLines(boxes.shown(), card),
        warningLines("Errors", "There were errors when launching HDevelop 20.11.1 Progress (x64-win64):\n" +
                                   createProcessErrorLine(WindowsError::fileNotFound)));
    QVERIFY(!child.hasRecord());
}

QTEST_MAIN(CardLaunchTest)

#include "CardLaunchTest_win.moc"
