#include "base/ApplicationIdentity.h"
#include "tests/card/CardLicenseUser.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Messages.h"

#include <QLabel>
#include <QMenu>
#include <QTextBrowser>
#include <QtTest>

namespace {

using Answers = QList<QMessageBox::StandardButton>;

/// What a user reads on each box: its title, and the first line of its text.
QStringList boxTexts(const MessageBoxes &boxes)
{
    QStringList texts;
    for (const ShownBox &box : boxes.shown()) {
        texts << box.title << box.text.section('\n', 0, 0);
    }
    return texts;
}

void click(const SingleHalconVersionFrame &card, const QString &button)
{
    QTest::mouseClick(card.findChild<QPushButton *>(button), Qt::LeftButton);
}

} // namespace

/// Which texts of a card pass through the translation, and which are fixed.
class CardTranslationTest : public QObject {
    Q_OBJECT

    LicenseFiles files;
    QScopedPointer<MarkingTranslator> translator;
    QScopedPointer<SingleHalconVersionFrame> card;

private slots:
    void initTestCase() { setApplicationIdentity(); }

    void init()
    {
        ElevatedHelperFake::reset();
        ProcessStartFake::reset();
        files.write("license.dat", "x");
        files.makeDirectory("H H/license");
        translator.reset(new MarkingTranslator);
        card.reset(new SingleHalconVersionFrame(licensedInstallation(files)));
        card->show();
    }

    void cleanup()
    {
        card.reset();
        translator.reset();
        QVERIFY(QDir(files.path("H H")).removeRecursively());
    }

    void form()
    {
        QCOMPARE(card->findChild<QPushButton *>("pbHDevelop")->toolTip(), QString("[Launch HDevelop.]"));
        QCOMPARE(card->findChild<QLabel *>("lRegCom")->text(), QString("[Register halconx[xl].dll]"));
        const QString details = card->findChild<QTextBrowser *>("textBrowser")->toPlainText();
        QVERIFY(details.startsWith("[Details:]\n[Version: 20.11.1.3]\n[InstallDir: "));
    }

    void documentation()
    {
        QCOMPARE(card->findChild<QPushButton *>("pbHelp")->menu()->actions().last()->text(),
                 QString("[Release Notes]"));
    }

    void noVisualStudio()
    {
        const MessageBoxes boxes;
        click(*card, "pbShell");
        QCOMPARE(boxes.shown().size(), 1);
        QCOMPARE(boxes.shown().first().title, QString("No Visual Studio detected"));
        QVERIFY(boxes.shown().first().text.startsWith("[The shell cannot be launched"));
    }

    void switchCancelled()
    {
        const MessageBoxes boxes(Answers{QMessageBox::Cancel, QMessageBox::Ok});
        click(*card, "pbPerm");
        QCOMPARE(boxTexts(boxes), (QStringList{"[Perform permanent changes?]",
                                               "[If you continue, the following changes will be performed.",
                                               "[Cancelled]", "[No changes were performed.]"}));
        const QStringList changes = boxes.shown().first().text.split("\n\n").last().split('\n');
        QCOMPARE(changes.first(), QString("[changing environment variable HALCONROOT (scope: [user]) from"));
        QVERIFY(changes.last().startsWith("- [broadcast environment updated message"));
    }

    void switched()
    {
        const MessageBoxes boxes(Answers{QMessageBox::Ok, QMessageBox::Ok});
        click(*card, "pbPerm");
        QCOMPARE(boxTexts(boxes).mid(2),
                 (QStringList{"[Switched]", "[Switched to HALCON 20.11.1.3 (x64-win64)]"}));
    }

    void switchFailed()
    {
        ElevatedHelperFake::setOutcome(2, true);
        const MessageBoxes boxes(Answers{QMessageBox::Ok, QMessageBox::Ok});
        click(*card, "pbPerm");
        QCOMPARE(
            boxTexts(boxes).mid(2),
            (QStringList{"Errors", "[There were errors when switching to HALCON 20.11.1.3 (x64-win64):"}));
        QVERIFY(boxes.shown().last().text.contains("\n[helper process returned with value 2."));
    }

    void licenseInstalled()
    {
        files.write("H H/license/license.dat", "old");
        const LogLines log;
        const MessageBoxes boxes(Answers{QMessageBox::Ok, QMessageBox::Ok});
        QString title;
        QVERIFY(installThroughCard(*card, [&](InstallLicenseDialog &dialog) {
            title = dialog.windowTitle();
            dialog.set_path(files.path("license.dat"));
        }));
        QCOMPARE(title, QString("[Install HALCON license]"));
        QCOMPARE(boxTexts(boxes), (QStringList{"[Overwrite?]", "[The file", "[Install license]",
                                               "[Installation of license file as"}));
        // The log is for developers.
        QCOMPARE(log.lines().filter("[").size(), 0);
        QCOMPARE(log.lines().size(), 1);
    }

    void licenseNotCopied()
    {
        QVERIFY(QDir(files.path("H H/license")).removeRecursively());
        ElevatedHelperFake::setOutcome(2, true);
        const LogLines log;
        const MessageBoxes boxes;
        QVERIFY(installThroughCard(*card, choose(files.path("license.dat"))));
        QCOMPARE(boxTexts(boxes), (QStringList{"[Error]", "[Errors occured during license file copy:"}));
        QVERIFY(boxes.shown().last().text.contains("\n  [helper process returned with value 2."));
        QCOMPARE(log.lines().filter("[").size(), 0);
        QCOMPARE(log.lines().size(), 2);
    }

    void licenseNotCreated()
    {
        QVERIFY(QDir(files.path("H H/license")).removeRecursively());
        const MessageBoxes boxes;
        QVERIFY(installThroughCard(*card, choose(files.path("license.dat"))));
        QCOMPARE(boxes.shown().size(), 1);
        QCOMPARE(boxes.shown().first().title, QString("[Error]"));
        QVERIFY(boxes.shown().first().text.startsWith("[It seems as if the target license file "));
    }
};

QTEST_MAIN(CardTranslationTest)
#include "CardTranslationTest.moc"
