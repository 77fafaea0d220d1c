#include "discovery/RegistryDiscovery.h"

#include "app/DebugLogger.h"
#include "discovery/VersionNames.h"

#include <QDebug>
#include <QSettings>

namespace {

void reportInvalidVersion(const QString &name)
{
    DebugLogger::instance().log(invalidVersionText(name));
    qWarning() << invalidVersionText(name);
}

/// The keys of the settings' current group, sub-groups included, whose value is 1.
QStringList installedComponents(const QSettings &settings)
{
    static const QVariant installed(QStringLiteral("1"));
    QStringList components;
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        if (settings.value(key) == installed) {
            components.append(key);
        }
    }
    return components;
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
    QSettings settings(keyPath, QSettings::NativeFormat);
    QList<HalconInstallation> installations;
    const QStringList groups = settings.childGroups();
    for (const QString &group : groups) {
        const VersionName version = parseProductKeyName(group);
        if (!version.installation) {
            reportInvalidVersion(group);
            continue;
        }
        HalconInstallation base = *version.installation;

        settings.beginGroup(group + QStringLiteral("/InstalledComponents"));
        // File name and group stand without a separator in this line.
        logger.log(QStringLiteral("Investigating registry key ") + settings.fileName() + settings.group());
        base.setComponents(installedComponents(settings));
        settings.endGroup();

        settings.beginGroup(group + QStringLiteral("/Initialized"));
        base.installDir = settings.value(QStringLiteral("InstallDir")).toString();
        base.setExampleRoot(settings.value(QStringLiteral("ExampleRoot")).toString());
        base.revision = settings.value(QStringLiteral("InstalledRevision")).toInt();
        base.build = settings.value(QStringLiteral("InstalledBuild")).toInt();
        settings.endGroup();

        installations += installationsPerRuntime(base);
    }
    return installations;
}

QList<HalconInstallation> readUninstallKeys(const QString &keyPath)
{
    DebugLogger &logger = DebugLogger::instance();
    logger.log(QStringLiteral("Investigating SOM HALCON registry key \"") + keyPath + QLatin1Char('"'));
    QSettings settings(keyPath, QSettings::NativeFormat);
    QList<HalconInstallation> installations;
    const QStringList groups = settings.childGroups();
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

        settings.beginGroup(group);
        base.installDir =
            settings.value(QStringLiteral("InstallLocation")).toString().remove(QLatin1Char('"'));
        base.setExampleRoot(base.installDir);
        settings.endGroup();

        installations += installationsPerRuntime(base);
    }
    return installations;
}
