#include "app/KeyboardFocusFrame.h"
#include "card/CardColumn.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/app/TabStops.h"
#include "tests/card/CardMachine.h"
#include "tests/card/CardShape.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>
#include <QVBoxLayout>

namespace {

/// A window with cards that scroll, and a button and a text with two links below them.
class CardWindow : public QMainWindow {
public:
    CardWindow(int cards, const QSize &size)
    {
        area = new QScrollArea;
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::ClickFocus);
        column = new CardColumn(installedVersions(cards));
        area->setWidget(column);
        button = new QPushButton("Button");
        auto *text = new QTextBrowser;
        text->setAccessibleName("Text");
        text->setHtml("See <a href=\"#1\">one</a> and <a href=\"#2\">two</a>");
        text->setFixedHeight(40);
        auto *centre = new QWidget;
        auto *layout = new QVBoxLayout(centre);
        layout->addWidget(area);
        layout->addWidget(button);
        layout->addWidget(text);
        setCentralWidget(centre);
        QWidget::setTabOrder(column->lastTabStop(), button);
        QWidget::setTabOrder(button, text);
        frame = new KeyboardFocusFrame(this);
        area->setFocus(Qt::OtherFocusReason);
        for (const SingleHalconVersionFrame *card : column->findChildren<SingleHalconVersionFrame *>()) {
            CardShape::addVisualStudio(*card);
        }
        resize(size);
        show();
        if (!eventuallyActive(this)) {
            qFatal("the window does not become active");
        }
    }

    QRect around(const QWidget &control) const
    {
        return QRect(control.mapTo(this, QPoint()), control.size()).adjusted(-3, -3, 3, 3);
    }

    /// The part of the window in which cards are visible.
    QRect sight() const { return {area->viewport()->mapTo(this, QPoint()), area->viewport()->size()}; }

    QScrollArea *area;
    CardColumn *column;
    QPushButton *button;
    KeyboardFocusFrame *frame;
};

constexpr QSize large(1700, 700);
constexpr QSize small(900, 400);

} // namespace

class KeyboardFocusFrameTest : public QObject {
    Q_OBJECT

private slots:
    void everyStopIsSeenInOrder()
    {
        CardWindow window(2, large);
        QStringList unseen;
        const QStringList stops = TabStops::walk(window, Qt::Key_Tab, &unseen);
        const QStringList expected = TabStops::ofCard("18.11.1", {}, true) +
                                     TabStops::ofCard("20.5.0", {}, true) +
                                     QStringList{"Button", "Text", "Text > one", "Text > two"};
        QCOMPARE(stops.join('|'), expected.join('|'));
        QCOMPARE(unseen.join(", "), QString());
    }

    void backwards()
    {
        CardWindow window(2, large);
        QStringList expected = TabStops::ofCard("18.11.1", {}, true) + TabStops::ofCard("20.5.0", {}, true) +
                               QStringList{"Button"};
        std::reverse(expected.begin(), expected.end());
        expected = QStringList{"Text", "Text > two", "Text > one"} + expected;
        const QStringList stops = TabStops::walk(window, Qt::Key_Backtab);
        QCOMPARE(stops.join('|'), expected.join('|'));
    }

    void hiddenFromMouseUsers()
    {
        CardWindow window(1, large);
        QVERIFY(!window.frame->isVisible());
        QTest::mouseClick(window.button, Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), window.button);
        QVERIFY(!window.frame->isVisible());
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        QVERIFY(window.frame->isVisible());
        QTest::mouseClick(window.button, Qt::LeftButton);
        QVERIFY(!window.frame->isVisible());
    }

    void goesWithTheFocus()
    {
        CardWindow window(1, large);
        window.button->setFocus(Qt::TabFocusReason);
        QVERIFY(window.frame->isVisible());
        window.button->clearFocus();
        QVERIFY(!window.frame->isVisible());
        window.button->setFocus(Qt::TabFocusReason);
        window.button->hide();
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        window.button->show();
        QVERIFY(window.frame->geometry() != window.around(*window.button));

        QPushButton other("Another window");
        window.button->setFocus(Qt::TabFocusReason);
        other.show();
        QVERIFY(eventuallyActive(&other));
        EVENTUALLY_VERIFY(!window.frame->isVisible());
    }

    void isBroughtIntoSight_data()
    {
        columns<Qt::Key>("key");

        row("forwards", Qt::Key_Tab);
        row("backwards", Qt::Key_Backtab);
    }

    void isBroughtIntoSight()
    {
        QFETCH(Qt::Key, key);
        CardWindow window(3, small);
        constexpr int all = 3 * 17 + 1;
        for (int i = 0; i < all; ++i) {
            QTest::keyClick(window.windowHandle(), key);
            const QWidget *control = QApplication::focusWidget();
            const QRect place(control->mapTo(&window, QPoint()), control->size());
            QVERIFY2(!window.column->isAncestorOf(control) || window.sight().contains(place),
                     qPrintable(TabStops::focused()));
            QCOMPARE(window.frame->geometry() & window.around(*control), window.frame->geometry());
        }
    }

    void followsTheControl()
    {
        CardWindow window(2, large);
        auto *list = window.column->findChild<QListWidget *>("lwVsVersion");
        list->setFocus(Qt::TabFocusReason);
        QCOMPARE(window.frame->geometry(), window.around(*list));
        const QRect before = window.frame->geometry();
        window.resize(large.width() + 200, large.height());
        EVENTUALLY_VERIFY(window.around(*list) != before);
        EVENTUALLY_COMPARE(window.frame->geometry(), window.around(*list));
    }

    void isCutOffWithTheControl()
    {
        CardWindow window(3, small);
        auto *number = window.column->findChild<QPushButton *>("pbMajor");
        number->setFocus(Qt::TabFocusReason);
        QScrollBar *bar = window.area->verticalScrollBar();
        bar->setValue(number->height() / 2);
        QVERIFY(window.frame->isVisible());
        QCOMPARE(window.frame->geometry(), window.around(*number) & window.sight());
        bar->setValue(bar->maximum());
        QVERIFY(window.frame->geometry().isEmpty() || !window.frame->isVisible());
    }

    void takesNoClicks()
    {
        CardWindow window(1, large);
        window.button->setFocus(Qt::TabFocusReason);
        QSignalSpy clicked(window.button, &QPushButton::clicked);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          window.around(*window.button).center());
        QCOMPARE(clicked.size(), 1);
    }

    void isDarkAndLight()
    {
        CardWindow window(1, large);
        QVERIFY(!window.frame->grab().isNull());
        window.button->setFocus(Qt::TabFocusReason);
        const QImage seen = window.grab(window.frame->geometry()).toImage();
        const int middle = seen.width() / 2;
        const QRgb dark = qRgb(0, 0, 0);
        QCOMPARE((QVector{seen.pixel(middle, 0), seen.pixel(middle, 1), seen.pixel(middle, 2)}),
                 (QVector{dark, dark, qRgb(255, 255, 255)}));
    }

    /// Partial repaints while the focus moves must give the same picture as a full repaint.
    void leavesNoTraces()
    {
        // Wine 10 paints what a theme looks like wrongly off screen.
        QApplication::setStyle(QStringLiteral("windows"));
        CardWindow window(1, large);
        for (int i = 0; i < 17; ++i) {
            QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
            QCoreApplication::processEvents();
            const QImage shown = window.screen()->grabWindow(window.winId()).toImage();
            const QImage drawnAnew = window.grab().toImage();
            QVERIFY2(shown.convertToFormat(QImage::Format_RGB32) ==
                         drawnAnew.convertToFormat(QImage::Format_RGB32),
                     qPrintable(TabStops::focused()));
        }
    }
};

QTEST_MAIN(KeyboardFocusFrameTest)
#include "KeyboardFocusFrameTest.moc"
