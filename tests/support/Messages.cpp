#include "tests/support/Messages.h"

#include "base/DebugLogger.h"

namespace {

QStringList loggedLines()
{
    const QString text = DebugLogger::instance().text();
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

QStringList &caughtWarnings()
{
    static QStringList warnings;
    return warnings;
}

void catchMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtWarningMsg) {
        caughtWarnings().append(message);
    }
}

} // namespace

LogLines::LogLines() : before(loggedLines().size()) {}

QStringList LogLines::lines() const
{
    return loggedLines().mid(before);
}

CaughtMessages::CaughtMessages() : previous(qInstallMessageHandler(catchMessage))
{
    caughtWarnings().clear();
}

CaughtMessages::~CaughtMessages()
{
    qInstallMessageHandler(previous);
}

QStringList CaughtMessages::warnings() const
{
    return caughtWarnings();
}
