#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QWidget>

/// The cards of all installations, one below the other. Its size hint leaves none of them squeezed; with more
/// room the cards stay at the top.
class CardColumn : public QWidget {
    Q_OBJECT

public:
    /// Builds the cards of @p installations, in their order from the top. The Tab key goes through them in
    /// the same order.
    explicit CardColumn(const QList<HalconInstallation> &installations);

    /// The control at which the Tab key leaves the last card; null when there is no card.
    QWidget *lastTabStop() const;

private:
    QWidget *last = nullptr;
};
