#include "license/LicenseCopy.h"

#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

const QByteArray contents("line\r\nline\n\0\xFF\xFE\x80", 16);

/// Whether the program has started the helper.
bool helperWasStarted(const LogLines &log)
{
    return !log.lines().filter("executing helper process with elevated rights: ").isEmpty();
}

QString failureLine(int exitCode)
{
    return QString("helper process returned with value %1. This indicates an error in its execution!")
        .arg(exitCode);
}

} // namespace

/// The real helper copies a licence that the program itself cannot copy, because the old one is read-only.
/// This test program has a directory of its own, where it puts the helper.
class HelperLicenseCopyTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void copies_data();
    void copies();
    void copiesWhatVanished();
    void refused();

private:
    std::unique_ptr<ElevatedHelperProgram> helper;
};

void HelperLicenseCopyTest::initTestCase()
{
    helper = std::make_unique<ElevatedHelperProgram>(QString(HELPER_EXECUTABLE));
}

void HelperLicenseCopyTest::cleanupTestCase()
{
    helper.reset();
}

void HelperLicenseCopyTest::copies_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("installation");

    QTest::newRow("plain") << "license.dat"
                           << "H";
    QTest::newRow("spaces and parentheses") << "my licences/license (1).dat"
                                            << "Program Files (x86)/HALCON 20.11";
    QTest::newRow("signs") << "a & b/100% %1 ^.dat"
                           << "H %2 & Co";
    QTest::newRow("not ASCII") << "Größe/検.dat"
                               << "Размер";
}

void HelperLicenseCopyTest::copies()
{
    QFETCH(QString, source);
    QFETCH(QString, installation);
    const LicenseFiles files;
    const QString target = installation + "/license/" + QFileInfo(source).fileName();
    files.write(source, contents);
    files.write(target, "old");
    QVERIFY(files.writeProtect(target));
    const LogLines log;
    QStringList errors;

    QVERIFY2(copyLicenseFile(files.path(source), "unused", files.path(target), &errors),
             qPrintable(errors.join('\n')));

    QVERIFY(helperWasStarted(log));
    QCOMPARE(errors, QStringList());
    QCOMPARE(files.read(target), contents);
    QCOMPARE(files.read(source), contents);
}

/// The program keeps its temporary file open until the helper has ended.
void HelperLicenseCopyTest::copiesWhatVanished()
{
    const LicenseFiles files;
    files.write("H/license/license.dat", "old");
    QVERIFY(files.writeProtect("H/license/license.dat"));
    const LogLines log;
    QStringList errors;

    QVERIFY2(copyLicenseFile(files.native("mail/license.dat"), "one\ntwo\n",
                             files.path("H/license/license.dat"), &errors),
             qPrintable(errors.join('\n')));

    QVERIFY(helperWasStarted(log));
    QCOMPARE(files.read("H/license/license.dat"), QByteArray("one\r\ntwo\r\n"));
    QCOMPARE(files.temporaryFiles(), QStringList());
}

/// Without the license directory there is nowhere to copy to.
void HelperLicenseCopyTest::refused()
{
    const LicenseFiles files;
    files.write("license.dat", contents);
    files.makeDirectory("H");
    const LogLines log;
    QStringList errors;

    QVERIFY(
        !copyLicenseFile(files.path("license.dat"), QString(), files.path("H/license/license.dat"), &errors));

    QVERIFY(helperWasStarted(log));
    QCOMPARE(errors, QStringList{failureLine(2)});
    QCOMPARE(files.read("H/license/license.dat"), QByteArray("(none)"));
}

QTEST_GUILESS_MAIN(HelperLicenseCopyTest)

#include "HelperLicenseCopyTest_win.moc"
