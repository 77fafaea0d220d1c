#pragma once

#include <QString>

/// The version in CMake's project(), such as "1.8".
QString projectVersion();
