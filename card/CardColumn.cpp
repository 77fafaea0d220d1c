#include "card/CardColumn.h"

#include "card/SingleHalconVersionFrame.h"

#include <QVBoxLayout>

CardColumn::CardColumn(const QList<HalconInstallation> &installations)
{
    auto *layout = new QVBoxLayout(this);
    layout->setMargin(0);
    layout->setAlignment(Qt::AlignTop);
    // The cards' own minimum height is less than what is in them needs. A policy that does not let the column
    // shrink makes the scroll area around it scroll instead.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    QList<SingleHalconVersionFrame *> cards;
    for (const HalconInstallation &installation : installations) {
        // A new parent would apply the style sheet to the whole card again.
        cards.append(new SingleHalconVersionFrame(installation, this));
        layout->addWidget(cards.last());
    }
    // Only here, because a new parent takes a widget out of the order.
    for (SingleHalconVersionFrame *card : qAsConst(cards)) {
        const QList<QWidget *> stops = card->tabStops();
        for (QWidget *stop : stops) {
            if (last != nullptr) {
                setTabOrder(last, stop);
            }
            last = stop;
        }
    }
}

QWidget *CardColumn::lastTabStop() const
{
    return last;
}
