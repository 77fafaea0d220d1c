#include "update/ReadNumber.h"

std::optional<int> readNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}
