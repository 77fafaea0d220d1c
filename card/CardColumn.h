#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QWidget>

/// The cards of all installations, one below the other. Its size hint leaves none of them squeezed; with more
/// room the cards stay at the top.
class CardColumn : public QWidget {
    Q_OBJECT

public:
    /// Builds the cards of @p installations, in their order from the top; @p window is their parent until the
    /// column has taken them. The Tab key goes through them in the same order.
    CardColumn(const QList<HalconInstallation> &installations, QWidget *window);

    /// The control at which the Tab key leaves the last card; null when there is no card.
    QWidget *lastTabStop() const;

private:
    QWidget *last = nullptr;
};
