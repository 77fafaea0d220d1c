#pragma once

#include <QPalette>

/// Colours for what stands on a card of @p background, a light colour. The card looks the same in every theme of the
/// system, so its texts cannot take their colours from there: they would be white on a light card in a dark theme.
QPalette cardPalette(const QColor &background);
