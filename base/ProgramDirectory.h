#pragma once

#include <QString>

/// The native path of @p fileName, which need not exist, beside the program's executable.
QString besideProgram(const QString &fileName);
