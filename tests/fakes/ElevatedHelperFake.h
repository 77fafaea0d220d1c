#pragma once

#include <QList>
#include <QString>

/// In place of launch/ElevatedHelper_win.cpp and launch/EnvironmentBroadcast_win.cpp: starts nothing, records what
/// would have been started, and has the outcome it is told.
namespace ElevatedHelperFake {

struct Start {
    QString executable;
    QString arguments;
    bool show;
    bool wait;
};

/// Every start since the last reset.
QList<Start> &starts();

/// How often the change of the environment was broadcast since the last reset.
int broadcasts();

/// What every further start returns (0 at first), and whether a broadcast succeeds (true at first).
void setOutcome(int exitCode, bool broadcastSucceeds);

/// Forgets all starts and broadcasts, and lets further ones succeed.
void reset();

} // namespace ElevatedHelperFake
