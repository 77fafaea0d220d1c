#include "card/CardPalette.h"

QPalette cardPalette(const QColor &background)
{
    QPalette palette(background);
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(text, Qt::black);
        palette.setColor(QPalette::Disabled, text, QColor(0x40, 0x40, 0x40));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(0x40, 0x40, 0x40));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, Qt::white);
    palette.setColor(QPalette::Link, Qt::blue);
    palette.setColor(QPalette::LinkVisited, Qt::blue);
    palette.setColor(QPalette::Highlight, QColor(0x00, 0x4f, 0x9e));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x59, 0x59, 0x59));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}
