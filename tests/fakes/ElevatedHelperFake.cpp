#include "tests/fakes/ElevatedHelperFake.h"

#include "launch/ElevatedHelper.h"
#include "launch/EnvironmentBroadcast.h"

namespace {

struct State {
    QList<ElevatedHelperFake::Start> starts;
    int broadcasts = 0;
    int exitCode = 0;
    bool broadcastSucceeds = true;
};

State &state()
{
    static State current;
    return current;
}

} // namespace

namespace ElevatedHelperFake {

QList<Start> &starts()
{
    return state().starts;
}

int broadcasts()
{
    return state().broadcasts;
}

void setOutcome(int exitCode, bool broadcastSucceeds)
{
    state().exitCode = exitCode;
    state().broadcastSucceeds = broadcastSucceeds;
}

void reset()
{
    state() = State();
}

} // namespace ElevatedHelperFake

int runElevated(const QString &executable, const QString &arguments, bool show, bool wait)
{
    state().starts.append({executable, arguments, show, wait});
    return state().exitCode;
}

bool broadcastEnvironmentChange()
{
    ++state().broadcasts;
    return state().broadcastSucceeds;
}
