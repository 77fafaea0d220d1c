#pragma once

#include <QIcon>
#include <QPixmap>

/// An icon of @p picture for a button with icons of @p size. The picture keeps its own size on every screen: left to
/// itself Qt shows one that is smaller than the button's icons larger on a screen of 200 %, out of the button.
QIcon iconOfItsOwnSize(const QPixmap &picture, const QSize &size);
