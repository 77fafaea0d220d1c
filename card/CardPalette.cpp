#include "card/CardPalette.h"

QPalette cardPalette(const QColor &background)
{
    // On a light colour Qt itself chooses black texts and white lists. What is selected would be the theme's.
    QPalette palette(background);
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, text, QColor(0x40, 0x40, 0x40));
    }
    palette.setColor(QPalette::LinkVisited, Qt::blue);
    palette.setColor(QPalette::Highlight, QColor(0x00, 0x4f, 0x9e));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x59, 0x59, 0x59));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}
