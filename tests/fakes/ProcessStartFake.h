#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QString>

/// A fake of launch/ProcessStart_win.cpp: starts nothing, records every start, and fails when told to.
namespace ProcessStartFake {

struct Start {
    QString executable;
    QString arguments;
    HalconInstallation installation;
};

/// Every start since the last reset.
QList<Start> &starts();

/// Makes every further start fail with this line, or succeed if it is empty.
void failWith(const QString &errorLine);

/// Forgets all starts and lets further ones succeed.
void reset();

} // namespace ProcessStartFake
