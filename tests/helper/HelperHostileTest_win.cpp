#include "tests/helper/HelperMachine.h"
#include "tests/helper/HostileLines.h"
#include "tests/support/Registry.h"

#include <QDir>
#include <QtTest>

using HelperMachine::copyFile;
using HelperMachine::environmentKey;
using HelperMachine::makeFile;
using HelperMachine::run;
using HelperMachine::subkeys;

/// Each line that the helper must refuse, given to the real program on a machine where what it asks for could be done.
class HelperHostileTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void goodLinesWork();
    void hostile_data();
    void hostile();
    void nothingIsRegistered();

private:
    QStringList classes;
};

void HelperHostileTest::initTestCase()
{
    for (const char *name : {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll"}) {
        copyFile(COM_LIBRARY, QString(HostileFiles::binaries) + '\\' + name);
    }
    copyFile(COM_LIBRARY, QString(HostileFiles::binaries) + "\\evil.dll");
    makeFile(HostileFiles::destination, "the old license");
    makeFile(HostileFiles::source, "the new license");
    makeFile(QString(HostileFiles::license) + "\\new.dat", "another");
    Registry::setString(environmentKey, "HALCONROOT", "C:\\Before");
    Registry::setExpandString(environmentKey, "HALCONIMAGES", "%TEMP%\\Before");
    classes = subkeys("HKEY_LOCAL_MACHINE\\Software\\Classes");
}

/// Otherwise the hostile lines would prove nothing.
void HelperHostileTest::goodLinesWork()
{
    const auto values = HelperMachine::values(environmentKey);
    const auto tree = HelperMachine::tree(HostileFiles::top);

    QCOMPARE(
        run(R"(--env HALCONROOT="C:\Helper test\HALCON-20.11" --x64 "C:\Helper test\HALCON-20.11\bin\x64-win64\halconx.dll")")
            .exitCode,
        0);
    QCOMPARE(
        run(R"(--copy="C:\Helper test\HALCON-20.11\license\license.dat" "C:\Helper test\new.dat")").exitCode,
        0);

    QVERIFY(HelperMachine::values(environmentKey) != values);
    QVERIFY(HelperMachine::tree(HostileFiles::top) != tree);
    QCOMPARE(subkeys("HKEY_LOCAL_MACHINE\\Software\\Classes").size(), classes.size() + 1);
    Registry::removeTree("HKEY_LOCAL_MACHINE\\Software\\Classes\\DemoMachine.halconx");
    Registry::setString(environmentKey, "HALCONROOT", "C:\\Before");
    makeFile(HostileFiles::destination, "the old license");
}

void HelperHostileTest::hostile_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("refusal");

    for (const HostileLine &line : hostileLines()) {
        QTest::newRow(line.name) << line.arguments << line.refusal;
    }
    QVERIFY(hostileLines().size() >= 100);
}

void HelperHostileTest::hostile()
{
    QFETCH(QString, arguments);
    QFETCH(QString, refusal);
    const auto values = HelperMachine::values(environmentKey);
    const auto tree = HelperMachine::tree(HostileFiles::top);
    QVERIFY(values.contains("HALCONROOT"));
    QVERIFY(tree.size() > 10);

    const HelperResult result = run(arguments);

    QCOMPARE(result.exitCode, 2);
    QCOMPARE(QString::fromUtf8(result.errors),
             "qz_com_helper: The request was refused. Nothing was changed.\r\n" + refusal + "\r\n");
    QCOMPARE(result.output, QByteArray());
    QVERIFY(HelperMachine::values(environmentKey) == values);
    QVERIFY(HelperMachine::tree(HostileFiles::top) == tree);
}

void HelperHostileTest::nothingIsRegistered()
{
    QCOMPARE(subkeys("HKEY_LOCAL_MACHINE\\Software\\Classes"), classes);
}

QTEST_GUILESS_MAIN(HelperHostileTest)

#include "HelperHostileTest_win.moc"
