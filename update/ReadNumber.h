#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// @p text as a decimal integer of 32 bits; when it is none, appends @p complaint to @p log and returns nothing.
std::optional<int> readNumber(const QString &text, const QString &complaint, QStringList *log);
