#include "launch/IdeLaunch.h"

#include "tests/fakes/ProcessStartFake.h"

#include <QtTest>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 3);
    result.installDir = "C:\\H";
    result.exampleRoot = "D:\\Examples";
    result.components = QStringList{"hdevelop", "dotnet"};
    result.arch = "x64-win64";
    result.suffix = "Progress";
    return result;
}

/// A record whose every field has a value, and the IDE at @p idePath.
VisualStudioVersion visualStudio(const QString &idePath)
{
    return {"name",
            "Visual Studio Community 2022",
            "17.4",
            "amd64",
            "C:\\VS",
            "C:\\VS\\VC",
            "C:\\VS\\VC\\Auxiliary\\Build\\vcvars64.bat",
            "devenv",
            idePath,
            false};
}

} // namespace

/// What is started as the IDE.
class IdeLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void started_data();
    void started();
    void failure();
    void failureWithoutErrorList();
};

void IdeLaunchTest::init()
{
    ProcessStartFake::reset();
}

void IdeLaunchTest::started_data()
{
    QTest::addColumn<QString>("idePath");

    QTest::newRow("plain") << "C:/VS/Common7/IDE/devenv.exe";
    QTest::newRow("backslashes") << "C:\\VS\\Common7\\IDE\\devenv.exe";
    QTest::newRow("spaces are not quoted") << "C:/Program Files (x86)/VS 14.0/Common7/IDE/devenv.exe";
    QTest::newRow("percent signs are no placeholders") << "C:/%1 %PATH%/Common7/IDE/devenv.exe";
    QTest::newRow("not ASCII") << "C:/Gr\u00f6\u00dfe \u5bf8\u6cd5/Common7/IDE/devenv.exe";
    QTest::newRow("another IDE than the name says") << "C:/VS/Common7/IDE/wdexpress.exe";
    QTest::newRow("no IDE is tried all the same") << "";
}

void IdeLaunchTest::started()
{
    QFETCH(QString, idePath);
    QStringList errors{"earlier line"};

    QVERIFY(startDevEnv(installation(), visualStudio(idePath), &errors));

    QCOMPARE(ProcessStartFake::starts().size(), 1);
    const ProcessStartFake::Start start = ProcessStartFake::starts().constFirst();
    QCOMPARE(start.executable, idePath);
    QCOMPARE(start.arguments, QString());
    QCOMPARE(start.installation.versionArchText(), installation().versionArchText());
    QCOMPARE(start.installation.installDir, QString("C:\\H"));
    QCOMPARE(start.installation.exampleRoot, QString("D:\\Examples"));
    QCOMPARE(errors, QStringList{"earlier line"});
}

void IdeLaunchTest::failure()
{
    ProcessStartFake::failWith("CreateProcess failed: no such file");
    QStringList errors{"earlier line"};

    QVERIFY(!startDevEnv(installation(), visualStudio("C:/VS/Common7/IDE/devenv.exe"), &errors));

    QCOMPARE(errors, (QStringList{"earlier line", "CreateProcess failed: no such file"}));
    QCOMPARE(ProcessStartFake::starts().size(), 1);
}

void IdeLaunchTest::failureWithoutErrorList()
{
    ProcessStartFake::failWith("CreateProcess failed: no such file");

    QVERIFY(!startDevEnv(installation(), visualStudio("C:/VS/Common7/IDE/devenv.exe"), nullptr));

    QCOMPARE(ProcessStartFake::starts().size(), 1);
}

QTEST_GUILESS_MAIN(IdeLaunchTest)

#include "IdeLaunchTest.moc"
