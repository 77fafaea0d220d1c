#include "launch/VelloxaLaunch.h"

#include "base/RegistryReader.h"
#include "launch/ProcessStart.h"

#include <QFileInfo>

namespace {

/// The path of one of Velloxa's executables, kept in @p found from the first time on that it exists.
QString findExecutable(const QString &fileName, QString &found)
{
    // Without a directory the path would mean whatever lies at the root of the current drive.
    if (found.isEmpty() && !velloxaInstallDir().isEmpty()) {
        const QString path = velloxaInstallDir() + QLatin1Char('\\') + fileName;
        if (QFileInfo::exists(path)) {
            found = path;
        }
    }
    return found;
}

QString executableFor(const QString &arch)
{
    if (arch.contains(QLatin1String("x64"), Qt::CaseInsensitive)) {
        return velloxaExecutable64();
    }
    if (arch.contains(QLatin1String("x86"), Qt::CaseInsensitive)) {
        return velloxaExecutable32();
    }
    return QString();
}

} // namespace

bool startVelloxa(const HalconInstallation &installation, QStringList *errors)
{
    const QString executable = executableFor(installation.arch);
    if (executable.isEmpty()) {
        return false;
    }
    const QString version = QStringLiteral("%1.%2").arg(installation.major).arg(installation.minor);
    return startProcess(executable, QStringLiteral("--halconversion=%1").arg(version), installation, errors);
}

QString velloxaInstallDir()
{
    static const QString directory =
        RegistryReader(QStringLiteral(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)"))
            .value(QStringLiteral("InstallDir"))
            .toString();
    return directory;
}

QString velloxaExecutable64()
{
    static QString found;
    return findExecutable(QStringLiteral("velloxa.exe"), found);
}

QString velloxaExecutable32()
{
    static QString found;
    return findExecutable(QStringLiteral("velloxa32.exe"), found);
}
