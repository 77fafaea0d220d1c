#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardShape.h"
#include "tests/card/Contrast.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextBrowser>
#include <QtTest>

namespace {

/// A theme of the system by its main colours.
QPalette theme(const QColor &window, const QColor &text, const QColor &base, const QColor &highlight,
               const QColor &highlightedText)
{
    QPalette palette(window, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
    }
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlightedText);
    return palette;
}

struct Place {
    QString name;
    QRect area; ///< in the card
};

QRect areaInCard(const QWidget &widget, const QRect &area, const QWidget &card)
{
    return {widget.mapTo(&card, area.topLeft()), area.size()};
}

QList<Place> groupTitles(const QWidget &card)
{
    QList<Place> places;
    for (const QGroupBox *group : card.findChildren<QGroupBox *>()) {
        QStyleOptionGroupBox option;
        option.initFrom(group);
        option.text = group->title();
        option.subControls = QStyle::SC_GroupBoxLabel;
        const QRect title =
            group->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, group);
        places.append({"title " + group->title(), areaInCard(*group, title, card)});
    }
    return places;
}

/// The first letters of every run of text in the details, except those with a colour of their own.
QList<Place> details(const QWidget &card)
{
    QList<Place> places;
    const auto *browser = card.findChild<QTextBrowser *>("textBrowser");
    for (QTextBlock block = browser->document()->begin(); block.isValid(); block = block.next()) {
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextFragment fragment = run.fragment();
            const QString text = fragment.text().remove(QChar::LineSeparator);
            // The red of a missing directory is fixed, whatever the background.
            if (text.size() < 3 || fragment.charFormat().foreground().color() == QColor("#ff0000")) {
                continue;
            }
            QTextCursor cursor(browser->document());
            cursor.setPosition(fragment.position() + fragment.text().size() - text.size());
            QRect area = browser->cursorRect(cursor);
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, 3);
            area = area.united(browser->cursorRect(cursor));
            places.append({"details " + text, areaInCard(*browser->viewport(), area, card)});
        }
    }
    return places;
}

QList<Place> listRows(const QWidget &card)
{
    QList<Place> places;
    const auto *list = card.findChild<QListWidget *>("lwVsVersion");
    for (int row = 0; row < list->count(); ++row) {
        const QRect area = list->visualItemRect(list->item(row)) & list->viewport()->rect();
        places.append({"row " + QString::number(row), areaInCard(*list->viewport(), area, card)});
    }
    return places;
}

/// Every text on the card except the badges, whose white text and colours are fixed.
QList<Place> texts(const QWidget &card)
{
    QList<Place> places = groupTitles(card) + details(card) + listRows(card);
    for (const char *label : {"lRegCom", "lRegComEngine"}) {
        const auto *widget = card.findChild<QWidget *>(label);
        places.append({label, areaInCard(*widget, widget->rect(), card)});
    }
    const auto *number = card.findChild<QWidget *>("pbMajor");
    places.append(
        {"number", areaInCard(*number, number->rect().adjusted(0, 0, 0, -number->height() / 3), card)});
    return places;
}

QString tooFaint(const QList<Place> &places, const QImage &picture, double needed)
{
    QStringList faint;
    for (const Place &place : places) {
        const double contrast = highestContrast(picture, place.area);
        if (contrast < needed) {
            faint.append(QString("%1: %2").arg(place.name).arg(contrast));
        }
    }
    return faint.join('\n');
}

} // namespace

class CardContrastTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void readable_data()
    {
        columns<QPalette, int>("colours", "major");

        const struct {
            const char *name;
            QPalette colours;
        } themes[] = {
            {"light", theme("#f0f0f0", "#000000", "#ffffff", "#0078d7", "#ffffff")},
            {"dark", theme("#202020", "#ffffff", "#191919", "#2a82da", "#000000")},
            {"high contrast black", theme("#000000", "#ffffff", "#000000", "#1aebff", "#000000")},
            {"high contrast white", theme("#ffffff", "#000000", "#ffffff", "#37006e", "#ffffff")},
        };
        for (const auto &each : themes) {
            for (int major = 7; major <= 14; ++major) {
                QTest::addRow("%s, HALCON %d", each.name, major) << each.colours << major;
            }
        }
    }

    void readable()
    {
        QFETCH(QPalette, colours);
        QFETCH(int, major);
        QApplication::setPalette(colours);
        const QTemporaryDir directory;
        HalconInstallation installation(major, 0, 0, 0);
        installation.arch = "x64-win64";
        installation.installDir = directory.path();
        installation.setExampleRoot(directory.filePath("none"));
        SingleHalconVersionFrame card(installation);
        CardShape::addVisualStudio(card);
        card.resize(1600, 163);
        card.show();
        QVERIFY(eventuallyActive(&card));

        const double text = 4.5;
        QVERIFY(texts(card).size() >= 15);
        QCOMPARE(tooFaint(texts(card), card.grab().toImage(), text), QString());
        card.findChild<QListWidget *>("lwVsVersion")->setFocus();
        QCOMPARE(tooFaint(listRows(card), card.grab().toImage(), text), QString());

        const auto *box = card.findChild<QCheckBox *>("cbRegCom");
        const double mark = 3;
        QCOMPARE(tooFaint({{"check mark", areaInCard(*box, box->rect(), card)}}, card.grab().toImage(), mark),
                 QString());
    }

    void menusAndBoxesKeepTheTheme()
    {
        QApplication::setPalette(theme("#000000", "#ffffff", "#000000", "#1aebff", "#000000"));
        HalconInstallation installation(13, 0, 0, 0);
        SingleHalconVersionFrame card(installation);
        card.show();
        QMessageBox box(QMessageBox::Warning, "Errors", "There were errors", QMessageBox::Ok, &card);
        box.ensurePolished();
        QMenu *menu = card.findChild<QPushButton *>("pbHelp")->menu();
        menu->ensurePolished();
        for (const QWidget *window : {static_cast<QWidget *>(&box), static_cast<QWidget *>(menu)}) {
            QCOMPARE(window->palette().color(QPalette::WindowText), QColor(Qt::white));
            QCOMPARE(window->palette().color(QPalette::Window), QColor(Qt::black));
        }
        QCOMPARE(box.findChild<QLabel *>("qt_msgbox_label")->palette().color(QPalette::WindowText),
                 QColor(Qt::white));
        QCOMPARE(card.findChild<QLabel *>("lRegCom")->palette().color(QPalette::WindowText),
                 QColor(Qt::black));
    }
};

QTEST_MAIN(CardContrastTest)
#include "CardContrastTest.moc"
