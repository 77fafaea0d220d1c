#pragma once

#include <QPalette>

/// Colours for the contents of a card with @p background, a light colour. The card looks the same in every
/// theme of the system, so its texts cannot use the theme's colours: in a dark theme they would be white on a
/// light card.
QPalette cardPalette(const QColor &background);
