#pragma once

#include <QFileIconProvider>
#include <QIcon>
#include <QImage>
#include <QPushButton>

/// A card's button by its object name, or by its text where it has no name.
inline QPushButton *button(const QWidget &card, const QString &name)
{
    for (QPushButton *each : card.findChildren<QPushButton *>()) {
        if (each->objectName() == name || (each->objectName().isEmpty() && each->text() == name)) {
            return each;
        }
    }
    return nullptr;
}

/// The icon of a button as the user sees it.
inline QImage shownIcon(const QPushButton &button)
{
    return button.icon().pixmap(button.iconSize()).toImage();
}

/// One of the program's pictures as a button with icons of this size shows it.
inline QImage resource(const QString &path, const QSize &size)
{
    return QIcon(path).pixmap(size).toImage();
}

/// The system's icon for a file as a button with icons of this size shows it.
inline QImage fileIcon(const QString &path, const QSize &size)
{
    return QIcon(QFileIconProvider().icon(QFileInfo(path)).pixmap(48, 48)).pixmap(size).toImage();
}
