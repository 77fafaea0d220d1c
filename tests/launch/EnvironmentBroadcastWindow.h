#pragma once

#include "tests/support/Patience.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QtTest>

/// A window in another process; this object's destruction ends it. Windows only.
class EnvironmentBroadcastWindow {
public:
    enum class Manner {
        Listens,
        Hangs, ///< and never handles a message
    };

    explicit EnvironmentBroadcastWindow(Manner manner = Manner::Listens)
    {
        process.start(QStringLiteral(BROADCAST_WINDOW_EXECUTABLE),
                      {manner == Manner::Hangs ? "hang" : "listen"});
        if (!QTest::qWaitFor([this] { return process.canReadLine(); }, patienceMilliseconds) ||
            process.readLine().trimmed() != "ready") {
            qFatal("no window in another process: %s", qPrintable(process.errorString()));
        }
    }
    EnvironmentBroadcastWindow(const EnvironmentBroadcastWindow &) = delete;
    EnvironmentBroadcastWindow &operator=(const EnvironmentBroadcastWindow &) = delete;
    ~EnvironmentBroadcastWindow()
    {
        process.kill();
        process.waitForFinished(patienceMilliseconds);
    }

    /// Closes a listening window and returns what it received, a line for each message.
    QStringList closeAndTakeLines()
    {
        process.terminate();
        if (!process.waitForFinished(patienceMilliseconds)) {
            return {"(did not end)"};
        }
        return QString::fromLatin1(process.readAll())
            .split(QRegularExpression("[\r\n]+"), Qt::SkipEmptyParts);
    }

private:
    QProcess process;
};
