#pragma once

#include <QList>
#include <QString>

/// A fake of launch/ElevatedHelper_win.cpp and launch/EnvironmentBroadcast_win.cpp: starts nothing, records
/// what would have been started, and returns the results that it is given.
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

/// What every further start returns (initially 0), and whether a broadcast succeeds (initially true).
void setOutcome(int exitCode, bool broadcastSucceeds);

/// Forgets all starts and broadcasts, and lets further ones succeed.
void reset();

} // namespace ElevatedHelperFake
