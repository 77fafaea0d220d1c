#include "card/CardIcons.h"

#include "card/ProgramIcon.h"

#include <QApplication>
#include <QDateTime>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

namespace {

QPixmap pictureOf(const QPixmap &picture, const QSize &size)
{
    const qreal ratio = picture.devicePixelRatio();
    if (ratio <= 1) {
        return picture;
    }
    QPixmap canvas(size * ratio);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    const QSizeF shown = QSizeF(picture.size()) / ratio;
    painter.drawPixmap(QPointF(size.width() - shown.width(), size.height() - shown.height()) / 2, picture);
    return canvas;
}

class LateIconEngine : public QIconEngine {
public:
    LateIconEngine(const QString &path, const QSize &shownSize) : path(path), shownSize(shownSize) {}

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        QPixmap result = picture();
        if (result.width() > size.width() || result.height() > size.height()) {
            result = result.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        if (mode != QIcon::Normal && !result.isNull()) {
            QStyleOption option;
            option.palette = QGuiApplication::palette();
            result = QApplication::style()->generatedIconPixmap(mode, result, &option);
        }
        return result;
    }

    /// Never larger than the picture.
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return pixmap(size, mode, state).size();
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    QIconEngine *clone() const override { return new LateIconEngine(*this); }

private:
    const QPixmap &picture()
    {
        // A window may move to a screen with another scale.
        const qreal ratio = qApp->devicePixelRatio();
        if (loadedFor != ratio) {
            loaded = pictureOf(programPicture(path), shownSize);
            loadedFor = ratio;
        }
        return loaded;
    }

    QString path;
    QSize shownSize;
    QPixmap loaded;
    qreal loadedFor = 0; ///< the screens' greatest scale then
};

} // namespace

QIcon iconOfItsOwnSize(const QPixmap &picture, const QSize &size)
{
    return QIcon(pictureOf(picture, size));
}

QIcon pictureIcon(const QString &file)
{
    // QPixmap keeps what it has read.
    QIcon icon{QPixmap(file)};
    if (qApp->devicePixelRatio() > 1) {
        icon.addPixmap(QPixmap(QString(file).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"))));
    }
    return icon;
}

QPixmap programPicture(const QString &path)
{
    constexpr int size = 48;
    const QFileInfo file(path);
    const qreal ratio = qApp->devicePixelRatio();
    const QString key =
        QStringLiteral("program %1 %2 %3").arg(path).arg(file.lastModified().toMSecsSinceEpoch()).arg(ratio);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = programIcon(path, qRound(size * ratio));
        if (picture.isNull()) {
            picture = QFileIconProvider().icon(file).pixmap(size, size);
        } else {
            picture.setDevicePixelRatio(ratio);
        }
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

QIcon lateProgramIcon(const QString &path, const QSize &size)
{
    return QIcon(new LateIconEngine(path, size));
}

QIcon folderIcon()
{
    static const QIcon icon = QFileIconProvider().icon(QFileIconProvider::Folder);
    return icon;
}
