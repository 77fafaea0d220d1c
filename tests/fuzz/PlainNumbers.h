#pragma once

#include <QChar>
#include <QString>

#include <limits>
#include <optional>

/// A decimal integer of 32 bits, perhaps with a sign and with spaces around it, read digit by digit. Qt takes
/// the minus sign of mathematics, too.
inline std::optional<int> plainNumber(const QString &text)
{
    int begin = 0;
    int end = text.size();
    while (begin < end && text[begin].isSpace()) {
        ++begin;
    }
    while (end > begin && text[end - 1].isSpace()) {
        --end;
    }
    const bool negative = begin < end && (text[begin] == QLatin1Char('-') || text[begin] == QChar(0x2212));
    if (negative || (begin < end && text[begin] == QLatin1Char('+'))) {
        ++begin;
    }
    if (begin == end) {
        return std::nullopt;
    }
    qint64 number = 0;
    for (int i = begin; i < end; ++i) {
        const ushort unit = text[i].unicode();
        if (unit < '0' || unit > '9' || number > 0xFFFFFFFFLL) {
            return std::nullopt;
        }
        number = number * 10 + (unit - '0');
    }
    number = negative ? -number : number;
    const bool fits = number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    return fits ? std::optional(static_cast<int>(number)) : std::nullopt;
}

/// How many code units from @p position on are digits of any script.
inline int digitsFrom(const QString &text, int position)
{
    const QVector<uint> rest = text.mid(position).toUcs4();
    int count = 0;
    for (const uint character : rest) {
        if (QChar::category(character) != QChar::Number_DecimalDigit) {
            break;
        }
        count += QChar::requiresSurrogates(character) ? 2 : 1;
    }
    return count;
}

/// Whether Qt knows all characters: the library for regular expressions may know others.
inline bool knowsAllCharacters(const QString &text)
{
    for (const uint character : text.toUcs4()) {
        if (QChar::category(character) == QChar::Other_NotAssigned) {
            return false;
        }
    }
    return true;
}
