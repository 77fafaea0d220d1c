#pragma once

#include <QString>

#include <optional>

/// @p text as a decimal integer of 32 bits, or nothing when it is not one.
std::optional<int> readNumber(const QString &text);
