#include "card/SingleHalconVersionFrame.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardButtons.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"

#include <QtTest>

/// A machine without Visual Studio: a user who asks for one is told so, and nothing is started.
class CardWithoutVisualStudioTest : public QObject {
    Q_OBJECT

private slots:
    /// The IDE's button is hidden, but its slots say the same as the shell's.
    void askedFor()
    {
        SingleHalconVersionFrame card(installationIn(QString()));
        card.show();
        const MessageBoxes boxes(
            {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
        const LogLines log;
        QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
        card.launchShell();
        card.launchDevEnv();
        card.launchShellModelIndex(QModelIndex());
        card.launchDevEnvModelIndex(QModelIndex());
        const QStringList box = noVisualStudioLines();
        QCOMPARE(boxLines(boxes.shown(), card), box + box + box + box + box);
        QCOMPARE(log.lines(), QStringList());
    }

    void rowNumbersChangeNothing()
    {
        SingleHalconVersionFrame card(installationIn(QString()));
        card.show();
        QPushButton *devEnv = button(card, "pbDevEnv");
        for (const int row : {0, -1, 1}) {
            devEnv->show();
            card.updateDevEnvIconIndex(row);
            QVERIFY(!devEnv->isVisible());
            QVERIFY(button(card, "pbShell")->isVisible());
        }
    }
};

QTEST_MAIN(CardWithoutVisualStudioTest)
#include "CardWithoutVisualStudioTest.moc"
