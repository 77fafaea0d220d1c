#include "base/ProgramDirectory.h"

#include <QCoreApplication>
#include <QDir>

QString besideProgram(const QString &fileName)
{
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QLatin1Char('\\') + fileName;
}
