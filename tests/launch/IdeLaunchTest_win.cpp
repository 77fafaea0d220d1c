#include "launch/IdeLaunch.h"

#include "devenv/IdeSearch.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Messages.h"
#include "tests/support/SystemErrors.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 3);
    result.installDir = "C:\\H";
    result.exampleRoot = "D:\\Examples";
    result.arch = "x64-win64";
    return result;
}

VisualStudioVersion visualStudio(const QString &productDir)
{
    VisualStudioVersion result;
    result.productDir = QDir::toNativeSeparators(productDir);
    return result;
}

/// The system's error for a start without an executable; 0 when it starts something.
quint32 errorOfStartWithoutExecutable()
{
    wchar_t commandLine[] = L"";
    STARTUPINFOW startupInfo = {};
    startupInfo.cb = sizeof(startupInfo);
    PROCESS_INFORMATION process = {};
    return CreateProcessW(L"", commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startupInfo,
                          &process) != 0
               ? 0
               : GetLastError();
}

} // namespace

/// The start of a real program as the IDE.
class IdeLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void started_data();
    void started();
    void ideThatWasRemoved();
    void noIde();
    void noIdeAndNoErrorList();
};

void IdeLaunchTest::started_data()
{
    QTest::addColumn<QString>("product");

    QTest::newRow("plain") << "VS";
    QTest::newRow("spaces") << "Microsoft Visual Studio 14.0";
    QTest::newRow("parentheses and ampersand") << "Program Files (x86) & more";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe \u5bf8\u6cd5 \u0420\u0430\u0437\u043c\u0435\u0440";
}

void IdeLaunchTest::started()
{
    QFETCH(QString, product);
    const QTemporaryDir directory;
    VisualStudioVersion record = visualStudio(directory.filePath(product));
    const QString ide = record.productDir + "\\Common7\\IDE\\devenv.exe";
    EchoChild::copyTo(ide);
    findIdeExecutable(record);
    const EchoChild child;
    const LogLines log;
    QStringList errors{"earlier line"};

    QVERIFY2(startDevEnv(installation(), record, &errors), qPrintable(errors.join('\n')));

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(QDir::toNativeSeparators(found.executable), ide);
    // For an empty command line Windows substitutes the executable; the child still has no arguments.
    const QStringList withoutArguments{"", '"' + record.idePath + '"'};
    QVERIFY2(withoutArguments.contains(found.commandLine), qPrintable(found.commandLine));
    QCOMPARE(found.variable("HALCONROOT"), QString("C:\\H"));
    QCOMPARE(found.variable("HALCONARCH"), QString("x64-win64"));
    QCOMPARE(found.variable("HALCONEXAMPLES"), QString("D:\\Examples\\examples"));
    QCOMPARE(found.variable("HALCONIMAGES"), QString("D:\\Examples\\examples\\images"));
    QVERIFY2(found.variable("PATH").startsWith("C:\\H\\bin\\x64-win64;"), qPrintable(found.variable("PATH")));
    // The space before the missing arguments stays.
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + record.idePath + " "});
    QCOMPARE(errors, QStringList{"earlier line"});
}

void IdeLaunchTest::ideThatWasRemoved()
{
    const QTemporaryDir directory;
    VisualStudioVersion record = visualStudio(directory.filePath("VS"));
    EchoChild::copyTo(record.productDir + "\\Common7\\IDE\\devenv.exe");
    findIdeExecutable(record);
    QVERIFY(QFile::remove(record.idePath));
    QStringList errors{"earlier line"};

    QVERIFY(!startDevEnv(installation(), record, &errors));

    QCOMPARE(errors, (QStringList{"earlier line", createProcessErrorLine(WindowsError::fileNotFound)}));
}

void IdeLaunchTest::noIde()
{
    const quint32 error = errorOfStartWithoutExecutable();
    QVERIFY(error != 0);
    const LogLines log;
    QStringList errors;

    QVERIFY(!startDevEnv(installation(), VisualStudioVersion(), &errors));

    QCOMPARE(errors, QStringList{createProcessErrorLine(error)});
    QVERIFY(errors.constFirst() != "CreateProcess failed: ");
    QCOMPARE(log.lines(), QStringList{"CreateProcess:  "});
}

void IdeLaunchTest::noIdeAndNoErrorList()
{
    const LogLines log;

    QVERIFY(!startDevEnv(installation(), VisualStudioVersion(), nullptr));

    QCOMPARE(log.lines(), QStringList{"CreateProcess:  "});
}

QTEST_GUILESS_MAIN(IdeLaunchTest)

#include "IdeLaunchTest_win.moc"
