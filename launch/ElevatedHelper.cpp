#include "launch/ElevatedHelper.h"

#include "base/ProgramDirectory.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QObject>

QString helperExecutablePath()
{
    return besideProgram(QStringLiteral("qz_com_helper.exe"));
}

QString reasonForMissingHelper()
{
    const QString directory = QCoreApplication::applicationDirPath();
    if (QFileInfo::exists(directory + QStringLiteral("/qz_com_helper.exe")) ||
        !QFileInfo::exists(directory + QStringLiteral("/qz_com_helper.txt"))) {
        return {};
    }
    return QObject::tr("The program is installed for you alone, and so without its helper: "
                       "what acts with administrator rights has to lie where only administrators can write. "
                       "Install the program for all users to do this.");
}

int runHelper(const QString &arguments, bool show)
{
    constexpr int notStarted = -1;
    if (!reasonForMissingHelper().isEmpty()) {
        return notStarted;
    }
    return runElevated(helperExecutablePath(), arguments, show, true);
}
