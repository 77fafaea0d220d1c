#pragma once

#include <QGraphicsDropShadowEffect>

class QPushButton;

/// The drop shadow of a push button. Qt's own effect renders the button and blurs its shadow again in each
/// paint, and to do so visits every widget of the window. This one keeps the picture in the application's
/// cache of pixmaps, and paints it for all buttons that look the same.
class ButtonShadow : public QGraphicsDropShadowEffect {
    Q_OBJECT

public:
    /// For @p button only, which owns it.
    explicit ButtonShadow(QPushButton *button);

protected:
    void draw(QPainter *painter) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A digest of what decides how the button looks: the key of the cache. Two buttons with the same name have
    /// the same rules in the style sheets of their cards.
    QString look(qreal pixelRatio) const;

    QPixmap render(const QRect &area, qreal pixelRatio);

    QPushButton *const button;
};
