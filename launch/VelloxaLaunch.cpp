#include "launch/VelloxaLaunch.h"

#include "base/RegistryReader.h"
#include "launch/ProcessStart.h"

#include <QFileInfo>

namespace {

QString registeredDirectory()
{
    return RegistryReader(QStringLiteral(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)"))
        .value(QStringLiteral("InstallDir"))
        .toString();
}

/// One of Velloxa's two builds. Its directory is looked up at the first use.
struct Build {
    explicit Build(const QString &fileName) : fileName(fileName), directory(registeredDirectory()) {}

    const QString fileName;
    const QString directory;
    QString executable; ///< its path, once the file has been found to exist
};

Build &build64()
{
    static Build build(QStringLiteral("velloxa.exe"));
    return build;
}

Build &build32()
{
    static Build build(QStringLiteral("velloxa32.exe"));
    return build;
}

QString findExecutable(Build &build)
{
    // With an empty directory the path would start at the root of the current drive.
    if (build.executable.isEmpty() && !build.directory.isEmpty()) {
        const QString path = build.directory + QLatin1Char('\\') + build.fileName;
        if (QFileInfo::exists(path)) {
            build.executable = path;
        }
    }
    return build.executable;
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
    return build64().directory;
}

QString velloxaExecutable64()
{
    return findExecutable(build64());
}

QString velloxaExecutable32()
{
    return findExecutable(build32());
}
