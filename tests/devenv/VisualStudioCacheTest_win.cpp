#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/RecordLines.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"

#include <QtTest>

/// The list is made once in a process, so this program has one test only.
class VisualStudioCacheTest : public QObject {
    Q_OBJECT

private slots:
    void detectedOnce()
    {
        VisualStudioMachine machine;
        machine.addEdition(Roots::studio32, "12.0", "Professional", machine.path("VS 12"));
        machine.addEdition(Roots::studio64, "14.0", "Professional", machine.path("VS 14"));
        machine.addFile("VS 14/VC/bin/vcvars32.bat");

        const LogLines firstLog;
        QList<VisualStudioVersion> first = visualStudioVersions();
        const QString dir12 = machine.path("VS 12");
        const QString dir14 = machine.path("VS 14");
        const QStringList expected = fieldLines({
            {"", "Professional", "14.0", "x86", dir14, dir14 + "\\VC", dir14 + "\\VC\\bin\\vcvars32.bat", "",
             "", false},
            {"", "Professional", "14.0", "", dir14, dir14 + "\\VC", "", "", "", false},
            {"", "Professional", "12.0", "", dir12, dir12 + "\\VC", "", "", "", false},
        });
        QCOMPARE(fieldLines(first), expected);
        const QStringList of12{currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                               machine.slashPath("VS 12/Common7/IDE/devenv.exe does NOT exist"),
                               dir12 + "\\VC\\bin\\amd64\\vcvars64.bat NOT found",
                               dir12 + "\\VC\\bin\\vcvars32.bat NOT found"};
        const QStringList of14{currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                               machine.slashPath("VS 14/Common7/IDE/devenv.exe does NOT exist"),
                               dir14 + "\\VC\\bin\\amd64\\vcvars64.bat NOT found",
                               dir14 + "\\VC\\bin\\vcvars32.bat found"};
        QCOMPARE(firstLog.lines(), detectionLog(of12, of14));

        // Changes on the machine or to a caller's copy do not affect the list.
        machine.removeKeys();
        machine.addEdition(Roots::studio64, "15.0", "Community", machine.path("VS 15"));
        first.clear();
        const LogLines secondLog;
        QCOMPARE(fieldLines(visualStudioVersions()), expected);
        QCOMPARE(secondLog.lines(), QStringList());

        // A new detection does see the change.
        QCOMPARE(displayNames(detectVisualStudioVersions()), QStringList{"Visual Studio 15.0 (Community)"});
    }
};

QTEST_GUILESS_MAIN(VisualStudioCacheTest)

#include "VisualStudioCacheTest_win.moc"
