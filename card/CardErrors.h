#pragma once

#include "discovery/HalconInstallation.h"

#include <QString>
#include <QStringList>

class QWidget;

/// Warns of @p errors, in a box of @p card's, under @p heading, whose placeholder %1 is replaced by the
/// installation.
void warnOfErrors(const QString &heading, const HalconInstallation &installation, const QStringList &errors,
                  QWidget *card);
