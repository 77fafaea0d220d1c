#pragma once

#include "tests/support/Registry.h"

#include <QString>
#include <QStringList>

/// A fixture of the registry keys of HALCON installations. Its keys are removed with their owner; others
/// stay.
class HalconKeys {
public:
    HalconKeys() = default;
    HalconKeys(const HalconKeys &) = delete;
    HalconKeys &operator=(const HalconKeys &) = delete;
    ~HalconKeys()
    {
        for (const QString &key : groups) {
            Registry::removeTree(key);
        }
    }

    /// Makes the group @p name below @p parent and returns its full path.
    QString addGroup(const QString &parent, const QString &name)
    {
        QString key = parent + '\\' + name;
        groups.append(key);
        Registry::createKey(key);
        return key;
    }

    /// Registers a version in a product key as its installer does.
    void addVersion(const QString &productKey, const QString &name, const QStringList &components,
                    const QString &installDir, quint32 revision)
    {
        const QString group = addGroup(productKey, name);
        for (const QString &component : components) {
            Registry::setString(group + "\\InstalledComponents", component, "1");
        }
        Registry::setString(group + "\\Initialized", "InstallDir", installDir);
        Registry::setString(group + "\\Initialized", "ExampleRoot", installDir + "\\examples");
        Registry::setDword(group + "\\Initialized", "InstalledRevision", revision);
        Registry::setDword(group + "\\Initialized", "InstalledBuild", 0);
    }

    /// Registers a product in an uninstall key.
    void addUninstallEntry(const QString &uninstallKey, const QString &name, const QString &installLocation)
    {
        const QString group = addGroup(uninstallKey, name);
        Registry::setString(group, "DisplayName", name);
        Registry::setString(group, "InstallLocation", installLocation);
    }

private:
    QStringList groups;
};

namespace Keys {

const QString product32 = R"(HKEY_LOCAL_MACHINE\Software\Wow6432Node\MVTec\HALCON)";
const QString product64 = R"(HKEY_LOCAL_MACHINE\Software\MVTec\HALCON)";
const QString uninstallOfUser = R"(HKEY_CURRENT_USER\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall)";
const QString uninstallOfMachine =
    R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall)";

} // namespace Keys
