#include "base/ApplicationIdentity.h"
#include "license/InstallLicenseDialog.h"

#include <QSettings>
#include <QtTest>

namespace {

/// Where the program stores its settings.
QVariant storedDirectory()
{
    return QSettings(R"(HKEY_CURRENT_USER\Software\Quorvik Solutions\Corvanta for HALCON)",
                     QSettings::NativeFormat)
        .value("lastdir_license");
}

} // namespace

class InstallLicenseSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }

    void directoryInTheRegistry()
    {
        QVERIFY(!storedDirectory().isValid());
        InstallLicenseDialog dialog("C:\\H\\license");

        dialog.set_path_and_content("C:/dropped/license.dat", "contents");
        QVERIFY(!storedDirectory().isValid());

        dialog.set_path("C:/my licences/Gr\u00f6\u00dfe/license.dat");
        QCOMPARE(storedDirectory(), QVariant("C:\\my licences\\Gr\u00f6\u00dfe"));

        dialog.set_path("D:\\license.dat");
        QCOMPARE(storedDirectory(), QVariant("D:\\"));

        dialog.set_path_and_content("C:/dropped/license.dat", "contents");
        QCOMPARE(storedDirectory(), QVariant("D:\\"));
    }
};

QTEST_MAIN(InstallLicenseSettingsTest)
#include "InstallLicenseSettingsTest_win.moc"
