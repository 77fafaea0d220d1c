#include "base/ApplicationIdentity.h"
#include "tests/card/CardLicenseUser.h"
#include "tests/support/Rows.h"

#include <QTextEdit>
#include <QtTest>

namespace {

/// With an empty directory for licences in the installation.
struct CardWithDirectory : LicensedCard {
    explicit CardWithDirectory(QMessageBox::StandardButton answer = QMessageBox::Ok) : LicensedCard(answer)
    {
        files.makeDirectory("H H/license");
    }
};

} // namespace

class CardLicenseTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }

    void dialog()
    {
        const CardWithDirectory machine;
        QWidget *parent = nullptr;
        bool modal = false;
        QString text;

        // Pressing OK without a file does nothing.
        QVERIFY(installThroughCard(machine.card, [&](InstallLicenseDialog &dialog) {
            parent = dialog.parentWidget();
            modal = dialog.isModal();
            text = dialog.findChild<QTextEdit *>("textEdit")->toPlainText();
        }));

        QCOMPARE(parent, &machine.card);
        QVERIFY(modal);
        QVERIFY(text.endsWith(" directory \"" + machine.files.native("H H/license") + "\"."));
        QCOMPARE(machine.shown(), QStringList());
        QCOMPARE(machine.log.lines(), QStringList());
        QCOMPARE(machine.installed(), QStringList());
    }

    void notAccepted_data()
    {
        columns<bool>("byKey");

        row("Cancel", false);
        row("Escape", true);
    }

    void notAccepted()
    {
        QFETCH(bool, byKey);
        const CardWithDirectory machine;
        const DialogUser<InstallLicenseDialog> user([&](InstallLicenseDialog &dialog) {
            dialog.set_path(machine.files.path("license.dat"));
            if (byKey) {
                QTest::keyClick(&dialog, Qt::Key_Escape);
            } else {
                pressInDialog(dialog, QDialogButtonBox::Cancel);
            }
        });

        QTest::mouseClick(machine.card.findChild<QPushButton *>("pbInstallLicense"), Qt::LeftButton);

        QVERIFY(user.wasUsed());
        QCOMPARE(machine.shown(), QStringList());
        QCOMPARE(machine.log.lines(), QStringList());
        QCOMPARE(machine.installed(), QStringList());
    }

    void chosenFile_data()
    {
        columns<QString>("name");

        row("spaces and signs", "R & D/100% %1 %2 & (x).dat");
        row("not ASCII, without an ending", "Gr\u00f6\u00dfe/\u691c");
    }

    void chosenFile()
    {
        QFETCH(QString, name);
        const CardWithDirectory machine;
        machine.files.write(name, "one\r\ntwo\n");

        QVERIFY(installThroughCard(machine.card, choose(machine.files.path(name))));

        const QString installed = QFileInfo(name).fileName();
        QCOMPARE(machine.shown(), installedLines(machine.files.native("H H/license/" + installed)));
        QCOMPARE(machine.files.read("H H/license/" + installed), QByteArray("one\r\ntwo\n"));
        QCOMPARE(machine.installed(), QStringList{installed});
        QCOMPARE(machine.log.lines(), QStringList());
    }

    void existingFileIsOverwritten()
    {
        const CardWithDirectory machine;
        machine.files.write("H H/license/license.dat", "old");
        machine.files.write("H H/license/another.dat", "another");

        QVERIFY(installThroughCard(machine.card, choose(machine.files.path("license.dat"))));

        const QString target = machine.files.native("H H/license/license.dat");
        QCOMPARE(machine.shown(), overwriteLines(target) + installedLines(target));
        QCOMPARE(machine.files.read("H H/license/license.dat"), QByteArray("new"));
        QCOMPARE(machine.files.read("H H/license/another.dat"), QByteArray("another"));
    }

    void existingFileIsKept_data()
    {
        columns<QMessageBox::StandardButton>("answer");

        row("Cancel", QMessageBox::Cancel);
        row("Escape", QMessageBox::NoButton);
    }

    void existingFileIsKept()
    {
        QFETCH(QMessageBox::StandardButton, answer);
        const CardWithDirectory machine(answer);
        machine.files.write("H H/license/license.dat", "old");

        QVERIFY(installThroughCard(machine.card, choose(machine.files.path("license.dat"))));

        QCOMPARE(machine.shown(), overwriteLines(machine.files.native("H H/license/license.dat")));
        QCOMPARE(machine.files.read("H H/license/license.dat"), QByteArray("old"));
        QCOMPARE(machine.log.lines(), QStringList());
    }

    void droppedFile_data()
    {
        columns<bool>("stays");

        row("still there", true);
        row("vanished after the drop", false);
    }

    void droppedFile()
    {
        QFETCH(bool, stays);
        const CardWithDirectory machine;
        machine.files.write("mail/license 1.dat", "one line");

        QVERIFY(
            installThroughCard(machine.card, dropLicense(machine.files.path("mail/license 1.dat"), stays)));

        QCOMPARE(machine.shown(), installedLines(machine.files.native("H H/license/license 1.dat")));
        QCOMPARE(machine.files.read("H H/license/license 1.dat"), QByteArray("one line"));
        QCOMPARE(machine.installed(), QStringList{"license 1.dat"});
        QCOMPARE(machine.log.lines().size(), stays ? 0 : 1);
        QCOMPARE(machine.files.temporaryFiles(), QStringList());
    }

    /// The chosen file has vanished as well: the one dropped before is not used instead.
    void droppedAndThenChosen()
    {
        const CardWithDirectory machine;
        machine.files.write("dropped.dat", "dropped");

        QVERIFY(installThroughCard(machine.card, [&](InstallLicenseDialog &dialog) {
            dropLicense(machine.files.path("dropped.dat"), true)(dialog);
            dialog.set_path(machine.files.path("chosen.dat"));
        }));

        QCOMPARE(machine.installed(), QStringList{"chosen.dat"});
        QCOMPARE(machine.files.read("H H/license/chosen.dat"), QByteArray());
    }

    void nothingIsLeftForTheNextTime()
    {
        const CardWithDirectory machine;
        QVERIFY(installThroughCard(machine.card, choose(machine.files.path("license.dat"))));
        QVERIFY(QFile::remove(machine.files.path("H H/license/license.dat")));
        QString selected = "?";

        QVERIFY(installThroughCard(
            machine.card, [&](const InstallLicenseDialog &dialog) { selected = dialog.selectedFile(); }));

        QCOMPARE(selected, QString());
        QCOMPARE(machine.boxes.shown().size(), 1);
        QCOMPARE(machine.installed(), QStringList());
    }
};

QTEST_MAIN(CardLicenseTest)
#include "CardLicenseTest.moc"
