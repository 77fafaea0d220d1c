#include "card/SingleHalconVersionFrame.h"
#include "tests/card/BoxLines.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Messages.h"

#include <QListWidget>
#include <QPushButton>
#include <QStandardItemModel>
#include <QtTest>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 0);
    result.arch = "x64-win64";
    return result;
}

} // namespace

/// A machine without Visual Studio: a user who asks for one is told so, and nothing is started.
class CardWithoutVisualStudioTest : public QObject {
    Q_OBJECT

private slots:
    void shellButton();
    void slotsWithoutAnIndex_data();
    void slotsWithoutAnIndex();
    void slotsWithAnIndex_data();
    void slotsWithAnIndex();
    void rowNumbersChangeNothing();
};

void CardWithoutVisualStudioTest::shellButton()
{
    SingleHalconVersionFrame card(installation());
    card.show();
    const MessageBoxes boxes;
    const LogLines log;
    QTest::mouseClick(card.findChild<QPushButton *>("pbShell"), Qt::LeftButton);
    QCOMPARE(boxLines(boxes.shown(), card), noVisualStudioLines());
    QCOMPARE(log.lines(), QStringList());
}

void CardWithoutVisualStudioTest::slotsWithoutAnIndex_data()
{
    QTest::addColumn<QByteArray>("slot");

    QTest::newRow("shell") << QByteArray("launchShell");
    QTest::newRow("IDE") << QByteArray("launchDevEnv");
}

/// The IDE's button is hidden, but its slot says the same.
void CardWithoutVisualStudioTest::slotsWithoutAnIndex()
{
    QFETCH(QByteArray, slot);
    SingleHalconVersionFrame card(installation());
    const MessageBoxes boxes;
    const LogLines log;
    QVERIFY(QMetaObject::invokeMethod(&card, slot.constData()));
    QCOMPARE(boxLines(boxes.shown(), card), noVisualStudioLines());
    QCOMPARE(log.lines(), QStringList());
}

void CardWithoutVisualStudioTest::slotsWithAnIndex_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("row");

    for (const char *slot : {"launchShellModelIndex", "launchDevEnvModelIndex"}) {
        QTest::addRow("%s, row 0", slot) << QByteArray(slot) << 0;
        QTest::addRow("%s, no row", slot) << QByteArray(slot) << -1;
    }
}

/// That message comes before any about the row.
void CardWithoutVisualStudioTest::slotsWithAnIndex()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, row);
    const QStandardItemModel model(1, 1);
    SingleHalconVersionFrame card(installation());
    const MessageBoxes boxes;
    const LogLines log;
    QVERIFY(QMetaObject::invokeMethod(&card, slot.constData(), Q_ARG(QModelIndex, model.index(row, 0))));
    QCOMPARE(boxLines(boxes.shown(), card), noVisualStudioLines());
    QCOMPARE(log.lines(), QStringList());
}

void CardWithoutVisualStudioTest::rowNumbersChangeNothing()
{
    SingleHalconVersionFrame card(installation());
    card.show();
    const auto *shell = card.findChild<QPushButton *>("pbShell");
    auto *devEnv = card.findChild<QPushButton *>("pbDevEnv");
    QVERIFY(shell->isVisible());
    for (const int row : {0, -1, 1}) {
        devEnv->show();
        card.updateDevEnvIconIndex(row);
        QVERIFY(!devEnv->isVisible());
        QVERIFY(shell->isVisible());
    }
}

QTEST_MAIN(CardWithoutVisualStudioTest)

#include "CardWithoutVisualStudioTest.moc"
