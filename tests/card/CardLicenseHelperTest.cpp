#include "base/ApplicationIdentity.h"
#include "launch/ElevatedHelper.h"
#include "tests/card/CardLicenseUser.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"

#include <QtTest>

/// What the card says when the program cannot copy a licence file itself, with a real child as the fake
/// helper. This test program therefore has a directory of its own.
class CardLicenseHelperTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void helperCopies();
    void helperCopiesNothing();
    void helperFails_data();
    void helperFails();
    void helperIsMissing();
    void writeProtectedFile();
};

void CardLicenseHelperTest::helperCopies()
{
    const LicenseFiles files;
    files.write("license.dat", "x\n");
    files.makeDirectory("H H");
    const ElevatedHelperProgram helper(COPYING_CHILD_EXECUTABLE);
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;

    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));

    QCOMPARE(boxLines(boxes.shown(), card), installedLines(files.native("H H/license/license.dat")));
    QCOMPARE(files.read("H H/license/license.dat"), QByteArray("x\n"));
}

void CardLicenseHelperTest::helperCopiesNothing()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    const ElevatedHelperProgram helper;
    const EchoChild child;
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;

    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));

    const QString target = files.native("H H/license/license.dat");
    QCOMPARE(boxLines(boxes.shown(), card), warningLines("Error", "It seems as if the target license file " +
                                                                      target + " could not be created"));
    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" --copy=\"" + target + "\" \"" +
                                    files.native("license.dat") + '"');
}

void CardLicenseHelperTest::helperFails_data()
{
    QTest::addColumn<bool>("dropped"); // and vanished

    QTest::newRow("chosen file") << false;
    QTest::newRow("dropped file") << true;
}

void CardLicenseHelperTest::helperFails()
{
    QFETCH(bool, dropped);
    const EchoChild child; // before the directory for temporary files changes
    const LicenseFiles files;
    files.write("license.dat", "x");
    const ElevatedHelperProgram helper;
    EchoChild::exitWith(3);
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;

    QVERIFY(installThroughCard(card, dropped ? dropLicense(files.path("license.dat"), false)
                                             : choose(files.path("license.dat"))));

    QCOMPARE(
        boxLines(boxes.shown(), card),
        warningLines("Error",
                     "Errors occured during license file copy:\n"
                     "  helper process returned with value 3. This indicates an error in its execution!"));
    QVERIFY(child.hasRecord());
    QCOMPARE(files.temporaryFiles(), QStringList());
}

void CardLicenseHelperTest::helperIsMissing()
{
    ElevatedHelperProgram::remove();
    const LicenseFiles files;
    files.write("license.dat", "x");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const ElevatedHelperShellBox shellBox;
    const MessageBoxes boxes;

    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));

    QCOMPARE(
        boxLines(boxes.shown(), card),
        warningLines("Error",
                     "Errors occured during license file copy:\n"
                     "  helper process returned with value -1. This indicates an error in its execution!"));
}

/// The user is asked about the directory; it cannot be removed and is still there when the helper reports
/// success.
void CardLicenseHelperTest::writeProtectedFile()
{
    const LicenseFiles files;
    files.write("license.dat", "new");
    files.write("H H/license/license.dat", "old");
    QVERIFY(files.writeProtect("H H/license/license.dat"));
    const ElevatedHelperProgram helper;
    const EchoChild child;
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));

    const QString target = files.native("H H/license/license.dat");
    QCOMPARE(boxLines(boxes.shown(), card), overwriteLines(target) + installedLines(target));
    QVERIFY(child.hasRecord());
    QCOMPARE(files.read("H H/license/license.dat"), QByteArray("old"));
    QVERIFY(
        QFile::setPermissions(files.path("H H/license/license.dat"), QFile::ReadOwner | QFile::WriteOwner));
}

QTEST_MAIN(CardLicenseHelperTest)

#include "CardLicenseHelperTest.moc"
