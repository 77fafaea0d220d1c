#include "tests/helper/HelperMachine.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>
#include <QtTest>

#include <memory>

using HelperMachine::isReadOnly;
using HelperMachine::makeFile;
using HelperMachine::makeHardLink;
using HelperMachine::run;
using HelperMachine::setReadOnly;
using HelperMachine::tree;
using WineFiles::makeSymbolicLink;
using WineFiles::onAnotherDrive;
using WineFiles::removeSymbolicLink;

namespace {

const QString top = "C:\\Copy test";
const QString license = top + "\\H\\license";
const QString target = license + "\\license.dat";
const QString source = top + "\\new.dat";

/// With both ends of lines, a 0, and bytes that are no text.
const QByteArray contents("line\r\nline\n\0\xFF\xFE\x80", 16);

QString line(const QString &destination, const QString &from)
{
    return "--copy=\"" + destination + "\" \"" + from + '"';
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : "unreadable";
}

} // namespace

class HelperCopyTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void copies_data();
    void copies();
    void replaces_data();
    void replaces();
    void replacesReadOnly();
    void keepsTheSource();
    void sourceStillOpen();
    void largest();

    void refuses_data();
    void refuses();
    void refusesLinks_data();
    void refusesLinks();
    void refusesAnotherDrive_data();
    void refusesAnotherDrive();
    void refusesSecondName();
    void refusesSourceOfSecondName();

    void failedCopyKeepsTheOldFile_data();
    void failedCopyKeepsTheOldFile();
};

void HelperCopyTest::init()
{
    QDir(top).removeRecursively();
    QVERIFY(!QFileInfo::exists(top));
    QVERIFY(QDir().mkpath(license));
    makeFile(source, contents);
}

void HelperCopyTest::copies_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("from");

    QTest::newRow("plain") << target << source;
    QTest::newRow("blanks") << top + "\\a b\\license\\my license.dat" << top + "\\c d\\a new file.dat";
    QTest::newRow("directory in other case") << top + "\\H\\License\\license.dat" << source;
    QTest::newRow("path in capitals") << target.toUpper() << source.toUpper();
    QTest::newRow("signs") << top + "\\R&D 100% (a=b)^\\license\\l & 100% ^(x);,'!.dat"
                           << top + "\\a & b 100%.dat";
    QTest::newRow("not ASCII") << top + "\\Prüfstand\\license\\寸法.dat" << top + "\\Размер\\😀.dat";
    QTest::newRow("doubled backslashes") << top + "\\H\\\\license\\\\license.dat" << top + "\\\\new.dat";
    QTest::newRow("slashes") << QString(target).replace('\\', '/') << QString(source).replace('\\', '/');
    QTest::newRow("slashes and backslashes") << top + "/H\\license/license.dat" << top + "/new.dat";
    // Wine cannot tell where a file with a longer path lies, which the helper takes for a doubt: neither of a new file
    // in the license directory nor of the source.
    QTest::newRow("long destination")
        << top + '\\' + QString(120, 'x') + '\\' + QString(60, 'y') + "\\license\\" + QString(100, 'z')
        << source;
    QTest::newRow("long source") << target << top + '\\' + QString(120, 'x') + '\\' + QString(120, 'y');
    QTest::newRow("license within license") << top + "\\license\\license\\license" << source;
    QTest::newRow("source in the license directory") << target << license + "\\other.dat";
}

void HelperCopyTest::copies()
{
    QFETCH(QString, destination);
    QFETCH(QString, from);
    QVERIFY(QDir().mkpath(QFileInfo(destination).path()));
    makeFile(from, contents);
    const auto before = tree(top);

    const HelperResult result = run(line(destination, from));

    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(read(destination), contents);
    QCOMPARE(read(from), contents);
    // Nothing but the one file has come.
    QCOMPARE(tree(top).size(), before.size() + 1);
}

void HelperCopyTest::replaces_data()
{
    QTest::addColumn<QByteArray>("before");

    QTest::newRow("other") << QByteArray("the old license");
    QTest::newRow("longer") << QByteArray(100000, 'x');
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("same") << contents;
}

void HelperCopyTest::replaces()
{
    QFETCH(QByteArray, before);
    makeFile(target, before);
    makeFile(license + "\\other.dat", "other");

    QCOMPARE(run(line(target, source)).exitCode, 0);

    QCOMPARE(read(target), contents);
    QCOMPARE(read(license + "\\other.dat"), QByteArray("other"));
    QCOMPARE(QDir(license).entryList(QDir::Files | QDir::Hidden | QDir::System),
             (QStringList{"license.dat", "other.dat"}));
}

void HelperCopyTest::replacesReadOnly()
{
    makeFile(target, "the old license");
    setReadOnly(target, true);
    QVERIFY(isReadOnly(target));

    QCOMPARE(run(line(target, source)).exitCode, 0);

    QCOMPARE(read(target), contents);
    QVERIFY(!isReadOnly(target));
}

/// Read-only or not, and with its own attributes.
void HelperCopyTest::keepsTheSource()
{
    setReadOnly(source, true);

    QCOMPARE(run(line(target, source)).exitCode, 0);

    QVERIFY(isReadOnly(source));
    QVERIFY(!isReadOnly(target));
    QCOMPARE(read(target), contents);
    setReadOnly(source, false);
}

/// The program keeps the temporary file of a dropped license open.
void HelperCopyTest::sourceStillOpen()
{
    QTemporaryFile temporary;
    QVERIFY(temporary.open());
    temporary.write(contents);
    temporary.close();

    QCOMPARE(run(line(target, QDir::toNativeSeparators(temporary.fileName()))).exitCode, 0);

    QCOMPARE(read(target), contents);
}

void HelperCopyTest::largest()
{
    const QByteArray large(1024 * 1024, 'x');
    makeFile(source, large);

    QCOMPARE(run(line(target, source)).exitCode, 0);

    QVERIFY(read(target) == large);
}

void HelperCopyTest::refuses_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("reason");
    const QString noSource = "The source is no file that is reached without a detour.";
    const QString size = "The source is empty or too large for a licence file.";
    const QString place = "The destination's directory is none that is reached without a detour.";

    QTest::newRow("source missing") << target << top + "\\missing.dat" << noSource;
    QTest::newRow("source's directory missing") << target << top + "\\missing\\new.dat" << noSource;
    QTest::newRow("source's drive missing") << target << "Q:\\new.dat" << noSource;
    QTest::newRow("source is a directory") << target << top + "\\H" << noSource;
    QTest::newRow("file on the way to the source") << target << source + "\\new.dat" << noSource;
    QTest::newRow("source empty") << target << top + "\\empty.dat" << size;
    QTest::newRow("source too large") << target << top + "\\large.dat" << size;
    QTest::newRow("license directory missing") << top + "\\G\\license\\license.dat" << source << place;
    QTest::newRow("license directory's parent missing")
        << top + "\\F\\G\\license\\license.dat" << source << place;
    QTest::newRow("license directory is a file") << top + "\\file\\license\\license.dat" << source << place;
    QTest::newRow("license directory's drive missing") << "Q:\\H\\license\\license.dat" << source << place;
    QTest::newRow("directory of another name")
        << top + "\\H\\bin\\license.dat" << source
        << "The destination does not lie in a directory named license.";
    QTest::newRow("destination is a directory")
        << license + "\\sub" << source << "The destination is there and no ordinary file.";
    QTest::newRow("source is the destination") << license + "\\same.dat" << license + "\\same.dat"
                                               << "The source is the destination.";
    QTest::newRow("source is the destination in other case")
        << license + "\\same.dat" << license.toUpper() + "\\SAME.DAT"
        << "The source is the destination.";
}

void HelperCopyTest::refuses()
{
    QFETCH(QString, destination);
    QFETCH(QString, from);
    QFETCH(QString, reason);
    makeFile(top + "\\empty.dat", QByteArray());
    makeFile(top + "\\large.dat", QByteArray(1024 * 1024 + 1, 'x'));
    makeFile(top + "\\file\\license", "a file");
    makeFile(license + "\\same.dat", "the same");
    QVERIFY(QDir().mkpath(top + "\\G"));
    QVERIFY(QDir().mkpath(top + "\\H\\bin"));
    QVERIFY(QDir().mkpath(license + "\\sub"));
    const auto before = tree(top);

    const HelperResult result = run(line(destination, from));

    QCOMPARE(QString::fromUtf8(result.errors),
             "qz_com_helper: The request was refused. Nothing was changed.\r\n" + reason + "\r\n");
    QCOMPARE(result.exitCode, 2);
    QVERIFY(tree(top) == before);
}

void HelperCopyTest::refusesLinks_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("reason");
    const QString noSource = "The source is no file that is reached without a detour.";
    const QString place = "The destination's directory is none that is reached without a detour.";

    QTest::newRow("license directory is a link") << top + "\\G\\license\\license.dat" << source << place;
    QTest::newRow("link on the way to the license directory")
        << top + "\\link\\license\\license.dat" << source << place;
    QTest::newRow("destination is a link")
        << license + "\\link.dat" << source << "The destination is there and no ordinary file.";
    QTest::newRow("source is a link") << target << top + "\\link.dat" << noSource;
    QTest::newRow("link on the way to the source") << target << top + "\\link\\other.dat" << noSource;
}

/// What the links lead to would be all right.
void HelperCopyTest::refusesLinks()
{
    QFETCH(QString, destination);
    QFETCH(QString, from);
    QFETCH(QString, reason);
    makeFile(top + "\\H\\other.dat", "other");
    makeFile(license + "\\old.dat", "the old license");
    QVERIFY(QDir().mkpath(top + "\\G"));
    const QMap<QString, QString> links{{top + "\\G\\license", "../H/license"},
                                       {top + "\\link", "H"},
                                       {license + "\\link.dat", "old.dat"},
                                       {top + "\\link.dat", "new.dat"}};
    for (auto link = links.begin(); link != links.end(); ++link) {
        makeSymbolicLink(link.value(), link.key());
    }
    const auto before = tree(top);

    QCOMPARE(read(top + "\\link\\other.dat"), QByteArray("other"));
    QCOMPARE(read(top + "\\G\\license\\link.dat"), QByteArray("the old license"));

    const HelperResult result = run(line(destination, from));
    const auto after = tree(top);
    for (const QString &link : links.keys()) {
        removeSymbolicLink(link);
    }

    QCOMPARE(QString::fromUtf8(result.errors),
             "qz_com_helper: The request was refused. Nothing was changed.\r\n" + reason + "\r\n");
    QCOMPARE(result.exitCode, 2);
    QVERIFY(after == before);
}

void HelperCopyTest::refusesAnotherDrive_data()
{
    QTest::addColumn<bool>("destinationThere");
    QTest::addColumn<QString>("reason");

    QTest::newRow("source") << false << "The source is no file that is reached without a detour.";
    QTest::newRow("destination") << true
                                 << "The destination's directory is none that is reached without a detour.";
}

/// The same files under another drive's letter, to which the user could give another meaning.
void HelperCopyTest::refusesAnotherDrive()
{
    QFETCH(bool, destinationThere);
    QFETCH(QString, reason);
    makeFile(target, "the old license");
    const QString elsewhere = onAnotherDrive(destinationThere ? target : source);
    QCOMPARE(read(elsewhere), read(destinationThere ? target : source));
    const auto before = tree(top);

    const HelperResult result = run(destinationThere ? line(elsewhere, source) : line(target, elsewhere));

    QCOMPARE(QString::fromUtf8(result.errors),
             "qz_com_helper: The request was refused. Nothing was changed.\r\n" + reason + "\r\n");
    QCOMPARE(result.exitCode, 2);
    QVERIFY(tree(top) == before);
}

void HelperCopyTest::refusesSecondName()
{
    makeFile(top + "\\precious.dat", "precious");
    makeHardLink(top + "\\precious.dat", target);

    QCOMPARE(run(line(target, source)).exitCode, 2);

    QCOMPARE(read(top + "\\precious.dat"), QByteArray("precious"));
    QCOMPARE(read(target), QByteArray("precious"));
}

/// The source is the destination although the paths differ.
void HelperCopyTest::refusesSourceOfSecondName()
{
    makeHardLink(source, target);

    const HelperResult result = run(line(target, source));

    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.errors.contains("The source is the destination."));
    QCOMPARE(read(source), contents);
}

void HelperCopyTest::failedCopyKeepsTheOldFile_data()
{
    QTest::addColumn<bool>("readOnly");

    QTest::newRow("ordinary") << false;
    QTest::newRow("read-only") << true;
}

/// An open file cannot be replaced.
void HelperCopyTest::failedCopyKeepsTheOldFile()
{
    QFETCH(bool, readOnly);
    makeFile(target, "the old license");
    setReadOnly(target, readOnly);
    QFile open(target);
    QVERIFY(open.open(QFile::ReadOnly));
    const auto before = tree(top);

    const HelperResult result = run(line(target, source));

    QCOMPARE(result.exitCode, 6);
    QCOMPARE(
        QString::fromUtf8(result.errors),
        QString(
            "qz_com_helper: The licence file could not be copied. The old one, if there was one, is as it "
            "was.\r\nThe new file could not take the place of the old one.\r\n"));
    QVERIFY(tree(top) == before);
    open.close();
    setReadOnly(target, false);
}

QTEST_GUILESS_MAIN(HelperCopyTest)

#include "HelperCopyTest_win.moc"
