#include "card/SingleHalconVersionFrame.h"
#include "launch/CommandShell.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/card/CardStudios.h"
#include "tests/card/StartVariables.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

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
        row("double click", "x86sse2-win32", 2, true);
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

private:
    QString interpreter() const { return QDir::toNativeSeparators(directory.filePath("my cmd.exe")); }

    QTemporaryDir directory;
    CardStudios studios;
    const EnvironmentVariable comSpec{"ComSpec"};
};

QTEST_MAIN(CardShellTest)
#include "CardShellTest_win.moc"
