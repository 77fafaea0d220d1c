#include "tests/launch/ElevatedHelperProgram.h"
#include "tests/launch/ElevatedHelperShellBox.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <windows.h>

/// Copies that the program cannot make itself, with a real child as the fake helper. This test program
/// therefore has a directory of its own.
class LicenseCopyHelperTest : public QObject {
    Q_OBJECT

private slots:
    void startOfTheHelper()
    {
        const QString source = "a & b/Gr\u00f6\u00dfe 100% %1 ^.dat";
        const QString target = "H %2 & Co/license/\u0420 100% %1 ^.dat";
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

    void withoutAHelper()
    {
        ElevatedHelperProgram::remove();
        const LicenseFiles files;
        const ElevatedHelperShellBox box;
        QStringList errors;

        QVERIFY(!copyLicenseFile(files.path("mail/license.dat"), "x", files.path("missing/license.dat"),
                                 &errors));

        QCOMPARE(errors, QStringList{helperFailureLine(-1)});
        QCOMPARE(files.temporaryFiles(), QStringList());
    }

    void writeProtectedTarget()
    {
        const LicenseFiles files;
        files.write("license.dat", "new");
        files.write("H/license/license.dat", "old");
        QVERIFY(files.writeProtect("H/license/license.dat"));
        const ElevatedHelperProgram helper;
        const EchoChild child;
        const LogLines log;
        QStringList errors;

        QVERIFY(install(files, "license.dat", QString(), &errors));

        const QString target = files.native("H/license/license.dat");
        QCOMPARE(log.lines(), removalLogLines(target) + helperLogLines(files.native("license.dat"), target));
        QVERIFY(child.hasRecord());
        QCOMPARE(errors, QStringList());
        // The recording helper copies nothing.
        QCOMPARE(files.read("H/license/license.dat"), QByteArray("old"));
    }

    /// The copy is read-only like its source, so the next one needs the helper.
    void writeProtectedSource()
    {
        const LicenseFiles files;
        files.write("license.dat", "x");
        QVERIFY(files.writeProtect("license.dat"));
        files.makeDirectory("H/license");
        const ElevatedHelperProgram helper;
        const EchoChild child;

        QVERIFY(install(files, "license.dat"));
        QCOMPARE(files.read("H/license/license.dat"), QByteArray("x"));
        QVERIFY(!child.hasRecord());

        QVERIFY(install(files, "license.dat"));
        QVERIFY(child.hasRecord());
        QVERIFY(QFile::setPermissions(files.path("license.dat"), QFile::ReadOwner | QFile::WriteOwner));
    }

    void helperCopiesWhatVanished_data()
    {
        columns<bool>("copied");

        row("copied", true);
        // The helper could not create the directory either.
        row("not copied", false);
    }

    /// While the helper runs the temporary file is complete and others can read it.
    void helperCopiesWhatVanished()
    {
        QFETCH(bool, copied);
        const LicenseFiles files;
        if (copied) {
            files.makeDirectory("H");
        }
        const ElevatedHelperProgram helper(COPYING_CHILD_EXECUTABLE);
        QStringList errors;

        QCOMPARE(install(files, "mail/license.dat", "one\ntwo\n", &errors), copied);

        QCOMPARE(errors, copied ? QStringList() : QStringList{helperFailureLine(ERROR_PATH_NOT_FOUND)});
        QCOMPARE(files.read("H/license/license.dat"), QByteArray(copied ? "one\r\ntwo\r\n" : "(none)"));
        QCOMPARE(files.temporaryFiles(), QStringList());
    }
};

QTEST_GUILESS_MAIN(LicenseCopyHelperTest)
#include "LicenseCopyHelperTest_win.moc"
