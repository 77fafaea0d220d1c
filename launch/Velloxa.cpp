#include "launch/Velloxa.h"

#include "base/RegistryReader.h"

#include <QFileInfo>

#include <utility>

namespace {

QString directoryInRegistry()
{
    return RegistryReader(QStringLiteral(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)"))
        .value(QStringLiteral("InstallDir"))
        .toString();
}

} // namespace

Velloxa::Velloxa() : Velloxa(directoryInRegistry) {}

Velloxa::Velloxa(std::function<QString()> registeredDirectory)
    : registeredDirectory(std::move(registeredDirectory))
{
}

QString Velloxa::installDir()
{
    return directoryOf(build64);
}

QString Velloxa::executable64()
{
    return executableOf(build64);
}

QString Velloxa::executable32()
{
    return executableOf(build32);
}

QString Velloxa::executableFor(const QString &arch)
{
    if (arch.contains(QLatin1String("x64"), Qt::CaseInsensitive)) {
        return executable64();
    }
    if (arch.contains(QLatin1String("x86"), Qt::CaseInsensitive)) {
        return executable32();
    }
    return QString();
}

QString Velloxa::directoryOf(Build &build)
{
    if (!build.directory) {
        build.directory = registeredDirectory();
    }
    return *build.directory;
}

QString Velloxa::executableOf(Build &build)
{
    const QString directory = directoryOf(build);
    // With an empty directory the path would start at the root of the current drive.
    if (build.executable.isEmpty() && !directory.isEmpty()) {
        const QString path = directory + QLatin1Char('\\') + build.fileName;
        if (QFileInfo::exists(path)) {
            build.executable = path;
        }
    }
    return build.executable;
}
