#include "app/DebugDialog.h"
#include "app/DebugLogger.h"
#include "tests/support/MessageBoxes.h"

#include <QClipboard>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QtTest>

class DebugLogTest : public QObject {
    Q_OBJECT

private slots:
    // The log cannot be cleared, so the tests run in the order in which they stand and build on each other.
    void emptyLog();
    void copyEmptyLog();
    void linesAreJoined();
    void dialogIsBuilt();
    void dialogShowsEarlierLines();
    void openDialogFollows();
    void closedDialogFollows();
    void copy();
};

void DebugLogTest::emptyLog()
{
    QCOMPARE(DebugLogger::instance().text(), QString());
    QCOMPARE(&DebugLogger::instance(), &DebugLogger::instance());
}

void DebugLogTest::copyEmptyLog()
{
    QApplication::setApplicationName("Log test");
    QApplication::clipboard()->setText("something else");
    DebugDialog dialog;
    MessageBoxes boxes;
    QTest::mouseClick(dialog.findChild<QPushButton *>("pbClipboard"), Qt::LeftButton);
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().first().text, QString("Copied to clipboard"));
    QCOMPARE(QApplication::clipboard()->text(), QString());
}

void DebugLogTest::linesAreJoined()
{
    const QSignalSpy updated(&DebugLogger::instance(), &DebugLogger::updated);
    DebugLogger::instance().log("a");
    QCOMPARE(DebugLogger::instance().text(), QString("a"));
    DebugLogger::instance().log("b");
    QCOMPARE(DebugLogger::instance().text(), QString("a\nb"));
    DebugLogger::instance().log("c\n  d <b>");
    QCOMPARE(DebugLogger::instance().text(), QString("a\nb\nc\n  d <b>"));
    QCOMPARE(updated.size(), 3);
}

void DebugLogTest::dialogIsBuilt()
{
    QWidget window;
    const DebugDialog dialog(&window);
    QCOMPARE(dialog.parentWidget(), &window);
    QCOMPARE(dialog.objectName(), QString("DebugDialog"));
    QCOMPARE(dialog.windowTitle(), QString("Debug log"));
    QCOMPARE(dialog.size(), QSize(855, 524));
    QVERIFY(!dialog.isModal());
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));

    const auto *layout = qobject_cast<QHBoxLayout *>(dialog.layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->objectName(), QString("horizontalLayout"));
    QCOMPARE(layout->count(), 2);
    const auto *browser = qobject_cast<QTextBrowser *>(layout->itemAt(0)->widget());
    QVERIFY(browser != nullptr);
    QCOMPARE(browser->objectName(), QString("textBrowser"));
    QCOMPARE(browser->font().family(), QString("Courier New"));
    QCOMPARE(browser->font().pointSize(), QApplication::font().pointSize());

    const auto *column = qobject_cast<QVBoxLayout *>(layout->itemAt(1)->layout());
    QVERIFY(column != nullptr);
    QCOMPARE(column->objectName(), QString("verticalLayout"));
    QCOMPARE(column->count(), 3);
    const auto *close = qobject_cast<QPushButton *>(column->itemAt(0)->widget());
    QCOMPARE(close->objectName(), QString("pbClose"));
    QCOMPARE(close->text(), QString("Close"));
    const auto *clipboard = qobject_cast<QPushButton *>(column->itemAt(1)->widget());
    QCOMPARE(clipboard->objectName(), QString("pbClipboard"));
    QCOMPARE(clipboard->text(), QString("Copy to clipboard"));
    const QSpacerItem *spacer = column->itemAt(2)->spacerItem();
    QVERIFY(spacer != nullptr);
    QCOMPARE(spacer->sizeHint(), QSize(20, 40));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding));
}

void DebugLogTest::dialogShowsEarlierLines()
{
    const DebugDialog dialog;
    QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->toPlainText(), QString("a\nb\nc\n  d <b>"));
}

void DebugLogTest::openDialogFollows()
{
    DebugDialog dialog;
    dialog.show();
    DebugLogger::instance().log("while open");
    QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->toPlainText(),
             QString("a\nb\nc\n  d <b>\nwhile open"));
}

void DebugLogTest::closedDialogFollows()
{
    DebugDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::mouseClick(dialog.findChild<QPushButton *>("pbClose"), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    DebugLogger::instance().log("while closed");
    dialog.show();
    QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->toPlainText(),
             QString("a\nb\nc\n  d <b>\nwhile open\nwhile closed"));
}

void DebugLogTest::copy()
{
    DebugDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    MessageBoxes boxes;
    QTest::mouseClick(dialog.findChild<QPushButton *>("pbClipboard"), Qt::LeftButton);

    QCOMPARE(QApplication::clipboard()->text(), QString("a\nb\nc\n  d <b>\nwhile open\nwhile closed"));
    QCOMPARE(boxes.shown().size(), 1);
    const ShownBox &box = boxes.shown().first();
    QCOMPARE(box.title, QString("Log test"));
    QCOMPARE(box.text, QString("Copied to clipboard"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent.data(), &dialog);
}

QTEST_MAIN(DebugLogTest)

#include "DebugLogTest.moc"
