#pragma once

#include "app/MainWindow.h"
#include "tests/support/Registry.h"

#include <QCheckBox>
#include <QSettings>
#include <QtTest>

/// What the main window finds in the registry.
namespace WindowMachine {

inline const QString productKey = R"(HKEY_LOCAL_MACHINE\Software\MVTec\HALCON)";
inline const QString settingsKey = R"(HKEY_CURRENT_USER\Software\Quorvik Solutions\Corvanta for HALCON)";
inline const QString updateCheckHalcon = "updateCheckHalcon";
inline const QString updateCheckCorvanta = "updateCheckCorvanta";

/// Registers HALCON @p version, such as "20.11-Progress", for x64 in @p directory.
inline void install(const QString &version, const QString &directory)
{
    Registry::setDword(productKey + '\\' + version + "\\InstalledComponents", "RuntimeX64", 1);
    Registry::setString(productKey + '\\' + version + "\\Initialized", "InstallDir", directory);
}

/// The same in a directory that does not exist.
inline void install(const QString &version)
{
    install(version, "C:\\" + version);
}

/// No HALCON is installed, and the program has never been started.
inline void clear()
{
    Registry::removeTree(productKey);
    Registry::removeTree(settingsKey);
}

/// The option as stored in the registry, or an invalid value when there is none.
inline QVariant stored(const QString &option)
{
    return QSettings(settingsKey, QSettings::NativeFormat).value(option);
}

/// Clicks the box of an update check in the shown @p window.
inline void click(const MainWindow &window, const QString &checkBox)
{
    auto *box = window.findChild<QCheckBox *>(checkBox);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

} // namespace WindowMachine
