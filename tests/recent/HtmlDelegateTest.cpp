#include "recent/HtmlDelegate.h"

#include "tests/support/Rows.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QBitmap>
#include <QPainter>
#include <QProxyStyle>
#include <QStandardItemModel>
#include <QTextDocument>
#include <QTreeView>
#include <QtTest>

#include <cstdlib>

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

/// The bounding rectangle of what has been drawn into @p image.
QRect drawnArea(const QImage &image)
{
    return QRegion(QBitmap::fromImage(image.createAlphaMask())).boundingRect();
}

/// Whether a part of @p image has @p colour or nearly so: the edges of letters are smoothed.
bool shows(const QImage &image, const QColor &colour)
{
    constexpr int near = 100;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor found = image.pixelColor(x, y);
            if (found.alpha() > 0 && std::abs(found.red() - colour.red()) < near &&
                std::abs(found.green() - colour.green()) < near &&
                std::abs(found.blue() - colour.blue()) < near) {
                return true;
            }
        }
    }
    return false;
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
        QVERIFY(shows(expected, Qt::black) && shows(expected, Qt::red));
        QCOMPARE(painted(option(), html), expected);
    }

    void lookOfAState_data()
    {
        columns<QStyle::State, bool>("state", "highlighted");

        const QStyle::State enabled = QStyle::State_Enabled;
        row("plain", enabled, false);
        row("selected", (enabled | QStyle::State_Selected), false);
        row("selected and active", (enabled | QStyle::State_Selected | QStyle::State_Active), true);
        row("selected, active and focused",
            (enabled | QStyle::State_Selected | QStyle::State_Active | QStyle::State_HasFocus), true);
    }

    void lookOfAState()
    {
        QFETCH(QStyle::State, state);
        QFETCH(bool, highlighted);
        QStyleOptionViewItem item = option();
        item.state = state;

        const QImage image = painted(item, "MMM<font color='red'>MMM</font>");

        QCOMPARE(shows(image, Qt::green), highlighted);
        QCOMPARE(shows(image, Qt::black), !highlighted);
        // The inactive group's colour is not used.
        QVERIFY(!shows(image, Qt::blue));
        // The text's own colours still apply.
        QVERIFY(shows(image, Qt::red));

        // The style draws the background, as of an item without a text.
        QCOMPARE(style.drawn.size(), 1);
        const QStyleOptionViewItem &drawn = style.drawn.constFirst();
        QCOMPARE(drawn.text, QString());
        QCOMPARE(drawn.state, state);
        QCOMPARE(drawn.rect, itemArea);
        QCOMPARE(drawn.index, model.index(0, 0));
        QVERIFY(drawn.features.testFlag(QStyleOptionViewItem::HasDisplay));
        QCOMPARE(drawnArea(image), itemArea);
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
        QCOMPARE(drawnArea(painted(option(), html)), itemArea);

        // Nor with the real style of the views.
        QStyleOptionViewItem item = option();
        item.widget = nullptr;
        item.state |= QStyle::State_Selected | QStyle::State_Active;
        QCOMPARE(itemArea | drawnArea(painted(item, html)), itemArea);
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

        const QString path = "C:\\<b><font color='red'>PROG</font></b>rams\\my inspection.hdev";
        row("one line", path, 1000);
        row("broken into lines", path, 40);
        row("several lines", "a<br>b<br>c", 1000);
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

        // Painted on nothing, so that the letter is all there is.
        larger.rect = itemArea;
        style.background = Qt::transparent;
        QVERIFY(drawnArea(painted(larger, "M")).width() > drawnArea(painted(option(), "M")).width());
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
