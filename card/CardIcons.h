#pragma once

#include <QIcon>
#include <QPixmap>

/// An icon of @p picture for a button with icons of @p size. The picture keeps its own size on every screen:
/// at 200 % Qt would enlarge one that is smaller than @p size beyond the button.
QIcon iconOfItsOwnSize(const QPixmap &picture, const QSize &size);
