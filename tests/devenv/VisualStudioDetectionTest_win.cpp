#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/RecordLines.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

/// The detection over all root keys of a machine.
class VisualStudioDetectionTest : public QObject {
    Q_OBJECT

private slots:
    void noVisualStudio()
    {
        const QStringList roots{Roots::studio32, Roots::studio64, Roots::express32, Roots::express64};
        for (const QString &root : roots) {
            Registry::removeTree(root);
        }
        const CaughtMessages messages;
        const LogLines log;
        QVERIFY(detectVisualStudioVersions().isEmpty());
        QCOMPARE(log.lines(), detectionLog());
        QCOMPARE(messages.warnings(), QStringList());
        for (const QString &root : roots) {
            QVERIFY2(!Registry::exists(root), qPrintable(root));
        }
    }

    void everyRoot_data()
    {
        columns<QString, bool>("root", "express");

        row("32-bit view", Roots::studio32, false);
        row("64-bit view", Roots::studio64, false);
        row("Express, 32-bit view", Roots::express32, true);
        row("Express, 64-bit view", Roots::express64, true);
    }

    void everyRoot()
    {
        QFETCH(QString, root);
        QFETCH(bool, express);

        // The key has both kinds of registration; only the one that belongs there counts.
        VisualStudioMachine machine;
        machine.addEdition(root, "12.0", "Professional", machine.path("VS"));
        machine.addExpress(root, "12.0", machine.path("Express\\VC"));

        const QList<VisualStudioVersion> found = detectVisualStudioVersions();
        QCOMPARE(displayNames(found), QStringList{express ? "Visual Studio 12.0 (Express Edition)"
                                                          : "Visual Studio 12.0 (Professional)"});
        QCOMPARE(found.first().express, express);
        QCOMPARE(found.first().productDir, express ? machine.slashPath("Express") : machine.path("VS"));
    }

    void wholeMachine()
    {
        VisualStudioMachine machine;
        machine.addEdition(Roots::studio32, "14.0", "Professional", machine.path("VS 14"));
        machine.addFile("VS 14/Common7/IDE/devenv.exe");
        machine.addFile("VS 14/VC/bin/amd64/vcvars64.bat");
        machine.addFile("VS 14/VC/bin/vcvars32.bat");
        machine.addEdition(Roots::studio64, "9.0", "Ultimate", machine.path("VS 9"));
        machine.addExpress(Roots::express32, "10.0", machine.path("VS 10\\VC"));
        machine.addFile("VS 10/Common7/IDE/vcexpress.exe");
        machine.addFile("VS 10/VC/bin/vcvars32.bat");

        const QString dir14 = machine.path("VS 14");
        const QString ide14 = machine.slashPath("VS 14/Common7/IDE/devenv.exe");
        const QString dir9 = machine.path("VS 9");
        const QString dir10 = machine.slashPath("VS 10");
        const QString vc10 = machine.path("VS 10\\VC");
        const QString ide10 = machine.slashPath("VS 10/Common7/IDE/vcexpress.exe");
        const QList<VisualStudioVersion> records{
            {"", "Professional", "14.0", "x86", dir14, dir14 + "\\VC", dir14 + "\\VC\\bin\\vcvars32.bat",
             "devenv", ide14, false},
            {"", "Professional", "14.0", "", dir14, dir14 + "\\VC", "", "devenv", ide14, false},
            {"", "Professional", "14.0", "amd64", dir14, dir14 + "\\VC",
             dir14 + "\\VC\\bin\\amd64\\vcvars64.bat", "devenv", ide14, false},
            {"", "Express Edition", "10.0", "x86", dir10, vc10, vc10 + "\\bin\\vcvars32.bat", "vcexpress",
             ide10, true},
            {"", "Express Edition", "10.0", "", dir10, vc10, "", "vcexpress", ide10, true},
            {"", "Ultimate", "9.0", "", dir9, dir9 + "\\VC", "", "", "", false},
        };
        const CaughtMessages messages;
        const LogLines log;
        QCOMPARE(fieldLines(detectVisualStudioVersions()), fieldLines(records));

        const QStringList of14{currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                               ide14 + " exists", dir14 + "\\VC\\bin\\amd64\\vcvars64.bat found",
                               dir14 + "\\VC\\bin\\vcvars32.bat found"};
        const QStringList of9{currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                              machine.slashPath("VS 9/Common7/IDE/devenv.exe does NOT exist"),
                              dir9 + "\\VC\\bin\\amd64\\vcvars64.bat NOT found",
                              dir9 + "\\VC\\bin\\vcvars32.bat NOT found"};
        const QStringList of10{currentDriveRoot() + "Common7/IDE/wdexpress.exe does NOT exist",
                               currentDriveRoot() + "Common7/IDE/vcexpress.exe does NOT exist",
                               currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                               dir10 + "/Common7/IDE/wdexpress.exe does NOT exist",
                               ide10 + " exists",
                               vc10 + "\\bin\\amd64\\vcvars64.bat NOT found",
                               vc10 + "\\bin\\vcvars32.bat found"};
        QCOMPARE(log.lines(), detectionLog(of14, of9, of10));
        QCOMPARE(messages.warnings(), QStringList());
    }
};

QTEST_GUILESS_MAIN(VisualStudioDetectionTest)

#include "VisualStudioDetectionTest_win.moc"
