#include "tests/card/CardShape.h"
#include "card/CardColumn.h"
#include "card/CardIcons.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardMachine.h"
#include "tests/support/Rows.h"

#include <QScreen>
#include <QScrollArea>
#include <QtTest>

namespace {

/// The scrolling part of the main window, on a screen that the window fills.
class CardArea {
public:
    CardArea(int cards, const QSize &screen)
    {
        area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        area.setWidgetResizable(true);
        column = new CardColumn(installedVersions(cards));
        area.setWidget(column);
        for (const SingleHalconVersionFrame *card : shown()) {
            CardShape::addVisualStudio(*card);
        }
        const QSize aroundIt(0, 150); // title bar, options, footer and task bar
        area.resize(QSizeF(QSizeF(screen) / area.devicePixelRatioF()).toSize() - aroundIt);
        area.show();
        // The style sheet's fonts apply from the first show on, and reach the layouts by events.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    QList<SingleHalconVersionFrame *> shown() const
    {
        return column->findChildren<SingleHalconVersionFrame *>();
    }

    QScrollArea area;
    CardColumn *column;
};

} // namespace

/// Looks at the cards at the scale that the environment sets.
class CardShapeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The scale is applied exactly, not rounded to a whole number.
        const double scale = qEnvironmentVariable("TEST_SCALE", "1").toDouble();
        QCOMPARE(QGuiApplication::primaryScreen()->devicePixelRatio(), scale);
    }

    void nothingIsSqueezed_data()
    {
        columns<int, QSize, int>("cards", "screen", "letters");

        constexpr int usual = 11;
        constexpr int large = 14; // for lines of 16 pixels, the tallest of Windows' own font at 9 points
        const QSize screens[] = {{1366, 768}, {1920, 1080}, {3840, 2160}};
        for (const int cards : {2, 8}) {
            for (const QSize &screen : screens) {
                for (const int letters : {usual, large}) {
                    QTest::addRow("%d cards, screen %d pixels wide, letters of %d pixels", cards,
                                  screen.width(), letters)
                        << cards << screen << letters;
                }
            }
        }
    }

    void nothingIsSqueezed()
    {
        QFETCH(int, cards);
        QFETCH(QSize, screen);
        QFETCH(int, letters);
        QFont font("Liberation Sans");
        font.setPixelSize(letters);
        QApplication::setFont(font);
        const CardArea machine(cards, screen);
        QCOMPARE(machine.shown().size(), cards);
        for (const SingleHalconVersionFrame *card : machine.shown()) {
            QVERIFY(card->height() <= 163);
            QCOMPARE(CardShape::faults(*card).join('\n'), QString());
        }
    }

    void cardsStayAtTheTop()
    {
        const CardArea machine(2, QSize(1920, 2000));
        const QList<SingleHalconVersionFrame *> cards = machine.shown();
        QCOMPARE(cards.first()->installation().major, 18);
        QCOMPARE(cards.first()->geometry().top(), 0);
        const int gap = cards.last()->geometry().top() - cards.first()->geometry().bottom();
        QVERIFY2(gap > 0 && gap < 20, qPrintable(QString::number(gap)));
        QVERIFY(machine.column->height() > cards.last()->geometry().bottom() + 100);
    }

    void areaScrollsToTheLastCard()
    {
        CardArea machine(8, QSize(1366, 768));
        machine.area.ensureWidgetVisible(machine.shown().last(), 0, 0);
        const QWidget *last = machine.shown().last();
        QVERIFY(last->visibleRegion().boundingRect().height() == last->height());
        QCOMPARE(machine.column->height(), last->geometry().bottom() + 1);
    }

    void iconsOfProgramsKeepTheirSize()
    {
        QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
        QPushButton button;
        button.show();
        constexpr int size = 48;
        QPixmap picture(QSize(size, size) * button.devicePixelRatioF());
        picture.setDevicePixelRatio(button.devicePixelRatioF());
        picture.fill(Qt::red);
        const QSize room(64, 52);
        QImage shown = iconOfItsOwnSize(picture, room).pixmap(button.windowHandle(), room).toImage();
        int rows = 0;
        for (int y = 0; y < shown.height(); ++y) {
            rows += shown.pixelColor(shown.width() / 2, y) == Qt::red ? 1 : 0;
        }
        QCOMPARE(qRound(rows / shown.devicePixelRatio()), size);
    }
};

QTEST_MAIN(CardShapeTest)
#include "CardShapeTest.moc"
