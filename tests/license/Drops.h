#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QList>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// Drags @p data over the middle of @p widget, as the desktop does. True when it may be dropped there.
inline bool dragOver(QWidget &widget, const QMimeData &data)
{
    QDragEnterEvent enter(widget.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&widget, &enter);
    return enter.isAccepted();
}

/// Releases @p data, which has been dragged over @p widget.
inline void drop(QWidget &widget, const QMimeData &data)
{
    QDropEvent released(widget.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &released);
}

/// Drags files over @p widget and drops them. False when they may not be dropped there.
inline bool dropFiles(QWidget &widget, const QList<QUrl> &files)
{
    QMimeData data;
    data.setUrls(files);
    if (!dragOver(widget, data)) {
        return false;
    }
    drop(widget, data);
    return true;
}
