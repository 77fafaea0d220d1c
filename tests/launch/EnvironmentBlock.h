#pragma once

#include <QString>
#include <QStringList>

/// The entries of an environment block, in its order. AddressSanitizer finds a block that is too short.
inline QStringList blockEntries(const char16_t *block)
{
    QStringList entries;
    for (const char16_t *entry = block; *entry != 0; entry += entries.constLast().size() + 1) {
        entries.append(QString::fromUtf16(entry));
    }
    return entries;
}
