#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"

#include <QProcess>
#include <QtTest>

namespace {

/// Writes a value with reg.exe. @p view is "32" or "64".
bool add(const QString &view, const QString &key, const QString &name, const QString &type,
         const QString &value)
{
    return QProcess::execute("reg",
                             {"add", key, "/v", name, "/t", type, "/d", value, "/f", "/reg:" + view}) == 0;
}

} // namespace

/// The discovery of keys that another process has written.
class RegistryToolTest : public QObject {
    Q_OBJECT

private slots:
    void writtenByTheSystemsTool()
    {
        HalconKeys keys;
        keys.addGroup(Keys::product32, "12.0");
        keys.addGroup(Keys::product64, "20.11-Progress");
        keys.addGroup(Keys::uninstallOfUser, "MVTec HALCON 22.11 Steady");

        const QString product = "HKLM\\SOFTWARE\\MVTec\\HALCON";
        const QString progress = product + "\\20.11-Progress";
        const QString uninstall = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
        QVERIFY(add("32", product + "\\12.0\\InstalledComponents", "RuntimeX86", "REG_SZ", "1"));
        QVERIFY(add("32", product + "\\12.0\\Initialized", "InstallDir", "REG_SZ", "C:\\H 12"));
        QVERIFY(add("64", progress + "\\InstalledComponents", "RuntimeX64", "REG_DWORD", "1"));
        QVERIFY(add("64", progress + "\\Initialized", "ExampleRoot", "REG_EXPAND_SZ", "D:\\E"));
        QVERIFY(add("64", progress + "\\Initialized", "InstalledRevision", "REG_DWORD", "4"));
        QVERIFY(add("64", progress + "\\Initialized", "InstalledBuild", "REG_QWORD", "9"));
        QVERIFY(add("64", uninstall + "\\MVTec HALCON 22.11 Steady", "InstallLocation", "REG_SZ", "C:\\H22"));

        const QStringList expected{
            "12.0.0.0 '' x86-win32 | C:\\H 12 |  | RuntimeX86",
            "20.11.4.9 'Progress' x64-win64 |  | D:\\E | RuntimeX64",
            "22.11.-1.-1 'Steady' x64-win64 | C:\\H22 | C:\\H22 | RuntimeX64",
        };
        QCOMPARE(recordLines(getAllHalconVersions()), expected);
    }
};

QTEST_GUILESS_MAIN(RegistryToolTest)

#include "RegistryToolTest_win.moc"
