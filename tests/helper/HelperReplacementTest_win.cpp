#include "companions/helper/ReplacementFile.h"
#include "companions/helper/WritableMeanwhile.h"

#include "tests/helper/HelperMachine.h"
#include "tests/helper/WideText.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QtTest>

using HelperMachine::isReadOnly;
using HelperMachine::makeFile;
using HelperMachine::makeHardLink;
using HelperMachine::setReadOnly;
using WineFiles::makeSymbolicLink;
using WineFiles::removeOpenDirectory;
using WineFiles::removeSymbolicLink;

using Place = ReplacementFile::Place;

namespace {

const QString top = "C:\\Replacement test";
const QString license = top + "\\H\\license";
const QString target = license + "\\license.dat";
const QString elsewhere = top + "\\precious";

const std::vector<unsigned char> contents{'n', 'e', 'w'};

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : "unreadable";
}

QStringList filesIn(const QString &directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

HeldPath heldLicense()
{
    return HeldPath(toWide(license), HeldPath::Writers::allowed);
}

} // namespace

/// What happens to the license directory between looking at it and replacing a file in it.
class HelperReplacementTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void takesThePlace();
    void goesAway();
    void directoryLeadsElsewhereByNow();
    void directoryIsGone();

    void writableMeanwhile();
    void staysWritable();
    void ordinaryFileStaysAsItIs();
    void secondNameStaysReadOnly();
    void linkStaysReadOnly();
    void exchangedMeanwhile();
    void nothingThere();
};

void HelperReplacementTest::init()
{
    for (const QString &file : filesIn(license)) {
        setReadOnly(license + '\\' + file, false);
    }
    QDir(top).removeRecursively();
    QVERIFY(!QFileInfo::exists(top));
    QVERIFY(QDir().mkpath(license));
    QVERIFY(QDir().mkpath(elsewhere));
}

void HelperReplacementTest::takesThePlace()
{
    makeFile(target, "old");
    {
        const HeldPath directory = heldLicense();
        ReplacementFile replacement(directory, toWide(license));
        QCOMPARE(replacement.place(), Place::inDirectory);
        QCOMPARE(filesIn(license).size(), 2);
        QVERIFY(replacement.write(contents));
        QCOMPARE(read(target), QByteArray("old"));
        QVERIFY(replacement.replace(toWide(target)));
    }

    QCOMPARE(read(target), QByteArray("new"));
    QCOMPARE(filesIn(license), QStringList{"license.dat"});
}

void HelperReplacementTest::goesAway()
{
    {
        const HeldPath directory = heldLicense();
        const ReplacementFile replacement(directory, toWide(license));
        QVERIFY(replacement.write(contents));
        QCOMPARE(filesIn(license).size(), 1);
    }

    QCOMPARE(filesIn(license), QStringList());
}

/// An empty directory can be made to lead elsewhere although it is held. Not a byte gets there, and no name stays.
void HelperReplacementTest::directoryLeadsElsewhereByNow()
{
    makeFile(elsewhere + "\\license.dat", "precious");
    const HeldPath directory = heldLicense();
    removeOpenDirectory(license);
    makeSymbolicLink("../precious", license);
    {
        ReplacementFile replacement(directory, toWide(license));
        QCOMPARE(replacement.place(), Place::elsewhere);
        QVERIFY(!replacement.write(contents));
        QVERIFY(!replacement.replace(toWide(target)));
        QCOMPARE(filesIn(elsewhere).size(), 2);
    }
    removeSymbolicLink(license);

    QCOMPARE(filesIn(elsewhere), QStringList{"license.dat"});
    QCOMPARE(read(elsewhere + "\\license.dat"), QByteArray("precious"));
}

void HelperReplacementTest::directoryIsGone()
{
    const HeldPath directory = heldLicense();
    removeOpenDirectory(license);

    ReplacementFile replacement(directory, toWide(license));

    QCOMPARE(replacement.place(), Place::none);
    QVERIFY(!replacement.write(contents));
    QVERIFY(!replacement.replace(toWide(target)));
}

void HelperReplacementTest::writableMeanwhile()
{
    makeFile(target, "old");
    setReadOnly(target, true);
    {
        const WritableMeanwhile writable(toWide(target));
        QVERIFY(!isReadOnly(target));
    }

    QVERIFY(isReadOnly(target));
    QCOMPARE(read(target), QByteArray("old"));
}

void HelperReplacementTest::staysWritable()
{
    makeFile(target, "old");
    setReadOnly(target, true);
    {
        WritableMeanwhile writable(toWide(target));
        writable.keepWritable();
    }

    QVERIFY(!isReadOnly(target));
}

void HelperReplacementTest::ordinaryFileStaysAsItIs()
{
    makeFile(target, "old");
    {
        const WritableMeanwhile writable(toWide(target));
        QVERIFY(!isReadOnly(target));
    }

    QVERIFY(!isReadOnly(target));
}

/// What the other name stands for may be no licence at all.
void HelperReplacementTest::secondNameStaysReadOnly()
{
    makeFile(elsewhere + "\\file", "precious");
    makeHardLink(elsewhere + "\\file", target);
    setReadOnly(target, true);

    const WritableMeanwhile writable(toWide(target));

    QVERIFY(isReadOnly(target));
    QVERIFY(isReadOnly(elsewhere + "\\file"));
}

void HelperReplacementTest::linkStaysReadOnly()
{
    makeFile(elsewhere + "\\file", "precious");
    setReadOnly(elsewhere + "\\file", true);
    makeSymbolicLink("../../precious/file", target);
    bool readOnly = false;
    {
        const WritableMeanwhile writable(toWide(target));
        readOnly = isReadOnly(elsewhere + "\\file");
    }
    removeSymbolicLink(target);

    QVERIFY(readOnly);
    setReadOnly(elsewhere + "\\file", false);
}

/// Another file than the one that was made writable is not made read-only.
void HelperReplacementTest::exchangedMeanwhile()
{
    makeFile(target, "old");
    setReadOnly(target, true);
    {
        const WritableMeanwhile writable(toWide(target));
        QVERIFY(QFile::rename(target, license + "\\old.dat"));
        makeFile(target, "another");
    }

    QVERIFY(!isReadOnly(target));
    QVERIFY(!isReadOnly(license + "\\old.dat"));
}

void HelperReplacementTest::nothingThere()
{
    {
        const WritableMeanwhile writable(toWide(target));
    }

    QCOMPARE(filesIn(license), QStringList());
}

QTEST_GUILESS_MAIN(HelperReplacementTest)

#include "HelperReplacementTest_win.moc"
