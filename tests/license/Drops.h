#pragma once

#include "license/InstallLicenseDropFrame.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QList>
#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>
#include <QWidget>

/// A drop area, and what it has taken: each time the path and the contents.
struct DropArea : InstallLicenseDropFrame {
    QSignalSpy dropped{this, &InstallLicenseDropFrame::file_dropped};
};

/// The actions that Explorer offers.
constexpr Qt::DropActions copyOrMove = Qt::CopyAction | Qt::MoveAction;

/// Drags @p data over the middle of @p widget, as the desktop does. Returns whether it may be dropped there.
inline bool dragOver(QWidget &widget, const QMimeData &data, Qt::DropActions offered = copyOrMove)
{
    QDragEnterEvent enter(widget.rect().center(), offered, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&widget, &enter);
    return enter.isAccepted();
}

/// The action that the source of the data is told; the source deletes what was moved. Qt::IgnoreAction for a
/// drop that was not accepted.
inline Qt::DropAction drop(QWidget &widget, const QMimeData &data, Qt::DropActions offered = copyOrMove,
                           Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    QDropEvent released(widget.rect().center(), offered, &data, Qt::LeftButton, keys);
    QApplication::sendEvent(&widget, &released);
    return released.isAccepted() ? released.dropAction() : Qt::IgnoreAction;
}

/// Drags files over @p widget and drops them. Returns false when they may not be dropped there.
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
