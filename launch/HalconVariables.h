#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QString>

#include <optional>

/// One of the environment variables by which HALCON's programs find an installation.
struct HalconVariable {
    QString name;
    std::optional<QString> value; ///< absent when the installation has no example root, which it would name
};

/// HALCONROOT, HALCONARCH, HALCONIMAGES and HALCONEXAMPLES, in this order, as they are for @p installation.
QList<HalconVariable> halconVariables(const HalconInstallation &installation);
