#include "launch/ElevatedHelper.h"

#include "app/ProgramDirectory.h"

QString helperExecutablePath()
{
    return besideProgram(QStringLiteral("qz_com_helper.exe"));
}
