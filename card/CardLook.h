#pragma once

#include <QIcon>
#include <QList>
#include <QSize>
#include <QString>

class QPushButton;
class QWidget;

/// Gives @p card and all of its controls so far the colours and the style of the installation's major
/// version.
void styleCard(QWidget &card, int major);

/// A small button for a corner of a larger one. It belongs to @p card.
QPushButton *makeBadge(const QString &text, const QString &styleSheet, QWidget *card);

/// Gives each of the buttons a shadow.
void addDropShadows(const QList<QPushButton *> &buttons);

/// The icon that the shell shows for the file at @p path, at the size that fits where icons of @p shownSize
/// are shown.
QIcon shellIcon(const QString &path, const QSize &shownSize);
