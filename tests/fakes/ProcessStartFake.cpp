#include "tests/fakes/ProcessStartFake.h"

#include "launch/ProcessStart.h"

namespace {

QString &failure()
{
    static QString line;
    return line;
}

} // namespace

namespace ProcessStartFake {

QList<Start> &starts()
{
    static QList<Start> recorded;
    return recorded;
}

void failWith(const QString &errorLine)
{
    failure() = errorLine;
}

void reset()
{
    starts().clear();
    failure().clear();
}

} // namespace ProcessStartFake

bool startProcess(const QString &executable, const QString &arguments, const HalconInstallation &installation,
                  QStringList *errors)
{
    ProcessStartFake::starts().append({executable, arguments, installation});
    if (failure().isEmpty()) {
        return true;
    }
    if (errors != nullptr) {
        errors->append(failure());
    }
    return false;
}

QString lastWindowsErrorText()
{
    return failure();
}
