#include "card/ButtonShadow.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QPushButton>
#include <QStyleOptionButton>

namespace {

/// What a button knows of its looks when it paints itself.
struct Painting : QPushButton {
    using QPushButton::initStyleOption;
};

} // namespace

ButtonShadow::ButtonShadow(QPushButton *button) : QGraphicsDropShadowEffect(button), button(button)
{
    button->installEventFilter(this);
}

void ButtonShadow::draw(QPainter *painter)
{
    const QTransform position = painter->worldTransform();
    if (position.type() > QTransform::TxTranslate) {
        QGraphicsDropShadowEffect::draw(painter);
        return;
    }
    const qreal pixelRatio = painter->device()->devicePixelRatioF();
    const QRect area = boundingRectFor(position.mapRect(QRectF(button->rect()))).toAlignedRect();
    const QString key = look(pixelRatio);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = render(area, pixelRatio);
        QPixmapCache::insert(key, picture);
    }
    painter->setWorldTransform(QTransform());
    painter->drawPixmap(area.topLeft(), picture);
    painter->setWorldTransform(position);
}

bool ButtonShadow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::StyleAnimationUpdate) {
        // The style paints another step between two looks: what was kept is the step before.
        QPixmapCache::remove(look(button->devicePixelRatioF()));
    }
    return QGraphicsDropShadowEffect::eventFilter(watched, event);
}

QString ButtonShadow::look(qreal pixelRatio) const
{
    QStyleOptionButton option;
    (button->*&Painting::initStyleOption)(&option);
    QByteArray look;
    QDataStream stream(&look, QIODevice::WriteOnly);
    stream << button->objectName() << option.text << option.icon.cacheKey() << option.iconSize << option.rect
           << pixelRatio << int(option.state) << int(option.features) << int(option.direction)
           << option.palette << button->font() << button->styleSheet();
    // The palette alone is kilobytes.
    return QString::fromLatin1(QCryptographicHash::hash(look, QCryptographicHash::Sha1).toHex());
}

QPixmap ButtonShadow::render(const QRect &area, qreal pixelRatio)
{
    QPixmap picture(area.size() * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    // Qt's effect paints where the button is in its window.
    painter.setWindow(area);
    painter.setViewport(QRect(QPoint(), area.size()));
    QGraphicsDropShadowEffect::draw(&painter);
    return picture;
}
