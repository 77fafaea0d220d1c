#include "base/DebugLogger.h"

DebugLogger &DebugLogger::instance()
{
    static DebugLogger logger;
    return logger;
}

void DebugLogger::log(const QString &message)
{
    lines.append(message);
    emit updated();
}

QString DebugLogger::text() const
{
    return lines.join(QLatin1Char('\n'));
}
