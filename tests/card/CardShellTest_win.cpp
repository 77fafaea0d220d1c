#include "card/SingleHalconVersionFrame.h"
#include "launch/CommandShell.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/card/CardStudios.h"
#include "tests/card/StartVariables.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"
#include "tests/support/SystemErrors.h"

#include <QStandardItemModel>
#include <QTemporaryDir>

/// The list and the buttons of the Visual Studios, with the processes that they start.
class CardShellTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        EchoChild::copyTo(interpreter());
        comSpec.set(interpreter().toLocal8Bit());
    }

    void shell_data()
    {
        columns<QString, int, bool>("arch", "clicked", "twice");

        row("button, first row without a click", "x64-win64", -1, false);
        row("button, second row", "x64-win64", 1, false);
        row("double click, first row", "x64-win64", 0, true);
        row("double click, row without an IDE", "x86-win32", 1, true);
        row("double click, SSE2", "x86sse2-win32", 2, true);
    }

    void shell()
    {
        QFETCH(QString, arch);
        QFETCH(int, clicked);
        QFETCH(bool, twice);
        const HalconInstallation installation = progressInstallation(arch);
        const auto records = arch == "x64-win64" ? studios.records64() : studios.records32();
        const QString arguments = shellArguments(installation, records.at(qMax(clicked, 0)));
        SingleHalconVersionFrame card(installation);
        card.show();
        const EchoChild child;
        const MessageBoxes boxes;
        const LogLines log;

        if (twice) {
            doubleClickRow(studioList(card), clicked);
        } else {
            if (clicked >= 0) {
                clickRow(studioList(card), clicked);
            }
            QCOMPARE(log.lines(), QStringList());
            QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
        }

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(found.executable, interpreter());
        QCOMPARE(found.commandLine, arguments);
        QCOMPARE(receivedVariables(found), expectedVariables(installation));
        // Only one start.
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter() + " " + arguments});
        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    }

    void ide()
    {
        const HalconInstallation installation = progressInstallation("x64-win64");
        const QString ide = studios.records64().at(1).idePath;
        SingleHalconVersionFrame card(installation);
        card.show();
        const EchoChild child;
        const MessageBoxes boxes;
        const LogLines log;

        clickRow(studioList(card), 1);
        QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(QDir::fromNativeSeparators(found.executable), ide);
        // For an empty command line Windows substitutes the quoted executable: still no arguments.
        const QStringList withoutArguments{"", '"' + ide + '"'};
        QVERIFY2(withoutArguments.contains(found.commandLine), qPrintable(found.commandLine));
        QCOMPARE(receivedVariables(found), expectedVariables(installation));
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + ide + " "});
        QCOMPARE(boxLines(boxes.shown(), card), QStringList());
    }

    void withoutARow()
    {
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        card.show();
        studioList(card).setCurrentRow(-1);
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
        const LogLines log;

        QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
        QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);

        QCOMPARE(boxLines(boxes.shown(), card), noRowLines("shell") + noRowLines("Visual Studio IDE"));
        QCOMPARE(log.lines(), QStringList());
        // The card is unchanged, and a row can still be chosen.
        QVERIFY(button(card, "pbDevEnv")->isVisible());
        QCOMPARE(studioList(card).currentRow(), -1);
    }

    void indexOfAnotherRow()
    {
        const QStandardItemModel longer(10, 1);
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});

        card.launchShellModelIndex(longer.index(2, 0));
        card.launchDevEnvModelIndex(longer.index(2, 0));

        QCOMPARE(boxLines(boxes.shown(), card), noRowLines("shell") + noRowLines("Visual Studio IDE"));
    }

    /// Errors of an earlier attempt are not shown again.
    void failedStartCanBeTriedAgain()
    {
        const HalconInstallation installation = progressInstallation("x64-win64");
        SingleHalconVersionFrame card(installation);
        card.show();
        const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
        {
            const EnvironmentVariable missing("ComSpec", directory.filePath("missing.exe").toLocal8Bit());
            QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
            doubleClickRow(studioList(card), 1);
        }
        const QStringList box = warningLines(
            "Errors",
            "There were errors in launching a CMD shell for HALCON 20.11.1 Progress (x64-win64):\n" +
                createProcessErrorLine(WindowsError::fileNotFound));
        QCOMPARE(boxLines(boxes.shown(), card), box + box);

        const EchoChild child;
        QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(boxes.shown().size(), 2);
    }

    /// The IDE's button is hidden for such a row, but its slot tries to start it and reports the
    /// system's error.
    void rowWithoutIde()
    {
        SingleHalconVersionFrame card(progressInstallation("x86-win32"));
        card.show();
        clickRow(studioList(card), 1);
        QVERIFY(!button(card, "pbDevEnv")->isVisible());
        const MessageBoxes boxes;
        const LogLines log;

        card.launchDevEnv();

        QCOMPARE(boxes.shown().size(), 1);
        QVERIFY(boxes.shown().first().text.startsWith(
            "There were errors in launching Visual Studio IDE for HALCON 20.11.1 Progress (x86-win32):\n"));
        QCOMPARE(log.lines(), QStringList{"CreateProcess:  "});
    }

private:
    QString interpreter() const { return QDir::toNativeSeparators(directory.filePath("my cmd.exe")); }

    QTemporaryDir directory;
    CardStudios studios;
    const EnvironmentVariable comSpec{"ComSpec"};
};

QTEST_MAIN(CardShellTest)

#include "CardShellTest_win.moc"
