#include "discovery/HalconInstallation.h"

#include <algorithm>
#include <tuple>

HalconInstallation::HalconInstallation(int major, int minor, int revision, int build)
    : major(major), minor(minor), revision(revision), build(build)
{
}

QString HalconInstallation::versionText() const
{
    return formatVersion(major, minor, revision, build, suffix);
}

QString HalconInstallation::versionArchText() const
{
    return versionText() + QStringLiteral(" (") + arch + QLatin1Char(')');
}

QString binaryDirectory(const HalconInstallation &installation)
{
    return installation.installDir + QStringLiteral("\\bin\\") + installation.arch;
}

QString formatVersion(int major, int minor, int revision, int build, const QString &suffix)
{
    if (major == -1) {
        return QString();
    }
    QStringList numbers{QString::number(major)};
    if (minor != -1) {
        numbers += QString::number(minor);
        if (revision != -1) {
            numbers += QString::number(revision);
            // Unlike the other numbers, a build of 0 says nothing and is left out.
            if (build != -1 && build != 0) {
                numbers += QString::number(build);
            }
        }
    }
    const QString version = numbers.join(QLatin1Char('.'));
    return suffix.isEmpty() ? version : version + QLatin1Char(' ') + suffix;
}

int archRank(const QString &arch)
{
    static const QStringList ascending{QStringLiteral("x86-win32"), QStringLiteral("x86sse2-win32"),
                                       QStringLiteral("x64-win64")};
    return ascending.indexOf(arch) + 1;
}

void orderInstallations(QList<HalconInstallation> &installations)
{
    using Record = HalconInstallation;
    std::sort(installations.begin(), installations.end(),
              [](const Record &a, const Record &b) { return a.versionArchText() < b.versionArchText(); });
    installations.erase(std::unique(installations.begin(), installations.end(),
                                    [](const Record &a, const Record &b) {
                                        return a.versionArchText() == b.versionArchText();
                                    }),
                        installations.end());
    std::stable_sort(installations.begin(), installations.end(),
                     [](const Record &a, const Record &b) { return archRank(a.arch) < archRank(b.arch); });
    std::stable_sort(installations.begin(), installations.end(), [](const Record &a, const Record &b) {
        return std::tie(a.major, a.minor) < std::tie(b.major, b.minor);
    });
}
