#include "discovery/RegistryDiscovery.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/discovery/InstallationLines.h"

#include <QProcess>
#include <QtTest>

namespace {

/// Writes a value with reg.exe. @p view is "32" or "64".
bool addWithTool(const QString &view, const QString &key, const QString &name, const QString &type,
                 const QString &value)
{
    const QStringList arguments{"add", key, "/v", name, "/t", type, "/d", value, "/f", "/reg:" + view};
    return QProcess::execute("reg", arguments) == 0;
}

} // namespace

/// The discovery of keys that another process has written.
class RegistryToolTest : public QObject {
    Q_OBJECT

private slots:
    void writtenByTheSystemsTool();
};

void RegistryToolTest::writtenByTheSystemsTool()
{
    HalconKeys keys;
    keys.addGroup(Keys::product32, "12.0");
    keys.addGroup(Keys::product64, "20.11-Progress");
    keys.addGroup(Keys::uninstallOfUser, "MVTec HALCON 22.11 Steady");

    const QString product = "HKLM\\SOFTWARE\\MVTec\\HALCON";
    QVERIFY(addWithTool("32", product + "\\12.0\\InstalledComponents", "RuntimeX86", "REG_SZ", "1"));
    QVERIFY(addWithTool("32", product + "\\12.0\\Initialized", "InstallDir", "REG_SZ", "C:\\H 12"));
    QVERIFY(
        addWithTool("64", product + "\\20.11-Progress\\InstalledComponents", "RuntimeX64", "REG_DWORD", "1"));
    QVERIFY(addWithTool("64", product + "\\20.11-Progress\\Initialized", "ExampleRoot", "REG_EXPAND_SZ",
                        "D:\\E"));
    QVERIFY(
        addWithTool("64", product + "\\20.11-Progress\\Initialized", "InstalledRevision", "REG_DWORD", "4"));
    QVERIFY(addWithTool("64", product + "\\20.11-Progress\\Initialized", "InstalledBuild", "REG_QWORD", "9"));
    QVERIFY(addWithTool(
        "64", "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\MVTec HALCON 22.11 Steady",
        "InstallLocation", "REG_SZ", "C:\\H22"));

    const QStringList expected{
        "12.0.0.0 '' x86-win32 | C:\\H 12 |  | RuntimeX86",
        "20.11.4.9 'Progress' x64-win64 |  | D:\\E | RuntimeX64",
        "22.11.-1.-1 'Steady' x64-win64 | C:\\H22 | C:\\H22 | RuntimeX64",
    };
    QCOMPARE(recordLines(getAllHalconVersions()), expected);
}

QTEST_GUILESS_MAIN(RegistryToolTest)

#include "RegistryToolTest_win.moc"
