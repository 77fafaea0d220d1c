#pragma once

#include <QString>

/// The native path at which @p fileName lies, or would lie, beside the program's executable.
QString besideProgram(const QString &fileName);
