#include "base/ApplicationIdentity.h"
#include "tests/card/CardLicenseUser.h"
#include "tests/support/Messages.h"

#include <QTextEdit>
#include <QtTest>

class CardLicenseTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void dialog();
    void notAccepted_data();
    void notAccepted();
    void acceptedWithoutAFile();
    void chosenFile_data();
    void chosenFile();
    void existingFileIsOverwritten();
    void existingFileIsKept_data();
    void existingFileIsKept();
    void droppedFile_data();
    void droppedFile();
    void droppedAndThenChosen();
    void nothingIsLeftForTheNextTime();
};

void CardLicenseTest::dialog()
{
    const LicenseFiles files;
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;
    QWidget *parent = nullptr;
    bool modal = false;
    QString text;

    QVERIFY(installThroughCard(card, [&](InstallLicenseDialog &dialog) {
        parent = dialog.parentWidget();
        modal = dialog.isModal();
        text = dialog.findChild<QTextEdit *>("textEdit")->toPlainText();
    }));

    QCOMPARE(parent, &card);
    QVERIFY(modal);
    QCOMPARE(text, "You are about to install a HALCON license file. These files are usually named like "
                   "license_1234567.dat. A copy of the license file will be put into directory \"" +
                       files.native("H H/license") + "\".");
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
}

void CardLicenseTest::notAccepted_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("Cancel") << false;
    QTest::newRow("Escape") << true;
}

void CardLicenseTest::notAccepted()
{
    QFETCH(bool, byKey);
    const LicenseFiles files;
    files.write("license.dat", "x");
    files.makeDirectory("H H/license");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const DialogUser<InstallLicenseDialog> user([&](InstallLicenseDialog &dialog) {
        dialog.set_path(files.path("license.dat"));
        if (byKey) {
            QTest::keyClick(&dialog, Qt::Key_Escape);
        } else {
            pressInDialog(dialog, QDialogButtonBox::Cancel);
        }
    });
    const MessageBoxes boxes;
    const LogLines log;

    QTest::mouseClick(card.findChild<QPushButton *>("pbInstallLicense"), Qt::LeftButton);

    QVERIFY(user.wasUsed());
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(files.read("H H/license/license.dat"), QByteArray("(none)"));
}

void CardLicenseTest::acceptedWithoutAFile()
{
    const LicenseFiles files;
    files.makeDirectory("H H/license");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;
    const LogLines log;

    QVERIFY(installThroughCard(card, [](InstallLicenseDialog &) {}));

    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(QDir(files.path("H H/license")).entryList(QDir::Files), QStringList());
}

void CardLicenseTest::chosenFile_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << "licences"
                           << "license_1234567.dat";
    QTest::newRow("spaces") << "my licences"
                            << "license 1.dat";
    QTest::newRow("signs") << "R & D"
                           << "100% %1 %2 & (x).dat";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe"
                               << "\u691c.dat";
    QTest::newRow("without an ending") << "licences"
                                       << "license";
}

void CardLicenseTest::chosenFile()
{
    QFETCH(QString, directory);
    QFETCH(QString, name);
    const LicenseFiles files;
    files.write(directory + "/" + name, "one\r\ntwo\n");
    files.makeDirectory("H H/license");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;
    const LogLines log;

    QVERIFY(installThroughCard(card, choose(files.path(directory + "/" + name))));

    QCOMPARE(boxLines(boxes.shown(), card), installedLines(files.native("H H/license/" + name)));
    QCOMPARE(files.read("H H/license/" + name), QByteArray("one\r\ntwo\n"));
    QCOMPARE(QDir(files.path("H H/license")).entryList(QDir::Files), QStringList{name});
    QCOMPARE(log.lines(), QStringList());
}

void CardLicenseTest::existingFileIsOverwritten()
{
    const LicenseFiles files;
    files.write("license.dat", "new");
    files.write("H H/license/license.dat", "old");
    files.write("H H/license/another.dat", "another");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));

    const QString target = files.native("H H/license/license.dat");
    QCOMPARE(boxLines(boxes.shown(), card), overwriteLines(target) + installedLines(target));
    QCOMPARE(files.read("H H/license/license.dat"), QByteArray("new"));
    QCOMPARE(files.read("H H/license/another.dat"), QByteArray("another"));
}

void CardLicenseTest::existingFileIsKept_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");

    QTest::newRow("Cancel") << QMessageBox::Cancel;
    QTest::newRow("Escape") << QMessageBox::NoButton;
}

void CardLicenseTest::existingFileIsKept()
{
    QFETCH(QMessageBox::StandardButton, answer);
    const LicenseFiles files;
    files.write("license.dat", "new");
    files.write("H H/license/license.dat", "old");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes({answer});
    const LogLines log;

    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));

    QCOMPARE(boxLines(boxes.shown(), card), overwriteLines(files.native("H H/license/license.dat")));
    QCOMPARE(files.read("H H/license/license.dat"), QByteArray("old"));
    QCOMPARE(log.lines(), QStringList());
}

void CardLicenseTest::droppedFile_data()
{
    QTest::addColumn<bool>("stays");

    QTest::newRow("still there") << true;
    QTest::newRow("vanished after the drop") << false;
}

void CardLicenseTest::droppedFile()
{
    QFETCH(bool, stays);
    const LicenseFiles files;
    files.write("mail/license 1.dat", "one line");
    files.makeDirectory("H H/license");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;
    const LogLines log;

    QVERIFY(installThroughCard(card, dropLicense(files.path("mail/license 1.dat"), stays)));

    QCOMPARE(boxLines(boxes.shown(), card), installedLines(files.native("H H/license/license 1.dat")));
    QCOMPARE(files.read("H H/license/license 1.dat"), QByteArray("one line"));
    QCOMPARE(QDir(files.path("H H/license")).entryList(QDir::Files), QStringList{"license 1.dat"});
    QCOMPARE(log.lines().size(), stays ? 0 : 1);
    QCOMPARE(files.temporaryFiles(), QStringList());
}

void CardLicenseTest::droppedAndThenChosen()
{
    const LicenseFiles files;
    files.write("dropped.dat", "dropped");
    files.makeDirectory("H H/license");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes;

    // The chosen file has vanished as well: the one dropped before is not used instead.
    QVERIFY(installThroughCard(card, [&](InstallLicenseDialog &dialog) {
        dropLicense(files.path("dropped.dat"), true)(dialog);
        dialog.set_path(files.path("chosen.dat"));
    }));

    QCOMPARE(files.read("H H/license/dropped.dat"), QByteArray("(none)"));
    QCOMPARE(files.read("H H/license/chosen.dat"), QByteArray());
}

void CardLicenseTest::nothingIsLeftForTheNextTime()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    files.makeDirectory("H H/license");
    SingleHalconVersionFrame card(licensedInstallation(files));
    card.show();
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
    QVERIFY(installThroughCard(card, choose(files.path("license.dat"))));
    QCOMPARE(boxes.shown().size(), 1);
    QVERIFY(QFile::remove(files.path("H H/license/license.dat")));

    QString selected = "?";
    QVERIFY(installThroughCard(
        card, [&](const InstallLicenseDialog &dialog) { selected = dialog.selectedFile(); }));

    QCOMPARE(selected, QString());
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(files.read("H H/license/license.dat"), QByteArray("(none)"));
}

QTEST_MAIN(CardLicenseTest)

#include "CardLicenseTest.moc"
