#include "app/DebugDialog.h"
#include "base/DebugLogger.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Shown.h"
#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QtTest>

class DebugLogTest : public QObject {
    Q_OBJECT

private slots:
    // The log cannot be cleared, so the tests depend on their order.
    void emptyLog() { QCOMPARE(DebugLogger::instance().text(), QString()); }

    void warningsStayOut()
    {
        const QSignalSpy updated(&DebugLogger::instance(), &DebugLogger::updated);
        const DebugDialog dialog;
        QTest::ignoreMessage(QtWarningMsg, "not for the log");
        qWarning("not for the log");
        QCOMPARE(DebugLogger::instance().text(), QString());
        QCOMPARE(updated.size(), 0);
    }

    void slotsOfTheDialog()
    {
        const QMetaObject &dialog = DebugDialog::staticMetaObject;
        QStringList names;
        for (int i = dialog.methodOffset(); i < dialog.methodCount(); ++i) {
            names.append(dialog.method(i).methodSignature());
        }
        QCOMPARE(names, (QStringList{"updateLog()", "copyToClipboard()"}));
    }

    void linesAreJoined()
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

    void form()
    {
        QWidget window;
        DebugDialog dialog(&window);
        QCOMPARE(dialog.parentWidget(), &window);
        QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->font().pointSize(),
                 QApplication::font().pointSize());
        COMPARE_SNAPSHOT(describeForm(dialog), "DebugDialog.tree");
    }

    void dialogShowsEarlierLines()
    {
        Shown<DebugDialog> dialog;
        QCOMPARE(accessibleControls(dialog), (QStringList{"Debug log", "Close", "Copy to clipboard"}));
        QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->toPlainText(), QString("a\nb\nc\n  d <b>"));
    }

    void openDialogFollows()
    {
        Shown<DebugDialog> dialog;
        DebugLogger::instance().log("while open");
        DebugLogger::instance().log("still open");
        QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->toPlainText(),
                 QString("a\nb\nc\n  d <b>\nwhile open\nstill open"));
        QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->verticalScrollBar()->value(), 0);
    }

    void closedDialogFollows()
    {
        Shown<DebugDialog> dialog;
        QTest::mouseClick(dialog.findChild<QPushButton *>("pbClose"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        DebugLogger::instance().log("while closed");
        dialog.show();
        QCOMPARE(dialog.findChild<QTextBrowser *>("textBrowser")->toPlainText(),
                 QString("a\nb\nc\n  d <b>\nwhile open\nstill open\nwhile closed"));
    }

    void copy()
    {
        QApplication::setApplicationName("Log test");
        Shown<DebugDialog> dialog;
        MessageBoxes boxes;
        QTest::mouseClick(dialog.findChild<QPushButton *>("pbClipboard"), Qt::LeftButton);

        QCOMPARE(QApplication::clipboard()->text(),
                 QString("a\nb\nc\n  d <b>\nwhile open\nstill open\nwhile closed"));
        QCOMPARE(boxes.shown().size(), 1);
        const ShownBox &box = boxes.shown().first();
        QCOMPARE(box.title, QString("Log test"));
        QCOMPARE(box.text, QString("Copied to clipboard"));
        QCOMPARE(box.icon, QMessageBox::Information);
        QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(box.parent.data(), &dialog);
    }

    void readerKeepsHisPlace()
    {
        for (int line = 0; line < 200; ++line) {
            DebugLogger::instance().log(QString("line %1").arg(line) + QString(300, '.'));
        }
        Shown<DebugDialog> dialog;
        auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        browser->setLineWrapMode(QTextEdit::NoWrap);
        QVERIFY(browser->find("line 120"));
        QTextCursor backwards = browser->textCursor();
        const int start = backwards.selectionStart();
        backwards.setPosition(backwards.selectionEnd());
        backwards.setPosition(start, QTextCursor::KeepAnchor);
        browser->setTextCursor(backwards);
        QScrollBar *down = browser->verticalScrollBar();
        QScrollBar *across = browser->horizontalScrollBar();
        down->setValue(down->maximum() / 3);
        across->setValue(across->maximum() / 2);
        const int lineShown = down->value();
        const int columnShown = across->value();
        QVERIFY(lineShown > 0 && columnShown > 0);

        DebugLogger::instance().log("one more");

        QVERIFY(browser->toPlainText().endsWith("\none more"));
        QCOMPARE(down->value(), lineShown);
        QCOMPARE(across->value(), columnShown);
        QCOMPARE(browser->textCursor().selectedText(), QString("line 120"));
        QCOMPARE(browser->textCursor().position(), start);

        browser->selectAll();
        const QString all = browser->toPlainText();
        down->setValue(lineShown);
        DebugLogger::instance().log("and another");
        QCOMPARE(browser->textCursor().selection().toPlainText(), all);
        QCOMPARE(down->value(), lineShown);
    }

    void endIsFollowed()
    {
        Shown<DebugDialog> dialog;
        const auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        QScrollBar *down = browser->verticalScrollBar();
        QCOMPARE(down->value(), 0);
        const auto end = [&] {
            return browser->document()->documentLayout()->documentSize().toSize().height() -
                   browser->viewport()->height();
        };
        // The text is laid out again for the window's width.
        EVENTUALLY_COMPARE(down->maximum(), end());
        down->setValue(down->maximum());
        for (int line = 0; line < 3; ++line) {
            const int before = end();
            DebugLogger::instance().log("one\nmore");
            QVERIFY(end() > before);
            QCOMPARE(down->value(), end());
        }
        QCoreApplication::processEvents();
        QCOMPARE(down->value(), end());
    }

    /// Qt would never finish to lay out the lines that the dialog leaves out.
    void longLogEndsWithItsEnd()
    {
        const QString lines = QString(900000, '\n') + "its end";
        DebugLogger::instance().log(lines);
        const Shown<DebugDialog> dialog;
        const auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        QVERIFY(browser->toPlainText().endsWith("\nits end"));
        DebugLogger::instance().log(lines);
        QVERIFY(browser->toPlainText().endsWith("\nits end"));
        QVERIFY(browser->document()->size().height() < 4000000);
    }

    void translated()
    {
        const MarkingTranslator translator;
        Shown<DebugDialog> dialog;
        QCOMPARE(dialog.windowTitle(), QString("[Debug log]"));
        MessageBoxes boxes;
        QTest::mouseClick(dialog.findChild<QPushButton *>("pbClipboard"), Qt::LeftButton);
        QCOMPARE(boxes.shown().size(), 1);
        QCOMPARE(boxes.shown().first().text, QString("[Copied to clipboard]"));
    }
};

QTEST_MAIN(DebugLogTest)
#include "DebugLogTest.moc"
