#pragma once

#include <QString>

/// The version that CMake's project() states, such as "1.8".
QString projectVersion();
