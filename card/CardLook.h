#pragma once

#include <QList>
#include <QSize>
#include <QString>

class QGridLayout;
class QPushButton;
class QWidget;

/// Gives @p card and all of its controls so far the colours and the style of the installation's major
/// version.
void styleCard(QWidget &card, int major);

/// Moves @p button to three rows and columns of @p grid, from @p row on, as if it had a badge.
void placeForBadge(QPushButton &button, QGridLayout &grid, int row);

/// The same, with a small button over its lower right corner: the badge, which is returned.
QPushButton *placeWithBadge(QPushButton &button, QGridLayout &grid, int row, const QString &text,
                            const QString &styleSheet);

/// Gives each of the buttons a shadow.
void addDropShadows(const QList<QPushButton *> &buttons);
