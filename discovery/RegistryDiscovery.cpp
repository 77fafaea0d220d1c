#include "discovery/RegistryDiscovery.h"

#include "base/DebugLogger.h"
#include "base/RegistryReader.h"
#include "discovery/Runtimes.h"
#include "discovery/VersionNames.h"

#include <QDebug>

#include <limits>

namespace {

void reportInvalidVersion(const QString &name)
{
    DebugLogger::instance().log(invalidVersionText(name));
    qWarning() << invalidVersionText(name);
}

/// The names of the values that are 1, those of the keys below included.
QStringList installedComponents(const RegistryReader &key)
{
    static const QVariant installed(QStringLiteral("1"));
    QStringList components;
    const QStringList names = key.allKeys();
    for (const QString &name : names) {
        if (key.value(name) == installed) {
            components.append(name);
        }
    }
    return components;
}

/// The number in @p value; 0 when it is not a number or does not fit into 32 bits.
int number(const QVariant &value)
{
    // Numeric registry values have no sign: one that is negative here was too large for the type.
    const bool isText = value.type() == QVariant::String;
    const qint64 lowest = isText ? std::numeric_limits<int>::min() : 0;
    const qint64 number = value.toLongLong();
    return number >= lowest && number <= std::numeric_limits<int>::max() ? static_cast<int>(number) : 0;
}

} // namespace

QList<HalconInstallation> getAllHalconVersions()
{
    DebugLogger::instance().log(QStringLiteral("Get all HALCON versions"));
    QList<HalconInstallation> installations;
    installations +=
        readMainHalconKey(QStringLiteral(R"(HKEY_LOCAL_MACHINE\Software\Wow6432Node\MVTec\HALCON)"));
    installations += readMainHalconKey(QStringLiteral(R"(HKEY_LOCAL_MACHINE\Software\MVTec\HALCON)"));
    installations += readUninstallKeys(
        QStringLiteral(R"(HKEY_CURRENT_USER\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall)"));
    installations += readUninstallKeys(
        QStringLiteral(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall)"));
    orderInstallations(installations);
    return installations;
}

QList<HalconInstallation> readMainHalconKey(const QString &keyPath)
{
    DebugLogger &logger = DebugLogger::instance();
    logger.log(QStringLiteral("Investigating main HALCON registry key ") + keyPath);
    const RegistryReader product(keyPath);
    QList<HalconInstallation> installations;
    const QStringList groups = product.childGroups();
    for (const QString &group : groups) {
        const VersionName version = parseProductKeyName(group);
        if (!version.installation) {
            reportInvalidVersion(group);
            continue;
        }
        HalconInstallation base = *version.installation;

        const QString components = group + QStringLiteral("/InstalledComponents");
        // Deliberate: a backslash in front, and none between key and group.
        logger.log(QStringLiteral("Investigating registry key \\") + keyPath + components);
        base.setComponents(installedComponents(product.below(components)));

        const RegistryReader initialized = product.below(group + QStringLiteral("/Initialized"));
        base.installDir = initialized.value(QStringLiteral("InstallDir")).toString();
        base.setExampleRoot(initialized.value(QStringLiteral("ExampleRoot")).toString());
        base.revision = number(initialized.value(QStringLiteral("InstalledRevision")));
        base.build = number(initialized.value(QStringLiteral("InstalledBuild")));

        installations += installationsPerRuntime(base);
    }
    return installations;
}

QList<HalconInstallation> readUninstallKeys(const QString &keyPath)
{
    DebugLogger &logger = DebugLogger::instance();
    logger.log(QStringLiteral("Investigating SOM HALCON registry key \"") + keyPath + QLatin1Char('"'));
    const RegistryReader uninstall(keyPath);
    QList<HalconInstallation> installations;
    const QStringList groups = uninstall.childGroups();
    for (const QString &group : groups) {
        const VersionName version = parseUninstallKeyName(group);
        if (!version.matches) {
            continue;
        }
        logger.log(QStringLiteral("subkey \"") + group + QLatin1Char('"'));
        if (!version.installation) {
            reportInvalidVersion(group);
            continue;
        }
        HalconInstallation base = *version.installation;
        base.setComponents({QStringLiteral("RuntimeX64")});

        base.installDir = uninstall.below(group)
                              .value(QStringLiteral("InstallLocation"))
                              .toString()
                              .remove(QLatin1Char('"'));
        base.setExampleRoot(base.installDir);

        installations += installationsPerRuntime(base);
    }
    return installations;
}
