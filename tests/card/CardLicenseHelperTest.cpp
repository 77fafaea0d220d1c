#include "base/ApplicationIdentity.h"
#include "launch/ElevatedHelper.h"
#include "tests/card/CardLicenseUser.h"
#include "tests/launch/ElevatedHelperProgram.h"

#include <QtTest>

/// What the card says when the program cannot copy a licence file itself, with a real child as the fake
/// helper. This test program therefore has a directory of its own.
class CardLicenseHelperTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }

    void helperCopiesNothing()
    {
        const LicensedCard machine;
        const ElevatedHelperProgram helper;
        const EchoChild child;

        QVERIFY(installThroughCard(machine.card, choose(machine.files.path("license.dat"))));

        const QString target = machine.files.native("H H/license/license.dat");
        QCOMPARE(machine.shown(), warningLines("Error", "It seems as if the target license file " + target +
                                                            " could not be created"));
        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" --copy=\"" + target + "\" \"" +
                                        machine.files.native("license.dat") + '"');
    }

    void helperFails()
    {
        const EchoChild child; // before the directory for temporary files changes
        const LicensedCard machine;
        const ElevatedHelperProgram helper;
        EchoChild::exitWith(3);

        QVERIFY(installThroughCard(machine.card, dropLicense(machine.files.path("license.dat"), false)));

        QCOMPARE(machine.shown(), warningLines("Error", "Errors occured during license file copy:\n  " +
                                                            helperFailureLine(3)));
        QVERIFY(child.hasRecord());
        QCOMPARE(machine.files.temporaryFiles(), QStringList());
    }
};

QTEST_MAIN(CardLicenseHelperTest)
#include "CardLicenseHelperTest.moc"
