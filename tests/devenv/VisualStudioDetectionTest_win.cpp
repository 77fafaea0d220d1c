#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/PlainStudio.h"
#include "tests/devenv/VisualStudioMachine.h"
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

        const PlainFindings of14 =
            findingsOf({registeredStudio("Professional", "14.0", machine.path("VS 14"))});
        const PlainFindings of9 = findingsOf({registeredStudio("Ultimate", "9.0", machine.path("VS 9"))});
        const PlainFindings of10 =
            findingsOf({expressStudio("10.0", machine.slashPath("VS 10"), machine.path("VS 10\\VC"))});
        const CaughtMessages messages;
        const LogLines log;
        const QList<VisualStudioVersion> found = detectVisualStudioVersions();

        QCOMPARE(displayNames(found),
                 (QStringList{"Visual Studio 14.0 (Professional) (x86)", "Visual Studio 14.0 (Professional)",
                              "Visual Studio 14.0 (Professional) (amd64)",
                              "Visual Studio 10.0 (Express Edition) (x86)",
                              "Visual Studio 10.0 (Express Edition)", "Visual Studio 9.0 (Ultimate)"}));
        QCOMPARE(fieldsOf(found), (QStringList{of14.records[1], of14.records[2], of14.records[0]} +
                                   of10.records + of9.records));
        QCOMPARE(log.lines(), detectionLog(of14.log, of9.log, of10.log));
        QCOMPARE(messages.warnings(), QStringList());
    }
};

QTEST_GUILESS_MAIN(VisualStudioDetectionTest)

#include "VisualStudioDetectionTest_win.moc"
