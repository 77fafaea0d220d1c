#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

/// An icon of @p picture for a button with icons of @p size. The picture keeps its own size on every screen:
/// at 200 % Qt would enlarge one that is smaller than @p size beyond the button.
QIcon iconOfItsOwnSize(const QPixmap &picture, const QSize &size);

/// The icon of one of the program's own pictures, such as ":/help.png". Decoded once for all cards, unlike by
/// QIcon itself.
QIcon pictureIcon(const QString &file);

/// The shell's icon of the program @p path, 48 pixels large; a generic one when there is no such file. Asked
/// for once, and again when the file has changed.
QPixmap shellPicture(const QString &path);

/// An icon of shellPicture() for a button with icons of @p size. The shell is asked when the icon is first
/// shown: that takes it milliseconds, and of many cards most are out of sight.
QIcon shellIcon(const QString &path, const QSize &size);

/// The shell's icon of a directory, asked for once.
QIcon folderIcon();
