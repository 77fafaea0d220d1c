#include "recent/HtmlDelegate.h"

#include "tests/support/Rows.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStandardItemModel>
#include <QTextDocument>
#include <QTreeView>
#include <QtTest>

#include <functional>

namespace {

constexpr QSize imageSize(300, 80);
constexpr QRect itemArea(40, 20, 200, 30);

/// A style that draws items with only a plain background, puts texts where the test wants them, and records
/// what it was asked to draw.
class RecordingStyle : public QProxyStyle {
public:
    RecordingStyle() : QProxyStyle("fusion") {}

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element != CE_ItemViewItem) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        drawn.append(*qstyleoption_cast<const QStyleOptionViewItem *>(option));
        painter->fillRect(option->rect, background);
    }

    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override
    {
        return element == SE_ItemViewItemText ? textArea
                                              : QProxyStyle::subElementRect(element, option, widget);
    }

    QRect textArea = itemArea;
    QColor background = Qt::white;
    mutable QList<QStyleOptionViewItem> drawn;
};

/// An empty image.
QImage blankImage()
{
    QImage image(imageSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// The bounding rectangle of the pixels of @p image that @p wanted accepts.
QRect areaOf(const QImage &image, const std::function<bool(const QColor &)> &wanted)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (wanted(image.pixelColor(x, y))) {
                area |= QRect(x, y, 1, 1);
            }
        }
    }
    return area;
}

bool isDrawn(const QColor &colour)
{
    return colour.alpha() > 0;
}

/// More of one colour than of the others: the edges of letters are smoothed.
bool isRed(const QColor &colour)
{
    return colour.red() > colour.green() + 50 && colour.red() > colour.blue() + 50;
}
bool isGreen(const QColor &colour)
{
    return colour.green() > colour.red() + 50 && colour.green() > colour.blue() + 50;
}
bool isBlue(const QColor &colour)
{
    return colour.blue() > colour.red() + 50 && colour.blue() > colour.green() + 50;
}
bool isBlack(const QColor &colour)
{
    return isDrawn(colour) && colour.lightness() < 60;
}

} // namespace

Q_DECLARE_METATYPE(QStyle::State)

class HtmlDelegateTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QPalette palette;
        palette.setColor(QPalette::Text, Qt::black);
        QApplication::setPalette(palette);
        widget.setStyle(&style);
        style.textArea = itemArea;
        style.background = Qt::white;
        style.drawn.clear();
    }

    void matchesAreRed()
    {
        const QString text = "MMM<b><font color='red'>MMM</font></b>MMM";
        const QImage image = painted(option(), text);

        const QRect red = areaOf(image, isRed);
        const QRect black = areaOf(image, isBlack);
        QVERIFY(!red.isEmpty());
        // The text begins and ends with parts that do not match.
        QVERIFY(black.left() < red.left());
        QVERIFY(black.right() > red.right());
        // No black pixels among the red ones.
        const QRect middle(red.left(), 0, red.width(), imageSize.height());
        QCOMPARE(areaOf(image.copy(middle.adjusted(2, 0, -2, 0)), isBlack), QRect());

        QCOMPARE(areaOf(painted(option(), "MMMMMM"), isRed), QRect());
    }

    void sameAsTheDocument()
    {
        const QString html = "C:\\<b><font color='red'>PROG</font></b>rams\\a &amp; b.hdev";
        style.textArea = itemArea.adjusted(5, 3, -5, -3);
        QTextDocument document;
        document.setDefaultFont(option().font);
        document.setHtml(html);
        QImage expected = blankImage();
        {
            QPainter painter(&expected);
            painter.fillRect(itemArea, Qt::white);
            painter.setClipRect(style.textArea);
            painter.translate(style.textArea.topLeft());
            document.documentLayout()->draw(&painter, QAbstractTextDocumentLayout::PaintContext());
        }
        QVERIFY(!areaOf(expected, isBlack).isEmpty());
        QCOMPARE(painted(option(), html), expected);
    }

    void textColour_data()
    {
        columns<QStyle::State, bool>("state", "highlighted");

        const QStyle::State enabled = QStyle::State_Enabled;
        row("plain", enabled, false);
        row("selected", (enabled | QStyle::State_Selected), false);
        row("selected and active", (enabled | QStyle::State_Selected | QStyle::State_Active), true);
        row("selected, active and focused",
            (enabled | QStyle::State_Selected | QStyle::State_Active | QStyle::State_HasFocus), true);
    }

    void textColour()
    {
        QFETCH(QStyle::State, state);
        QFETCH(bool, highlighted);
        QStyleOptionViewItem item = option();
        item.state = state;

        const QImage image = painted(item, "MMM<font color='red'>MMM</font>");

        QCOMPARE(!areaOf(image, isGreen).isEmpty(), highlighted);
        QCOMPARE(!areaOf(image, isBlack).isEmpty(), !highlighted);
        // The inactive group's colour is not used.
        QCOMPARE(areaOf(image, isBlue), QRect());
        // The text's own colours still apply.
        QVERIFY(!areaOf(image, isRed).isEmpty());
    }

    void backgroundIsDrawnByTheStyle_data() { textColour_data(); }

    void backgroundIsDrawnByTheStyle()
    {
        QFETCH(QStyle::State, state);
        style.background = QColor(0, 0, 200);
        QStyleOptionViewItem item = option();
        item.state = state;

        const QImage image = painted(item, "<b>M</b>");

        QCOMPARE(style.drawn.size(), 1);
        const QStyleOptionViewItem &drawn = style.drawn.constFirst();
        QCOMPARE(drawn.text, QString());
        QCOMPARE(drawn.state, state);
        QCOMPARE(drawn.rect, itemArea);
        QCOMPARE(drawn.index, model.index(0, 0));
        QVERIFY(drawn.features.testFlag(QStyleOptionViewItem::HasDisplay));
        QCOMPARE(areaOf(image, isDrawn), itemArea);
        QCOMPARE(image.pixelColor(itemArea.bottomRight()), style.background);
        // The option passed in is unchanged.
        QCOMPARE(item.rect, itemArea);
        QCOMPARE(item.text, QString());
    }

    void applicationStyleWithoutAWidget()
    {
        auto *applicationStyle = new RecordingStyle;
        const QString before = QApplication::style()->objectName();
        QApplication::setStyle(applicationStyle);
        QStyleOptionViewItem item = option();
        item.widget = nullptr;
        painted(item, "M");
        const int drawnByApplication = applicationStyle->drawn.size();
        painted(option(), "M");
        const int drawnAtLast = applicationStyle->drawn.size();
        QApplication::setStyle(before);

        QCOMPARE(drawnByApplication, 1);
        QCOMPARE(drawnAtLast, 1);
        QCOMPARE(style.drawn.size(), 1);
    }

    void nothingOutsideTheItem_data()
    {
        columns<QString>("html");

        row("too wide", QString(300, 'M'));
        row("too high", "M<br>M<br>M<br>M<br>M<br>M");
    }

    void nothingOutsideTheItem()
    {
        QFETCH(QString, html);
        QCOMPARE(areaOf(painted(option(), html), isDrawn), itemArea);

        // Nor with the real style of the views.
        QStyleOptionViewItem item = option();
        item.widget = nullptr;
        item.state |= QStyle::State_Selected | QStyle::State_Active;
        const QRect drawn = areaOf(painted(item, html), isDrawn);
        QCOMPARE(itemArea | drawn, itemArea);
    }

    void painterIsRestored()
    {
        QImage image = blankImage();
        QPainter painter(&image);
        painter.translate(3, 4);
        painter.setPen(Qt::magenta);
        painter.setOpacity(0.5);
        painter.setClipRect(QRect(0, 0, 150, 60));
        const QTransform transform = painter.transform();
        const QFont font = painter.font();

        delegate.paint(&painter, option(), index("<b><font color='red'>M</font></b>"));

        QCOMPARE(painter.transform(), transform);
        QCOMPARE(painter.pen().color(), QColor(Qt::magenta));
        QCOMPARE(painter.opacity(), 0.5);
        QCOMPARE(painter.font(), font);
        QVERIFY(painter.hasClipping());
        QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 150, 60));
    }

    void sizeHint_data()
    {
        columns<QString, int>("html", "width");

        for (const int width : {40, 1000}) {
            const auto row = [&](const char *name, const QString &html) {
                QTest::addRow("%s, %d wide", name, width) << html << width;
            };
            row("spaces", "C:\\My Programs\\an inspection of gauges.hdev");
            row("marked", "C:\\<b><font color='red'>PROG</font></b>rams\\my inspection.hdev");
            row("several lines", "a<br>b<br>c");
            row("empty", "");
        }
    }

    void sizeHint()
    {
        QFETCH(QString, html);
        QFETCH(int, width);
        QStyleOptionViewItem item = option();
        item.rect = QRect(7, 5, width, 3);

        const QSize size = delegate.sizeHint(item, index(html));

        QTextDocument document;
        document.setDefaultFont(item.font);
        document.setHtml(html);
        document.setTextWidth(width);
        QCOMPARE(size, QSize(int(document.idealWidth()), int(document.size().height())));
        QVERIFY(size.height() > 0);
    }

    void fontOfTheItem()
    {
        QStyleOptionViewItem larger = option();
        larger.rect.setWidth(1000);
        larger.font.setPointSize(3 * QApplication::font().pointSize());
        QStyleOptionViewItem plain = option();
        plain.rect.setWidth(1000);
        const QSize size = delegate.sizeHint(larger, index("C:\\a.hdev"));
        QVERIFY(size.height() > 2 * delegate.sizeHint(plain, index("C:\\a.hdev")).height());
        QVERIFY(size.width() > 2 * delegate.sizeHint(plain, index("C:\\a.hdev")).width());

        larger.rect = itemArea;
        QVERIFY(areaOf(painted(larger, "M"), isBlack).width() >
                areaOf(painted(option(), "M"), isBlack).width());
    }

private:
    QModelIndex index(const QString &html)
    {
        model.clear();
        model.appendRow(new QStandardItem(html));
        return model.index(0, 0);
    }
    QStyleOptionViewItem option() const
    {
        QStyleOptionViewItem result;
        result.rect = itemArea;
        result.widget = &widget;
        result.font = widget.font();
        result.state = QStyle::State_Enabled;
        result.palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::green);
        result.palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::blue);
        return result;
    }
    QImage painted(const QStyleOptionViewItem &item, const QString &html)
    {
        QImage image = blankImage();
        QPainter painter(&image);
        delegate.paint(&painter, item, index(html));
        return image;
    }

    RecordingStyle style;
    QWidget widget;
    QStandardItemModel model;
    HtmlDelegate delegate;
};

QTEST_MAIN(HtmlDelegateTest)

#include "HtmlDelegateTest.moc"
