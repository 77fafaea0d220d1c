#include "card/CardLook.h"

#include "card/ButtonShadow.h"
#include "card/CardPalette.h"
#include "card/CardStyleSheets.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVariant>

namespace {

constexpr int badgeCells = 3; // rows and columns of a button, of which the badge has the last

void markPushButtons(const QWidget &card)
{
    const QList<QPushButton *> buttons = card.findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        button->setProperty("class", QStringLiteral("myPushButton"));
    }
}

void setColours(QWidget &card, const QPalette &palette)
{
    card.setPalette(palette);
    // With a style sheet the children do not inherit the palette.
    const QList<QWidget *> children = card.findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (!child->isWindow()) {
            child->setPalette(palette);
        }
    }
}

} // namespace

void styleCard(QWidget &card, int major)
{
    markPushButtons(card);
    const QString colour = cardColour(major);
    setColours(card, cardPalette(colour));
    card.setStyleSheet(cardStyleSheet(colour));
}

void placeForBadge(QPushButton &button, QGridLayout &grid, int row)
{
    // This takes it out of the layout that it is in.
    grid.addWidget(&button, row, 0, badgeCells, badgeCells);
}

QPushButton *placeWithBadge(QPushButton &button, QGridLayout &grid, int row, const QString &text,
                            const QString &styleSheet)
{
    placeForBadge(button, grid, row);
    auto *badge = new QPushButton(text, grid.parentWidget());
    badge->setStyleSheet(styleSheet);
    badge->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    grid.addWidget(badge, row + badgeCells - 1, badgeCells - 1);
    return badge;
}

void addDropShadows(const QList<QPushButton *> &buttons)
{
    for (QPushButton *button : buttons) {
        auto *shadow = new ButtonShadow(button);
        shadow->setOffset(4, 4);
        button->setGraphicsEffect(shadow);
    }
}
