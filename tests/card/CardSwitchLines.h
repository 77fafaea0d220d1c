#pragma once

#include "tests/card/BoxLines.h"

/// What boxLines() says of the card's question whether to carry out @p planned.
inline QStringList switchQuestionLines(const QStringList &planned)
{
    return questionLines("information", "Perform permanent changes?",
                         "If you continue, the following changes will be performed.\n\n" +
                             planned.join("\n- "));
}
