#include "card/SingleHalconVersionFrame.h"
#include "launch/ElevatedHelper.h"
#include "tests/card/CardSwitchLines.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const HalconInstallation installation = installationIn("C:\\H");

QString variableArguments(const QString &installDir = "C:\\H")
{
    return "--env HALCONROOT=\"" + installDir +
           "\" --env HALCONARCH=\"x64-win64\" --env HALCONIMAGES=\"\" --env HALCONEXAMPLES=\"\" ";
}

/// Both check boxes are ticked at first. There is no library to register, so only the option for the
/// architecture shows that a registration was requested.
const QString arguments = variableArguments() + "--x64";

/// The lines of a dry run, where no variable is set yet.
QStringList dryRunLines(const QString &helperArguments, const QString &installDir = "C:\\H")
{
    return {
        "changing environment variable HALCONROOT (scope: user) from\n  to\n " + installDir +
            " (scope: system)",
        "changing environment variable HALCONARCH (scope: user) from\n  to\n x64-win64 (scope: system)",
        "changing environment variable HALCONIMAGES (scope: user) from\n  to\n  (scope: system)",
        "changing environment variable HALCONEXAMPLES (scope: user) from\n  to\n  (scope: system)",
        "executing helper process with elevated rights: " + helperExecutablePath() + " " + helperArguments,
        "broadcast environment updated message (WM_SETTINGCHANGE)",
    };
}

QStringList switchedLines()
{
    return informationLines("Switched", "Switched to HALCON 20.11.1.3 (x64-win64)");
}

void clickSwitch(const SingleHalconVersionFrame &card)
{
    QTest::mouseClick(card.findChild<QPushButton *>("pbPerm"), Qt::LeftButton);
}

} // namespace

class CardSwitchTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ElevatedHelperFake::reset();
        ProcessStartFake::reset();
    }

    void confirmed()
    {
        const SingleHalconVersionFrame card(installation);
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        clickSwitch(card);

        QCOMPARE(boxLines(boxes.shown(), card),
                 switchQuestionLines(dryRunLines(arguments)) + switchedLines());
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
        const ElevatedHelperFake::Start &start = ElevatedHelperFake::starts().constFirst();
        QCOMPARE(start.executable, helperExecutablePath());
        QCOMPARE(start.arguments, arguments);
        QVERIFY(start.show);
        QVERIFY(start.wait);
        QCOMPARE(ElevatedHelperFake::broadcasts(), 1);
        QCOMPARE(ProcessStartFake::starts().size(), 0);
    }

    void notConfirmed_data()
    {
        columns<QMessageBox::StandardButton>("answer");

        row("Cancel", QMessageBox::Cancel);
        row("Escape", QMessageBox::NoButton);
    }

    void notConfirmed()
    {
        QFETCH(QMessageBox::StandardButton, answer);
        const SingleHalconVersionFrame card(installation);
        const MessageBoxes boxes({answer, QMessageBox::Ok});

        clickSwitch(card);

        QCOMPARE(boxLines(boxes.shown(), card),
                 switchQuestionLines(dryRunLines(arguments)) +
                     informationLines("Cancelled", "No changes were performed."));
        QCOMPARE(ElevatedHelperFake::starts().size(), 0);
        QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
    }

    void checkBoxes_data()
    {
        const auto row = columns<QStringList, QStringList>("clicked", "libraries");

        const QStringList halconCom{"halconx.dll", "halconxxl.dll"};
        const QStringList engineCom{"hdevenginex.dll", "hdevenginexxl.dll"};
        row("as they are at first", {}, halconCom + engineCom);
        row("without HALCON COM", {"cbRegCom"}, engineCom);
        row("without engine COM, by the label", {"lRegComEngine"}, halconCom);
        row("neither, by a shield", {"cbRegCom", "pbUaCEngine"}, {});
    }

    void checkBoxes()
    {
        QFETCH(QStringList, clicked);
        QFETCH(QStringList, libraries);
        const QTemporaryDir directory;
        // The backslashes are part of the files' names here.
        const HalconInstallation halcon = installationIn(directory.filePath("H"));
        const QString bin = halcon.installDir + "\\bin\\x64-win64\\";
        for (const char *name : {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll"}) {
            QVERIFY(QFile(bin + name).open(QFile::WriteOnly));
        }
        const Shown<SingleHalconVersionFrame> card(halcon);
        for (const QString &name : clicked) {
            auto *widget = card.findChild<QWidget *>(name);
            QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(8, widget->height() / 2));
        }
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        clickSwitch(card);

        QString asked = variableArguments(halcon.installDir);
        if (!libraries.isEmpty()) {
            asked += "--x64 \"" + bin + libraries.join("\" \"" + bin) + '"';
        }
        QCOMPARE(boxLines(boxes.shown(), card),
                 switchQuestionLines(dryRunLines(asked, halcon.installDir)) + switchedLines());
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
        QCOMPARE(ElevatedHelperFake::starts().constFirst().arguments, asked);
    }

    void failure_data()
    {
        // said: in the second run, after the plan
        columns<int, bool, QStringList>("exitCode", "broadcastSucceeds", "said");

        const QString broadcast = dryRunLines(arguments).last();
        const QString failed =
            "helper process returned with value %1. This indicates an error in the execution!";
        const QString broadcastFailed =
            "Error in broadcasting environment updated message: the window is gone";
        row("helper", 3, true, QStringList{failed.arg(3), broadcast});
        row("broadcast", 0, false, QStringList{broadcast, broadcastFailed});
        row("both", 1, false, QStringList{failed.arg(1), broadcast, broadcastFailed});
    }

    void failure()
    {
        QFETCH(int, exitCode);
        QFETCH(bool, broadcastSucceeds);
        QFETCH(QStringList, said);
        ElevatedHelperFake::setOutcome(exitCode, broadcastSucceeds);
        ProcessStartFake::failWith("the window is gone");
        const SingleHalconVersionFrame card(installation);
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        clickSwitch(card);

        // Both runs appended to one list.
        const QStringList lines = dryRunLines(arguments) + dryRunLines(arguments).mid(0, 5) + said;
        QCOMPARE(
            boxLines(boxes.shown(), card),
            switchQuestionLines(dryRunLines(arguments)) +
                warningLines("Errors", "There were errors when switching to HALCON 20.11.1.3 (x64-win64):\n" +
                                           lines.join('\n')));
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    }

    /// Nothing of a failed attempt is left in the next one.
    void failedSwitchCanBeTriedAgain()
    {
        const SingleHalconVersionFrame card(installation);
        for (const int exitCode : {3, 0}) {
            ElevatedHelperFake::setOutcome(exitCode, true);
            const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
            clickSwitch(card);
            const QStringList lines = boxLines(boxes.shown(), card);
            QCOMPARE(lines.mid(0, 6), switchQuestionLines(dryRunLines(arguments)));
            QCOMPARE(lines.mid(6) == switchedLines(), exitCode == 0);
        }
    }
};

QTEST_MAIN(CardSwitchTest)
#include "CardSwitchTest.moc"
