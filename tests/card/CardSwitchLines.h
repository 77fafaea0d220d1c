#pragma once

#include "tests/card/BoxLines.h"

#include <QStringList>

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

/// What boxLines() says of the card's question whether to switch.
inline QStringList switchQuestionLines(const QString &text)
{
    return {"title: Perform permanent changes?",
            "text: " + text,
            "icon: information",
            "buttons: 0x400400", // OK and Cancel
            "default: OK",
            "parent: the card"};
}

/// What boxLines() says of an information box of the card, with the button OK.
inline QStringList informationLines(const QString &title, const QString &text)
{
    return {"title: " + title, "text: " + text, "icon: information",
            "buttons: OK",     "default: OK",   "parent: the card"};
}
