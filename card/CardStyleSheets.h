#pragma once

#include <QString>

/// Background colour of the card of a major version, as "#rrggbb".
QString cardColour(int major);

/// The card's style sheet, which fills it with @p colour.
QString cardStyleSheet(const QString &colour);

/// Style sheet of the badge in the version number's corner; its colour tells the architecture.
QString architectureBadgeStyleSheet(const QString &arch);

/// Style sheet of the badge on the HDevelop XL button.
QString xlBadgeStyleSheet();
