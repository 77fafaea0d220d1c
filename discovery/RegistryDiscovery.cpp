#include "discovery/RegistryDiscovery.h"

#include "base/DebugLogger.h"
#include "base/RegistryReader.h"
#include "discovery/RegistryRecords.h"
#include "discovery/VersionNames.h"

#include <QDebug>

namespace {

void reportInvalidVersion(const QString &name)
{
    DebugLogger::instance().log(invalidVersionText(name));
    qWarning() << invalidVersionText(name);
}

/// The values of a key, and of those below it, by name.
QVariantMap allValues(const RegistryReader &key)
{
    QVariantMap values;
    const QStringList names = key.allKeys();
    for (const QString &name : names) {
        values.insert(name, key.value(name));
    }
    return values;
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
        const QString components = group + QStringLiteral("/InstalledComponents");
        // Deliberate: a backslash in front, and none between key and group.
        logger.log(QStringLiteral("Investigating registry key \\") + keyPath + components);
        const RegistryReader initialized = product.below(group + QStringLiteral("/Initialized"));
        installations += productKeyInstallations(*version.installation,
                                                 {allValues(product.below(components)),
                                                  initialized.value(QStringLiteral("InstallDir")),
                                                  initialized.value(QStringLiteral("ExampleRoot")),
                                                  initialized.value(QStringLiteral("InstalledRevision")),
                                                  initialized.value(QStringLiteral("InstalledBuild"))});
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
        installations += uninstallKeyInstallations(
            *version.installation, uninstall.below(group).value(QStringLiteral("InstallLocation")));
    }
    return installations;
}
