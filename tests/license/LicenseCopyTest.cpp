#include "tests/license/LicenseFiles.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <filesystem>

namespace {

/// All 256 bytes.
QByteArray allBytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.append(char(byte));
    }
    return bytes;
}

} // namespace

/// Copies that need no helper.
class LicenseCopyTest : public QObject {
    Q_OBJECT

private slots:
    void byteIdentical_data()
    {
        const auto row = columns<QByteArray>("contents");

        row("empty", {});
        row("every byte", allBytes());
    }

    void byteIdentical()
    {
        QFETCH(QByteArray, contents);
        const LicenseFiles files;
        files.write("license.dat", contents);
        files.makeDirectory("H/license");
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(install(files, "license.dat", "other contents when dropped", &errors));

        QVERIFY(files.read("H/license/license.dat") == contents);
        QVERIFY(files.read("license.dat") == contents);
        QCOMPARE(errors, QStringList());
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(files.temporaryFiles(), QStringList());
    }

    void anyDirectory_data()
    {
        columns<QString>("name");

        row("300 characters", QString("a deep directory 0123456789/").repeated(11));
        row("every sign that a name may have", " !#$%&'()+,-.;=@[]^_`{}~ %1 %PATH%/");
        row("not ASCII", "Gr\u00f6\u00dfe \u691c \u0420 \U0001F600/");
    }

    void anyDirectory()
    {
        QFETCH(QString, name);
        const LicenseFiles files;
        const QString target = name + "H/license/license.dat";
        files.write(name + "license.dat", "new");
        files.write(target, "old");
        QStringList errors;

        QVERIFY2(copyLicenseFile(files.native(name + "license.dat"), QString(), files.path(target), &errors),
                 qPrintable(errors.join('\n')));

        QCOMPARE(files.read(target), QByteArray("new"));
        QCOMPARE(QDir(files.path(name + "H/license")).entryList(QDir::Files), QStringList{"license.dat"});
    }

    void existingTarget()
    {
        const LicenseFiles files;
        files.write("license.dat", "new");
        files.write("H/license/license.dat", "a longer old one");
        files.write("H/license/another.dat", "another");
        const LogLines log;
        QStringList errors;

        QVERIFY(install(files, "license.dat", QString(), &errors));

        QCOMPARE(files.read("H/license/license.dat"), QByteArray("new"));
        QCOMPARE(files.read("H/license/another.dat"), QByteArray("another"));
        QCOMPARE(errors, QStringList());
        QCOMPARE(log.lines(), QStringList{"removing existing file " + files.native("H/license/license.dat")});
    }

    void fromItsOwnPlace_data()
    {
        columns<QString>("source"); // a path to the file H/license/license.dat

        row("same path", "H/license/license.dat");
        row("over the parent directory", "H/license/../license/license.dat");
        row("second name", "second.dat");
    }

    /// Otherwise the user's only licence would be removed to make room for its own copy.
    void fromItsOwnPlace()
    {
        QFETCH(QString, source);
        const LicenseFiles files;
        files.write("H/license/license.dat", "the only one");
        std::filesystem::create_hard_link(files.path("H/license/license.dat").toStdWString(),
                                          files.path("second.dat").toStdWString());
        QCOMPARE(files.read(source), QByteArray("the only one"));
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(install(files, source, "dropped", &errors));

        QCOMPARE(files.read("H/license/license.dat"), QByteArray("the only one"));
        QCOMPARE(errors, QStringList());
        QCOMPARE(log.lines(), QStringList());
    }

    void vanishedSource_data()
    {
        columns<QString, bool>("contents", "isThereAnOldOne");

        row("new", "one line", false);
        row("over an old one", "one line", true);
        row("nothing in it", "", false);
    }

    void vanishedSource()
    {
        QFETCH(QString, contents);
        QFETCH(bool, isThereAnOldOne);
        const LicenseFiles files;
        files.makeDirectory("H/license");
        if (isThereAnOldOne) {
            files.write("H/license/license.dat", "a longer old one");
        }
        const LogLines log;
        QStringList errors;

        QVERIFY(install(files, "mail/license.dat", contents, isThereAnOldOne ? nullptr : &errors));

        QVERIFY(files.read("H/license/license.dat") == contents.toLatin1());
        QCOMPARE(QDir(files.path("H/license")).entryList(QDir::Files), QStringList{"license.dat"});
        QCOMPARE(errors, QStringList());
        QCOMPARE(files.temporaryFiles(), QStringList());
        const QString temporary = loggedTemporaryFile(log);
        QCOMPARE(QFileInfo(temporary).path(), files.path("temporary"));
        QStringList lines{"dropped file " + files.native("mail/license.dat") +
                          " no longer exists. creating temporary file " + temporary +
                          " with the same contents"};
        if (isThereAnOldOne) {
            lines << "removing existing file " + files.native("H/license/license.dat");
        }
        QCOMPARE(log.lines(), lines);
    }

    void noTemporaryFile()
    {
        const LicenseFiles files;
        files.write("H/license/license.dat", "old");
        files.loseTemporaryDirectory();
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(!install(files, "mail/license.dat", "new", &errors));

        // A file that was never created has no name.
        const QString source = files.native("mail/license.dat");
        QCOMPARE(
            errors,
            QStringList{"Dropped file " + source +
                        " no longer exists and could not create temporary file  with the same contents"});
        QCOMPARE(log.lines(),
                 QStringList{"dropped file " + source +
                             " no longer exists. creating temporary file  with the same contents"});
        QCOMPARE(files.read("H/license/license.dat"), QByteArray("old"));
        QVERIFY(!copyLicenseFile(source, "new", files.path("H/license/license.dat"), nullptr));
    }
};

QTEST_GUILESS_MAIN(LicenseCopyTest)
#include "LicenseCopyTest.moc"
