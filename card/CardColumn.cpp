#include "card/CardColumn.h"

#include "card/SingleHalconVersionFrame.h"

#include <QVBoxLayout>

CardColumn::CardColumn(const QList<HalconInstallation> &installations, QWidget *window)
{
    auto *layout = new QVBoxLayout(this);
    layout->setMargin(0);
    layout->setAlignment(Qt::AlignTop);
    // The cards' own minimum height is less than what is in them needs. A policy that does not let the column shrink
    // makes the scroll area around it scroll instead.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    for (const HalconInstallation &installation : installations) {
        layout->addWidget(new SingleHalconVersionFrame(installation, window));
    }
}
