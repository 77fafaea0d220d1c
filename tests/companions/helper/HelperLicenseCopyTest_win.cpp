#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

const QByteArray contents("line\r\nline\n\0\xFF\xFE\x80", 16);

/// Whether the program has started the helper.
bool helperWasStarted(const LogLines &log)
{
    return !log.lines().filter("executing helper process with elevated rights: ").isEmpty();
}

} // namespace

/// The real helper copies a licence that the program itself cannot copy, because the old one is read-only.
/// This test program has a directory of its own, where it puts the helper.
class HelperLicenseCopyTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { helper = std::make_unique<ElevatedHelperProgram>(HELPER_EXECUTABLE); }
    void cleanupTestCase() { helper.reset(); }

    void copies_data()
    {
        columns<QString, QString>("source", "installation");

        row("signs", "a & b/100% %1 ^.dat", "H %2 & Co");
        row("not ASCII", "Größe/検.dat", "Размер");
    }

    void copies()
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
    void copiesWhatVanished()
    {
        const LicenseFiles files;
        files.write("H/license/license.dat", "old");
        QVERIFY(files.writeProtect("H/license/license.dat"));
        const LogLines log;
        QStringList errors;

        QVERIFY2(install(files, "mail/license.dat", "one\ntwo\n", &errors), qPrintable(errors.join('\n')));

        QVERIFY(helperWasStarted(log));
        QCOMPARE(files.read("H/license/license.dat"), QByteArray("one\r\ntwo\r\n"));
        QCOMPARE(files.temporaryFiles(), QStringList());
    }

    /// Without the license directory there is nowhere to copy to.
    void refused()
    {
        const LicenseFiles files;
        files.write("license.dat", contents);
        files.makeDirectory("H");
        const LogLines log;
        QStringList errors;

        QVERIFY(!install(files, "license.dat", QString(), &errors));

        QVERIFY(helperWasStarted(log));
        const QString failure =
            "helper process returned with value 2. This indicates an error in its execution!";
        QCOMPARE(errors, QStringList{failure});
        QCOMPARE(files.read("H/license/license.dat"), QByteArray("(none)"));
    }

private:
    std::unique_ptr<ElevatedHelperProgram> helper;
};

QTEST_GUILESS_MAIN(HelperLicenseCopyTest)

#include "HelperLicenseCopyTest_win.moc"
