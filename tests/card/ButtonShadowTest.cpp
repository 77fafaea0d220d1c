#include "card/ButtonShadow.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>

#include <functional>

namespace {

/// Colours that are laid over each other in another order are rounded differently.
constexpr int roundings = 2;

using Change = std::function<void(QPushButton &)>;

/// Counts how often a button is painted.
class CountingStyle : public QProxyStyle {
public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        paints += element == CE_PushButton ? 1 : 0;
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable int paints = 0;
};

/// A button that changes its colour without anybody knowing, as a style does that animates it.
class ColouredButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).fillRect(rect(), colour); }

    QColor colour = Qt::red;
};

QIcon plainIcon(Qt::GlobalColor colour)
{
    QPixmap picture(32, 32);
    picture.fill(colour);
    return QIcon(picture);
}

/// A window with one button that has a shadow.
template <typename Button, typename Shadow>
struct ButtonWindow {
    ButtonWindow() : button(new Button(&window))
    {
        window.resize(140, 120);
        button->setObjectName("pbTest");
        button->setFlat(true);
        button->setGeometry(20, 20, 80, 60);
        auto *shadow = new Shadow(button);
        shadow->setOffset(4, 4);
        button->setGraphicsEffect(shadow);
    }

    QImage picture(qreal pixelRatio = 1)
    {
        QImage image(window.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(pixelRatio);
        image.fill(Qt::white);
        window.render(&image);
        return image;
    }

    QWidget window;
    Button *button;
};

/// The largest difference of two pictures of the same size in any part of a colour; 255 for other sizes.
int difference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size()) {
        return 255;
    }
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            largest = std::max({largest, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                                std::abs(a.blue() - b.blue())});
        }
    }
    return largest;
}

} // namespace

Q_DECLARE_METATYPE(Change)

class ButtonShadowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QPixmapCache::clear(); }

    void looksLikeQts_data()
    {
        QTest::addColumn<Change>("change");
        const auto to = [](const char *name, const Change &change) { row(name, change); };

        to("nothing", [](QPushButton &) {});
        to("text", [](QPushButton &button) { button.setText("Other"); });
        to("icon", [red = plainIcon(Qt::red)](QPushButton &button) { button.setIcon(red); });
        to("icon's size", [](QPushButton &button) { button.setIconSize(QSize(8, 8)); });
        to("size", [](QPushButton &button) { button.resize(60, 40); });
        to("place", [](QPushButton &button) { button.move(35, 25); });
        to("enabled", [](QPushButton &button) { button.setEnabled(false); });
        to("pressed", [](QPushButton &button) { button.setDown(true); });
        to("under the mouse", [](QPushButton &button) {
            button.setAttribute(Qt::WA_Hover);
            const QPoint inside = button.rect().center();
            QMouseEvent move(QEvent::MouseMove, inside, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            button.setMouseTracking(true);
            button.setAttribute(Qt::WA_UnderMouse);
            QCoreApplication::sendEvent(&button, &move);
        });
        to("default", [](QPushButton &button) { button.setDefault(true); });
        to("focus", [](QPushButton &button) {
            eventuallyActive(button.window());
            button.setFocus(Qt::TabFocusReason);
        });
        to("font", [](QPushButton &button) { button.setFont(QFont(button.font().family(), 20)); });
        to("palette", [](QPushButton &button) {
            QPalette red;
            red.setColor(QPalette::ButtonText, Qt::red);
            button.setPalette(red);
        });
        to("direction", [](QPushButton &button) { button.setLayoutDirection(Qt::RightToLeft); });
        to("style sheet", [](QPushButton &button) { button.setStyleSheet("border: 3px solid blue"); });
        to("rule for its name", [](QPushButton &button) {
            button.setObjectName("pbOther");
            button.style()->unpolish(&button);
            button.style()->polish(&button);
        });
    }

    /// The picture that is kept from before a change is not shown after it.
    void looksLikeQts()
    {
        QFETCH(Change, change);
        const QIcon icon = plainIcon(Qt::green);
        const auto pictures = [&](auto &&window, qreal pixelRatio) {
            window.window.setStyleSheet(
                "#pbOther, :default, :focus, :hover, :pressed { border: 3px solid blue }");
            window.button->setText("Text");
            window.button->setIcon(icon);
            window.window.show();
            const QImage before = window.picture(pixelRatio);
            change(*window.button);
            return QPair<QImage, QImage>(before, window.picture(pixelRatio));
        };
        for (const qreal pixelRatio : {1.0, 1.25, 2.0}) {
            const auto qts = pictures(ButtonWindow<QPushButton, QGraphicsDropShadowEffect>(), pixelRatio);
            const auto kept = pictures(ButtonWindow<QPushButton, ButtonShadow>(), pixelRatio);
            const QByteArray at = QByteArray("at ") + QByteArray::number(pixelRatio);
            QVERIFY2(difference(kept.first, qts.first) <= roundings, at);
            QVERIFY2(difference(kept.second, qts.second) <= roundings, at);
            QCOMPARE(qts.first == qts.second, QTest::currentDataTag() == QByteArray("nothing"));
        }
    }

    void paintsWhatLooksTheSameOnce()
    {
        CountingStyle style;
        ButtonWindow<QPushButton, ButtonShadow> one;
        ButtonWindow<QPushButton, ButtonShadow> alike;
        alike.button->move(30, 40);
        ButtonWindow<QPushButton, ButtonShadow> other;
        other.button->setText("Other");
        for (QPushButton *button : {one.button, alike.button, other.button}) {
            button->setStyle(&style);
        }
        one.picture();
        QCOMPARE(style.paints, 1);
        one.picture();
        alike.picture();
        QCOMPARE(style.paints, 1);
        other.picture();
        QCOMPARE(style.paints, 2);
    }

    void followsAnAnimation()
    {
        ButtonWindow<ColouredButton, ButtonShadow> window;
        const QPoint inside(60, 50);
        const auto step = [&](const QColor &colour) {
            QEvent event(QEvent::StyleAnimationUpdate);
            QCoreApplication::sendEvent(window.button, &event);
            window.button->colour = colour;
            return window.picture().pixelColor(inside);
        };
        QCOMPARE(window.picture().pixelColor(inside), QColor(Qt::red));
        QCOMPARE(step(Qt::green), QColor(Qt::green));
        QCOMPARE(step(Qt::blue), QColor(Qt::blue));
        // At its end the look is another one than before the first step.
        QCOMPARE(window.picture().pixelColor(inside), QColor(Qt::blue));
    }
};

QTEST_MAIN(ButtonShadowTest)
#include "ButtonShadowTest.moc"
