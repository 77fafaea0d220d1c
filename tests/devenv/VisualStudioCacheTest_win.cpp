#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/PlainStudio.h"
#include "tests/devenv/VisualStudioMachine.h"
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

        const PlainFindings of12 =
            findingsOf({registeredStudio("Professional", "12.0", machine.path("VS 12"))});
        const PlainFindings of14 =
            findingsOf({registeredStudio("Professional", "14.0", machine.path("VS 14"))});
        const QStringList expected = of14.records + of12.records;

        const LogLines firstLog;
        QList<VisualStudioVersion> first = visualStudioVersions();
        QCOMPARE(fieldsOf(first), expected);
        QCOMPARE(firstLog.lines(), detectionLog(of12.log, of14.log));

        // Changes on the machine or to a caller's copy do not affect the list.
        machine.removeKeys();
        machine.addEdition(Roots::studio64, "15.0", "Community", machine.path("VS 15"));
        first.clear();
        const LogLines secondLog;
        QCOMPARE(fieldsOf(visualStudioVersions()), expected);
        QCOMPARE(secondLog.lines(), QStringList());

        // A new detection does see the change.
        QCOMPARE(displayNames(detectVisualStudioVersions()), QStringList{"Visual Studio 15.0 (Community)"});
    }
};

QTEST_GUILESS_MAIN(VisualStudioCacheTest)

#include "VisualStudioCacheTest_win.moc"
