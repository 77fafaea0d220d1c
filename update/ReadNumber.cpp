#include "update/ReadNumber.h"

std::optional<int> readNumber(const QString &text, const QString &complaint, QStringList *log)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (isNumber) {
        return number;
    }
    log->append(complaint);
    return std::nullopt;
}
