#include "devenv/IdeSearch.h"
#include "launch/IdeLaunch.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/SystemErrors.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

/// The start of a real program as the IDE.
class IdeLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void startedAndRemoved()
    {
        const QTemporaryDir directory;
        VisualStudioVersion record;
        record.productDir =
            QDir::toNativeSeparators(directory.filePath("VS (x86) & Gr\u00f6\u00dfe \u5bf8\u6cd5"));
        const QString ide = record.productDir + "\\Common7\\IDE\\devenv.exe";
        EchoChild::copyTo(ide);
        findIdeExecutable(record);
        const HalconInstallation installation = installationIn("C:\\H", "x64-win64", "D:\\Examples");
        const EchoChild child;
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY2(startDevEnv(installation, record, &errors), qPrintable(errors.join('\n')));

        const EchoRecord found = child.record();
        QCOMPARE(QDir::toNativeSeparators(found.executable), ide);
        // For an empty command line Windows substitutes the executable; the child still has no arguments.
        const QStringList withoutArguments{"", '"' + record.idePath + '"'};
        QVERIFY2(withoutArguments.contains(found.commandLine), qPrintable(found.commandLine));
        QCOMPARE(found.variable("HALCONROOT"), QString("C:\\H"));
        QCOMPARE(found.variable("HALCONEXAMPLES"), QString("D:\\Examples\\examples"));
        // The space before the missing arguments stays.
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + record.idePath + " "});
        QCOMPARE(errors, QStringList{"earlier line"});

        // A running program cannot be removed.
        QVERIFY(QTest::qWaitFor([&ide] { return QFile::remove(ide); }, patienceMilliseconds));
        QVERIFY(!startDevEnv(installation, record, &errors));
        QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(WindowsError::fileNotFound)}));
    }
};

QTEST_GUILESS_MAIN(IdeLaunchTest)

#include "IdeLaunchTest_win.moc"
