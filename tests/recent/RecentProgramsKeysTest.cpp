#include "recent/RecentProgramsFrame.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

/// The reasons for which a widget gets the keyboard focus.
class FocusReasons : public QObject {
public:
    explicit FocusReasons(QWidget &watched) { watched.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            reasons.append(static_cast<QFocusEvent *>(event)->reason());
        }
        return QObject::eventFilter(watched, event);
    }

    QList<Qt::FocusReason> reasons;
};

} // namespace

/// The keys, as the user presses them in an active window.
class RecentProgramsKeysTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QStringList paths;
        for (int i = 0; i < 100; ++i) {
            paths.append(QString("C:/inspection %1.hdev").arg(i));
        }
        settings.writePrograms(paths);
        window.reset(new QWidget);
        window->resize(500, 300);
        frame = new RecentProgramsFrame(window.data());
        window->show();
        QVERIFY(eventuallyActive(window.data()));
        QCOMPARE(QApplication::focusWidget(), searchLine(*frame));
    }

    void cleanup() { window.reset(); }

    void keysThatLeadToTheList_data()
    {
        columns<QString, Qt::Key, Qt::KeyboardModifiers, int, int>("from", "key", "modifiers", "before",
                                                                   "after");

        for (const char *from : {"leSearchRecent", "pbOK"}) {
            const auto row = [&](const char *name, Qt::Key key,
                                 Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
                QTest::addRow("%s, %s", from, name) << from << key << modifiers << 40 << 40;
                // A list without a current row makes the first one current when it gets the focus.
                QTest::addRow("%s, %s, no current row", from, name) << from << key << modifiers << -1 << 0;
            };
            row("Up", Qt::Key_Up);
            row("Down", Qt::Key_Down);
            row("Page Up", Qt::Key_PageUp);
            row("Page Down", Qt::Key_PageDown);
            row("Shift+Down", Qt::Key_Down, Qt::ShiftModifier);
            row("Down on the number pad", Qt::Key_Down, Qt::KeypadModifier);
        }
    }

    void keysThatLeadToTheList()
    {
        QFETCH(QString, from);
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(int, before);
        searchLine(*frame)->setText("inspection");
        if (before >= 0) {
            setCurrentRow(before);
        }
        frame->findChild<QWidget *>(from)->setFocus();
        const FocusReasons focus(*list(*frame));

        press(key, modifiers);

        QCOMPARE(QApplication::focusWidget(), list(*frame));
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        QTEST(currentRow(), "after");
        QCOMPARE(searchLine(*frame)->text(), QString("inspection"));
    }

    void keysThatTheSearchLineKeeps_data()
    {
        columns<Qt::Key, QString, int>("key", "text", "cursor");

        row("Home", Qt::Key_Home, "hdev", 0);
        row("End", Qt::Key_End, "hdev", 4);
        row("letter", Qt::Key_X, "hdxev", 3);
        row("Return", Qt::Key_Return, "hdev", 2);
    }

    void keysThatTheSearchLineKeeps()
    {
        QFETCH(Qt::Key, key);
        searchLine(*frame)->setText("hdev");
        searchLine(*frame)->setCursorPosition(2);
        setCurrentRow(40);

        press(key);

        QCOMPARE(QApplication::focusWidget(), searchLine(*frame));
        QTEST(searchLine(*frame)->text(), "text");
        QTEST(searchLine(*frame)->cursorPosition(), "cursor");
        QCOMPARE(list(*frame)->currentIndex().data(pathRole).toString(), QString("C:/inspection 40.hdev"));
        QVERIFY(frame->isVisible());
    }

    void otherKeysGoToTheWindow()
    {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier);
        QCoreApplication::sendEvent(searchLine(*frame), &key);
        QVERIFY(!key.isAccepted());
    }

    void keysThatTheButtonKeeps_data()
    {
        columns<Qt::Key, int>("key", "clicks");

        row("Home", Qt::Key_Home, 0);
        row("letter", Qt::Key_X, 0);
        row("space", Qt::Key_Space, 1);
    }

    void keysThatTheButtonKeeps()
    {
        QFETCH(Qt::Key, key);
        setCurrentRow(40);
        okButton(*frame)->setFocus();
        const QSignalSpy clicked(okButton(*frame), &QPushButton::clicked);

        press(key);

        QCOMPARE(QApplication::focusWidget(), okButton(*frame));
        QTEST(int(clicked.size()), "clicks");
        QCOMPARE(searchLine(*frame)->text(), QString());
        QCOMPARE(currentRow(), 40);
        QVERIFY(frame->isVisible());
    }

    void keysThatMoveInTheList_data()
    {
        columns<Qt::Key, int, int>("key", "lowest", "highest");

        // How many rows a page has differs between machines.
        row("Up", Qt::Key_Up, 39, 39);
        row("Down", Qt::Key_Down, 41, 41);
        row("Home", Qt::Key_Home, 0, 0);
        row("End", Qt::Key_End, 99, 99);
        row("Page Up", Qt::Key_PageUp, 20, 38);
        row("Page Down", Qt::Key_PageDown, 42, 60);
    }

    void keysThatMoveInTheList()
    {
        QFETCH(Qt::Key, key);
        QFETCH(int, lowest);
        QFETCH(int, highest);
        setCurrentRow(40);
        list(*frame)->setFocus();

        press(key);

        QCOMPARE(QApplication::focusWidget(), list(*frame));
        QVERIFY2(currentRow() >= lowest && currentRow() <= highest,
                 qPrintable(QString("row %1").arg(currentRow())));
    }

    void keysThatLeadOutOfTheList_data()
    {
        columns<Qt::Key, Qt::KeyboardModifiers>("key", "modifiers");

        const auto row = [](const char *name, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            ::row(name, key, modifiers);
        };
        row("letter", Qt::Key_I);
        row("space", Qt::Key_Space);
        row("Enter", Qt::Key_Enter, Qt::KeypadModifier);
        row("Escape", Qt::Key_Escape);
        row("Tab", Qt::Key_Tab);
        row("Left", Qt::Key_Left);
        row("Backspace", Qt::Key_Backspace);
        row("Shift", Qt::Key_Shift);
        row("Alt", Qt::Key_Alt);
    }

    void keysThatLeadOutOfTheList()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        searchLine(*frame)->setText("hdev");
        setCurrentRow(40);
        list(*frame)->setFocus();
        const FocusReasons focus(*searchLine(*frame));

        press(key, modifiers);

        QCOMPARE(QApplication::focusWidget(), searchLine(*frame));
        QCOMPARE(focus.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
        // Deliberate: the key itself is lost.
        QCOMPARE(searchLine(*frame)->text(), QString("hdev"));
        QCOMPARE(searchLine(*frame)->selectedText(), QString());
        QCOMPARE(currentRow(), 40);
        QCOMPARE(list(*frame)->selectionModel()->selectedRows().size(), 1);
        QVERIFY(frame->isVisible());
    }

    void typingGoesOnInTheSearchLine()
    {
        // The first letter only moves the focus there.
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_H, Qt::Key_9, Qt::Key_7}) {
            press(key);
        }

        QCOMPARE(searchLine(*frame)->text(), QString("97"));
        QCOMPARE(shownPaths(*frame).constFirst(), QString("C:/inspection 97.hdev"));
    }

    void otherEventsPass()
    {
        // A key may be released in another widget than it was pressed in.
        list(*frame)->setFocus();
        QTest::keyRelease(window->windowHandle(), Qt::Key_A);
        QCOMPARE(QApplication::focusWidget(), list(*frame));
        searchLine(*frame)->setFocus();
        QTest::keyRelease(window->windowHandle(), Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), searchLine(*frame));

        // From widget to widget, as everywhere.
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), okButton(*frame));
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), list(*frame));
    }

    void escapeHidesTheFrame()
    {
        searchLine(*frame)->setText("hdev");
        for (QWidget *from :
             {static_cast<QWidget *>(searchLine(*frame)), static_cast<QWidget *>(okButton(*frame))}) {
            frame->show();
            from->setFocus();
            press(Qt::Key_Escape);
            QVERIFY(!frame->isVisible());
        }
        QVERIFY(window->isVisible());
        QCOMPARE(searchLine(*frame)->text(), QString("hdev"));
    }

private:
    /// Presses and releases a key as the window system does.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    int currentRow() const { return list(*frame)->currentIndex().row(); }
    void setCurrentRow(int row) { list(*frame)->setCurrentIndex(shownModel(*frame)->index(row, 0)); }

    HDevelopSettings settings;
    QScopedPointer<QWidget> window;
    RecentProgramsFrame *frame = nullptr;
};

QTEST_MAIN(RecentProgramsKeysTest)
#include "RecentProgramsKeysTest.moc"
