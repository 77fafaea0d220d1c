#pragma once

#include "devenv/VisualStudioVersion.h"

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

/// The Visual Studio versions that a card has to choose from.
class VisualStudioChoice {
public:
    /// Those of @p found that build for @p arch, in the same order.
    VisualStudioChoice(const QList<VisualStudioVersion> &found, const QString &arch);

    /// The rows of the card's list.
    QStringList rows() const;

    /// The version in @p row, or null when there is none. Valid as long as the choice.
    const VisualStudioVersion *at(int row) const;

    /// The same, but when there is none a box of @p card's tells the user why: that there is nothing to
    /// choose from, or @p nothingChosen.
    const VisualStudioVersion *chosen(int row, const QString &nothingChosen, QWidget *card) const;

private:
    QList<VisualStudioVersion> versions; ///< in the order of the rows
};
