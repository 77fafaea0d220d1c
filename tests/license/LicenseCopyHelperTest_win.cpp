#include "launch/ElevatedHelper.h"
#include "license/LicenseCopy.h"
#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Messages.h"

#include <QtTest>

#include <windows.h>

namespace {

QString failureLine(const QString &exitCode)
{
    return "helper process returned with value " + exitCode + ". This indicates an error in its execution!";
}

/// The log of a failed copy by the program itself.
QStringList helperLogLines(const QString &source, const QString &target)
{
    return {"warning: could not copy source file \"" + source + "\" to destination file \"" + target +
                "\". Trying to install license with an elevated helper process.",
            "executing helper process with elevated rights: " + helperExecutablePath() + " --copy=\"" +
                target + "\" \"" + source + "\""};
}

const QString copyingChild = COPYING_CHILD_EXECUTABLE;

} // namespace

/// Copies that the program cannot make itself, with a real child as the fake helper. This test program
/// therefore has a directory of its own.
class LicenseCopyHelperTest : public QObject {
    Q_OBJECT

private slots:
    void startOfTheHelper_data();
    void startOfTheHelper();
    void exitCode_data();
    void exitCode();
    void withoutAHelper();
    void writeProtectedTarget();
    void writeProtectedSource();
    void helperCopies_data();
    void helperCopies();
    void helperCopiesWhatVanished_data();
    void helperCopiesWhatVanished();
};

void LicenseCopyHelperTest::startOfTheHelper_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");

    QTest::newRow("plain") << "license.dat"
                           << "H/license/license.dat";
    QTest::newRow("spaces") << "my licences/license 1.dat"
                            << "Program Files (x86)/HALCON 20.11/license/license 1.dat";
    QTest::newRow("signs") << "a & b/100% %1 ^.dat"
                           << "H %2 & Co/license/100% %1 ^.dat";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe/\u691c.dat"
                               << "\u0420\u0430\u0437\u043c\u0435\u0440/license/\u691c.dat";
}

void LicenseCopyHelperTest::startOfTheHelper()
{
    QFETCH(QString, source);
    QFETCH(QString, target);
    const LicenseFiles files;
    files.write(source, "x");
    const ElevatedHelperProgram helper;
    const EchoChild child;
    const LogLines log;
    QStringList errors{"earlier line"};

    // The paths come with forward slashes as well.
    QVERIFY(copyLicenseFile(files.path(source), "unused", files.path(target), &errors));

    EchoRecord found;
    QVERIFY(child.hasRecord()); // its end was waited for
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, helperExecutablePath());
    QCOMPARE(found.commandLine, '"' + helperExecutablePath() + "\" --copy=\"" + files.native(target) +
                                    "\" \"" + files.native(source) + '"');
    QCOMPARE(found.showCommand, SW_HIDE);
    QCOMPARE(found.currentDirectory, QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    QCOMPARE(log.lines(), helperLogLines(files.native(source), files.native(target)));
    QCOMPARE(errors, QStringList());
}

void LicenseCopyHelperTest::exitCode_data()
{
    QTest::addColumn<quint32>("exitCode");
    QTest::addColumn<QStringList>("errors");

    QTest::newRow("success") << 0u << QStringList();
    QTest::newRow("two") << 2u << QStringList{failureLine("2")};
    QTest::newRow("all bits") << 0xffffffffu << QStringList{failureLine("-1")};
}

void LicenseCopyHelperTest::exitCode()
{
    QFETCH(quint32, exitCode);
    QFETCH(QStringList, errors);
    const LicenseFiles files;
    files.write("license.dat", "x");
    const ElevatedHelperProgram helper;
    const EchoChild child;
    EchoChild::exitWith(exitCode);
    QStringList found{"earlier line"};

    QCOMPARE(copyLicenseFile(files.path("license.dat"), QString(), files.path("missing/license.dat"), &found),
             errors.isEmpty());

    QCOMPARE(found, errors);
    QVERIFY(child.hasRecord());
}

void LicenseCopyHelperTest::withoutAHelper()
{
    ElevatedHelperProgram::remove();
    const LicenseFiles files;
    const ElevatedHelperShellBox box;
    QStringList errors;

    QVERIFY(
        !copyLicenseFile(files.path("mail/license.dat"), "x", files.path("missing/license.dat"), &errors));

    QCOMPARE(errors, QStringList{failureLine("-1")});
    QCOMPARE(files.temporaryFiles(), QStringList());
}

void LicenseCopyHelperTest::writeProtectedTarget()
{
    const LicenseFiles files;
    files.write("license.dat", "new");
    files.write("H/license/license.dat", "old");
    QVERIFY(files.writeProtect("H/license/license.dat"));
    const ElevatedHelperProgram helper;
    const EchoChild child;
    const LogLines log;
    QStringList errors;

    QVERIFY(copyLicenseFile(files.native("license.dat"), QString(), files.path("H/license/license.dat"),
                            &errors));

    const QString target = files.native("H/license/license.dat");
    QCOMPARE(log.lines(), (QStringList{
                               "removing existing file " + target,
                               "warning: cannot remove existing file " + target + " \"",
                           } +
                           helperLogLines(files.native("license.dat"), target)));
    QVERIFY(child.hasRecord());
    QCOMPARE(errors, QStringList());
    // The recording helper copies nothing.
    QCOMPARE(files.read("H/license/license.dat"), QByteArray("old"));
}

/// The copy is read-only like its source, so the next one needs the helper.
void LicenseCopyHelperTest::writeProtectedSource()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    QVERIFY(files.writeProtect("license.dat"));
    files.makeDirectory("H/license");
    const ElevatedHelperProgram helper;
    const EchoChild child;

    QVERIFY(copyLicenseFile(files.native("license.dat"), QString(), files.path("H/license/license.dat"),
                            nullptr));
    QCOMPARE(files.read("H/license/license.dat"), QByteArray("x"));
    QVERIFY(!child.hasRecord());

    QVERIFY(copyLicenseFile(files.native("license.dat"), QString(), files.path("H/license/license.dat"),
                            nullptr));
    QVERIFY(child.hasRecord());
    QVERIFY(QFile::setPermissions(files.path("license.dat"), QFile::ReadOwner | QFile::WriteOwner));
}

void LicenseCopyHelperTest::helperCopies_data()
{
    QTest::addColumn<QByteArray>("contents");

    QTest::newRow("CR LF") << QByteArray("one\r\ntwo\r\n");
    QTest::newRow("LF") << QByteArray("one\ntwo\n");
    QTest::newRow("bytes") << QByteArray("\0\r\x1a\xff\n", 5);
}

void LicenseCopyHelperTest::helperCopies()
{
    QFETCH(QByteArray, contents);
    const LicenseFiles files;
    files.write("my licences/license 1.dat", contents);
    files.makeDirectory("H H");
    const ElevatedHelperProgram helper(copyingChild);
    QStringList errors;

    QVERIFY2(copyLicenseFile(files.native("my licences/license 1.dat"), QString(),
                             files.path("H H/license/license 1.dat"), &errors),
             qPrintable(errors.join('\n')));

    QCOMPARE(files.read("H H/license/license 1.dat"), contents);
}

void LicenseCopyHelperTest::helperCopiesWhatVanished_data()
{
    QTest::addColumn<bool>("copied");

    QTest::newRow("copied") << true;
    // The helper could not create the directory either.
    QTest::newRow("not copied") << false;
}

/// While the helper runs the temporary file is complete and others can read it.
void LicenseCopyHelperTest::helperCopiesWhatVanished()
{
    QFETCH(bool, copied);
    const LicenseFiles files;
    if (copied) {
        files.makeDirectory("H");
    }
    const ElevatedHelperProgram helper(copyingChild);
    QStringList errors;

    QCOMPARE(copyLicenseFile(files.native("mail/license.dat"), "one\ntwo\n",
                             files.path("H/license/license.dat"), &errors),
             copied);

    QCOMPARE(errors,
             copied ? QStringList() : QStringList{failureLine(QString::number(ERROR_PATH_NOT_FOUND))});
    QCOMPARE(files.read("H/license/license.dat"), QByteArray(copied ? "one\r\ntwo\r\n" : "(none)"));
    QCOMPARE(files.temporaryFiles(), QStringList());
}

QTEST_GUILESS_MAIN(LicenseCopyHelperTest)

#include "LicenseCopyHelperTest_win.moc"
