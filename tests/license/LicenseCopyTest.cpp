#include "license/LicenseCopy.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Messages.h"

#include <QRegularExpression>
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
    void byteIdentical_data();
    void byteIdentical();
    void names_data();
    void names();
    void droppedContentsOfAFileThatIsThere();
    void existingTarget();
    void fromItsOwnPlace_data();
    void fromItsOwnPlace();
    void errorsAreCleared();
    void vanishedSource_data();
    void vanishedSource();
    void vanishedSourceAndExistingTarget();
    void noTemporaryFile();
};

void LicenseCopyTest::byteIdentical_data()
{
    QTest::addColumn<QByteArray>("contents");

    QTest::newRow("LF") << QByteArray("# license\nhost 1\n");
    QTest::newRow("CR LF") << QByteArray("# license\r\nhost 1\r\n");
    QTest::newRow("lone CR") << QByteArray("one\rtwo\r");
    QTest::newRow("no line break at the end") << QByteArray("one\r\ntwo");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("every byte") << allBytes();
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xef\xbb\xbf# Gr\xc3\xb6\xc3\x9f"
                                                                "e\n");
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe"
                                          "a\0\n\0",
                                          6);
    QTest::newRow("large") << allBytes().repeated(4096);
}

void LicenseCopyTest::byteIdentical()
{
    QFETCH(QByteArray, contents);
    const LicenseFiles files;
    files.write("license.dat", contents);
    files.makeDirectory("H/license");
    const LogLines log;
    QStringList errors;

    QVERIFY(copyLicenseFile(files.native("license.dat"), QString(), files.path("H/license/license.dat"),
                            &errors));

    QVERIFY(files.read("H/license/license.dat") == contents);
    QVERIFY(files.read("license.dat") == contents);
    QCOMPARE(errors, QStringList());
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(files.temporaryFiles(), QStringList());
}

void LicenseCopyTest::names_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");

    QTest::newRow("spaces") << "my licences/license 1.dat"
                            << "Program Files/HALCON 20.11/license/license 1.dat";
    QTest::newRow("signs") << "a & b/100% %1 (x).dat"
                           << "H & Co/license/100% %1 (x).dat";
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe/\u691c.dat"
                               << "\u0420\u0430\u0437\u043c\u0435\u0440/license/\u691c.dat";
    QTest::newRow("another name") << "a.dat"
                                  << "H/license/b.dat";
}

void LicenseCopyTest::names()
{
    QFETCH(QString, source);
    QFETCH(QString, target);
    const LicenseFiles files;
    files.write(source, "contents");
    files.makeDirectory(QFileInfo(target).path());

    QVERIFY(copyLicenseFile(files.native(source), QString(), files.path(target), nullptr));

    QCOMPARE(files.read(target), QByteArray("contents"));
}

void LicenseCopyTest::droppedContentsOfAFileThatIsThere()
{
    const LicenseFiles files;
    files.write("license.dat", "now\r\n");
    files.makeDirectory("H/license");
    const LogLines log;

    QVERIFY(copyLicenseFile(files.native("license.dat"), "when dropped\n",
                            files.path("H/license/license.dat"), nullptr));

    QCOMPARE(files.read("H/license/license.dat"), QByteArray("now\r\n"));
    QCOMPARE(log.lines(), QStringList());
}

void LicenseCopyTest::existingTarget()
{
    const LicenseFiles files;
    files.write("license.dat", "new");
    files.write("H/license/license.dat", "a longer old one");
    files.write("H/license/another.dat", "another");
    const LogLines log;
    QStringList errors;

    QVERIFY(copyLicenseFile(files.native("license.dat"), QString(), files.path("H/license/license.dat"),
                            &errors));

    QCOMPARE(files.read("H/license/license.dat"), QByteArray("new"));
    QCOMPARE(files.read("H/license/another.dat"), QByteArray("another"));
    QCOMPARE(errors, QStringList());
    QCOMPARE(log.lines(), QStringList{"removing existing file " + files.native("H/license/license.dat")});
}

void LicenseCopyTest::fromItsOwnPlace_data()
{
    QTest::addColumn<QString>("source"); // a path to the file H/license/license.dat
    QTest::addColumn<QString>("target");

    const QString plain = "H/license/license.dat";
    QTest::newRow("same path") << plain << plain;
    QTest::newRow("over the parent directory") << "H/license/../license/license.dat" << plain;
    QTest::newRow("second name") << "second.dat" << plain;
}

/// Otherwise the user's only licence would be removed to make room for its own copy.
void LicenseCopyTest::fromItsOwnPlace()
{
    QFETCH(QString, source);
    QFETCH(QString, target);
    const LicenseFiles files;
    files.write("H/license/license.dat", "the only one");
    std::filesystem::create_hard_link(files.path("H/license/license.dat").toStdWString(),
                                      files.path("second.dat").toStdWString());
    QCOMPARE(files.read(source), QByteArray("the only one"));
    const LogLines log;
    QStringList errors{"earlier line"};

    QVERIFY(copyLicenseFile(files.native(source), "dropped", files.path(target), &errors));

    QCOMPARE(files.read("H/license/license.dat"), QByteArray("the only one"));
    QCOMPARE(errors, QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void LicenseCopyTest::errorsAreCleared()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    files.makeDirectory("H/license");
    QStringList errors{"earlier line"};

    QVERIFY(copyLicenseFile(files.native("license.dat"), QString(), files.path("H/license/license.dat"),
                            &errors));

    QCOMPARE(errors, QStringList());
}

void LicenseCopyTest::vanishedSource_data()
{
    QTest::addColumn<QString>("contents");
    QTest::addColumn<bool>("withErrors");

    QTest::newRow("contents") << "one line" << true;
    QTest::newRow("contents, no list") << "one line" << false;
    QTest::newRow("nothing in it") << "" << true;
    QTest::newRow("large") << QString("0123456789").repeated(100000) << true;
}

void LicenseCopyTest::vanishedSource()
{
    QFETCH(QString, contents);
    QFETCH(bool, withErrors);
    const LicenseFiles files;
    files.makeDirectory("H/license");
    const LogLines log;
    QStringList errors;

    QVERIFY(copyLicenseFile(files.native("mail/license.dat"), contents, files.path("H/license/license.dat"),
                            withErrors ? &errors : nullptr));

    QVERIFY(files.read("H/license/license.dat") == contents.toLatin1());
    QCOMPARE(QDir(files.path("H/license")).entryList(QDir::Files), QStringList{"license.dat"});
    QCOMPARE(errors, QStringList());
    QCOMPARE(files.temporaryFiles(), QStringList());
    QCOMPARE(log.lines().size(), 1);
    const QString shownTemporary = QRegularExpression::escape(files.native("temporary/") + "");
    const QRegularExpression line("^" +
                                  QRegularExpression::escape("dropped file " +
                                                             files.native("mail/license.dat") +
                                                             " no longer exists. creating temporary file ") +
                                  shownTemporary + "[^/\\\\ ]+ with the same contents$");
    QVERIFY2(line.match(log.lines().first()).hasMatch(), qPrintable(log.lines().first()));
}

void LicenseCopyTest::vanishedSourceAndExistingTarget()
{
    const LicenseFiles files;
    files.write("H/license/license.dat", "a longer old one");
    const LogLines log;

    QVERIFY(copyLicenseFile(files.native("mail/license.dat"), "new", files.path("H/license/license.dat"),
                            nullptr));

    QCOMPARE(files.read("H/license/license.dat"), QByteArray("new"));
    QCOMPARE(log.lines().size(), 2);
    QVERIFY(log.lines().first().startsWith("dropped file "));
    QCOMPARE(log.lines().last(), "removing existing file " + files.native("H/license/license.dat"));
    QCOMPARE(files.temporaryFiles(), QStringList());
}

void LicenseCopyTest::noTemporaryFile()
{
    const LicenseFiles files;
    files.write("H/license/license.dat", "old");
    files.loseTemporaryDirectory();
    const LogLines log;
    QStringList errors{"earlier line"};

    QVERIFY(!copyLicenseFile(files.native("mail/license.dat"), "new", files.path("H/license/license.dat"),
                             &errors));

    // A file that was never created has no name.
    const QString source = files.native("mail/license.dat");
    QCOMPARE(errors,
             QStringList{"Dropped file " + source +
                         " no longer exists and could not create temporary file  with the same contents"});
    QCOMPARE(log.lines(), QStringList{"dropped file " + source +
                                      " no longer exists. creating temporary file  with the same contents"});
    QCOMPARE(files.read("H/license/license.dat"), QByteArray("old"));
    QVERIFY(!copyLicenseFile(source, "new", files.path("H/license/license.dat"), nullptr));
}

QTEST_GUILESS_MAIN(LicenseCopyTest)

#include "LicenseCopyTest.moc"
