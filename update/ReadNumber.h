#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// @p text as a decimal integer of 32 bits; if it is not one, appends @p complaint to @p log and returns
/// nothing.
std::optional<int> readNumber(const QString &text, const QString &complaint, QStringList *log);
