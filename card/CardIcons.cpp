#include "card/CardIcons.h"

#include <QPainter>

QIcon iconOfItsOwnSize(const QPixmap &picture, const QSize &size)
{
    const qreal ratio = picture.devicePixelRatio();
    if (ratio <= 1) {
        return QIcon(picture);
    }
    QPixmap canvas(size * ratio);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    const QSizeF shown = QSizeF(picture.size()) / ratio;
    painter.drawPixmap(QPointF(size.width() - shown.width(), size.height() - shown.height()) / 2, picture);
    painter.end();
    return QIcon(canvas);
}
