#include "companions/helper/ReplacementFile.h"

#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/WideText.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QtTest>

using namespace HelperMachine;
using namespace WineFiles;

using Place = ReplacementFile::Place;

namespace {

const QString top = "C:\\Replacement test";
const QString license = top + "\\H\\license";
const QString target = license + "\\license.dat";
const QString elsewhere = top + "\\precious";

const std::vector<unsigned char> contents{'n', 'e', 'w'};

QStringList filesIn(const QString &directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

HeldPath heldLicense()
{
    return HeldPath(toWide(license));
}

/// Replaces the target by a file with the new contents.
bool replaceTarget()
{
    const HeldPath directory = heldLicense();
    ReplacementFile replacement(directory, toWide(license));
    return replacement.write(contents) && replacement.replace(toWide(target));
}

} // namespace

/// Races: changes of the license directory between its check and the replacement of a file in it.
class HelperReplacementTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        for (const QString &file : filesIn(license)) {
            setReadOnly(license + '\\' + file, false);
        }
        QDir(top).removeRecursively();
        QVERIFY(!QFileInfo::exists(top));
        QVERIFY(QDir().mkpath(license));
        QVERIFY(QDir().mkpath(elsewhere));
    }

    void takesThePlace()
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

    void goesAway()
    {
        {
            const HeldPath directory = heldLicense();
            const ReplacementFile replacement(directory, toWide(license));
            QVERIFY(replacement.write(contents));
            QCOMPARE(filesIn(license).size(), 1);
        }

        QCOMPARE(filesIn(license), QStringList());
    }

    /// An empty directory can be turned into a junction although it is held. Not a byte gets to its target,
    /// and no name stays there.
    void directoryLeadsElsewhereByNow()
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

    void directoryIsGone()
    {
        const HeldPath directory = heldLicense();
        removeOpenDirectory(license);

        ReplacementFile replacement(directory, toWide(license));

        QCOMPARE(replacement.place(), Place::none);
        QVERIFY(!replacement.write(contents));
        QVERIFY(!replacement.replace(toWide(target)));
    }

    void replacesReadOnly()
    {
        makeFile(target, "old");
        setReadOnly(target, true);

        QVERIFY(replaceTarget());

        QCOMPARE(read(target), QByteArray("new"));
        QVERIFY(!isReadOnly(target));
    }

    /// The file's other name may not be that of a licence.
    void secondNameStaysReadOnly()
    {
        makeFile(elsewhere + "\\file", "precious");
        makeHardLink(elsewhere + "\\file", target);
        setReadOnly(target, true);

        replaceTarget();

        QVERIFY(isReadOnly(elsewhere + "\\file"));
        QCOMPARE(read(elsewhere + "\\file"), QByteArray("precious"));
        setReadOnly(elsewhere + "\\file", false);
    }

    /// A link that has replaced the file since the check.
    void linkIsReplacedItself()
    {
        makeFile(elsewhere + "\\file", "precious");
        setReadOnly(elsewhere + "\\file", true);
        makeSymbolicLink("../../precious/file", target);

        const bool replaced = replaceTarget();
        const QByteArray now = read(target);
        const bool readOnly = isReadOnly(elsewhere + "\\file");
        if (!replaced) {
            removeSymbolicLink(target);
        }

        QVERIFY(readOnly);
        QCOMPARE(read(elsewhere + "\\file"), QByteArray("precious"));
        QCOMPARE(now, QByteArray(replaced ? "new" : "precious"));
        setReadOnly(elsewhere + "\\file", false);
    }
};

QTEST_GUILESS_MAIN(HelperReplacementTest)

#include "HelperReplacementTest_win.moc"
