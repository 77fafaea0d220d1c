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

/// The icon of the program @p path, 48 pixels large; the shell's for such a file when there is none in it, or no
/// such file. Read once, and again when the file has changed.
QPixmap programPicture(const QString &path);

/// An icon of programPicture() for a button with icons of @p size. The picture is read when the icon is first
/// shown: that takes milliseconds, and of many cards most are out of sight.
QIcon lateProgramIcon(const QString &path, const QSize &size);

/// The shell's icon of a directory, asked for once.
QIcon folderIcon();
