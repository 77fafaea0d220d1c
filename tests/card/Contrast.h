#pragma once

#include <QHash>
#include <QImage>
#include <QtMath>

/// Brightness of a colour as the Web Content Accessibility Guidelines define it: 0 is black, 1 white.
inline double luminance(QRgb colour)
{
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : qPow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) + 0.0722 * part(qBlue(colour));
}

/// From 1 (no difference) to 21 (black and white).
inline double contrast(QRgb one, QRgb other)
{
    const double brighter = qMax(luminance(one), luminance(other));
    const double darker = qMin(luminance(one), luminance(other));
    return (brighter + 0.05) / (darker + 0.05);
}

/// The contrast between the background of @p area in @p picture, which is its most frequent colour, and the
/// colour that differs most from it.
inline double highestContrast(const QImage &picture, const QRect &area)
{
    QHash<QRgb, int> colours;
    for (int y = qMax(0, area.top()); y <= qMin(area.bottom(), picture.height() - 1); ++y) {
        for (int x = qMax(0, area.left()); x <= qMin(area.right(), picture.width() - 1); ++x) {
            ++colours[picture.pixel(x, y)];
        }
    }
    QRgb background = 0;
    int most = 0;
    for (auto colour = colours.cbegin(); colour != colours.cend(); ++colour) {
        if (colour.value() > most) {
            most = colour.value();
            background = colour.key();
        }
    }
    double highest = 1;
    for (auto colour = colours.cbegin(); colour != colours.cend(); ++colour) {
        highest = qMax(highest, contrast(background, colour.key()));
    }
    return highest;
}
