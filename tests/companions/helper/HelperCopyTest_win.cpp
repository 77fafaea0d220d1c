#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/Rows.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace HelperMachine;
using namespace WineFiles;

namespace {

const QString top = "C:\\Copy test";
const QString license = top + "\\H\\license";
const QString target = license + "\\license.dat";
const QString source = top + "\\new.dat";

/// With both kinds of line ends, a 0, and bytes that are not text.
const QByteArray contents("line\r\nline\n\0\xFF\xFE\x80", 16);

QString line(const QString &destination, const QString &from)
{
    return "--copy=\"" + destination + "\" \"" + from + '"';
}

/// Every file in a directory.
QStringList filesIn(const QString &directory)
{
    return QDir(directory).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

} // namespace

class HelperCopyTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QDir(top).removeRecursively();
        QVERIFY(!QFileInfo::exists(top));
        QVERIFY(QDir().mkpath(license));
        makeFile(source, contents);
    }

    void copies_data()
    {
        columns<QString, QString>("destination", "from");

        row("plain", target, source);
        row("path in capitals", target.toUpper(), source.toUpper());
        row("signs", top + "\\R&D 100% (a=b)^\\license\\l & 100% ^(x);,'!.dat", top + "\\a & b 100%.dat");
        row("not ASCII", top + "\\Prüfstand\\license\\寸法.dat", top + "\\Размер\\😀.dat");
        row("doubled backslashes", top + "\\H\\\\license\\\\license.dat", top + "\\\\new.dat");
        row("slashes", QString(target).replace('\\', '/'), QString(source).replace('\\', '/'));
        // Wine knows no final path for a new file with a longer path, which the helper then refuses.
        row("long destination",
            top + '\\' + QString(120, 'x') + '\\' + QString(60, 'y') + "\\license\\" + QString(100, 'z'),
            source);
        row("long source", target, top + '\\' + QString(120, 'x') + '\\' + QString(120, 'y'));
    }

    void copies()
    {
        QFETCH(QString, destination);
        QFETCH(QString, from);
        QVERIFY(QDir().mkpath(QFileInfo(destination).path()));
        makeFile(from, contents);
        const auto before = tree(top);

        QCOMPARE(run(line(destination, from)), done());

        QCOMPARE(read(destination), contents);
        QCOMPARE(read(from), contents);
        // Only the one file is new.
        QCOMPARE(tree(top).size(), before.size() + 1);
    }

    void replaces_data()
    {
        columns<QByteArray>("before");

        row("other", QByteArray("the old license"));
        row("same", contents);
    }

    void replaces()
    {
        QFETCH(QByteArray, before);
        makeFile(target, before);
        makeFile(license + "\\other.dat", "other");

        QCOMPARE(run(line(target, source)), done());

        QCOMPARE(read(target), contents);
        QCOMPARE(read(license + "\\other.dat"), QByteArray("other"));
        QCOMPARE(filesIn(license), (QStringList{"license.dat", "other.dat"}));
    }

    void largest()
    {
        const QByteArray large(1024 * 1024, 'x');
        makeFile(source, large);

        QCOMPARE(run(line(target, source)), done());

        QVERIFY(read(target) == large);
    }

    void refuses_data()
    {
        columns<QString, QString, QString>("destination", "from", "reason");
        const auto row = [](const char *name, const QString &destination, const QString &from,
                            const QString &refused, const QString &why) {
            ::row(name, destination, from, '"' + refused + "\" " + why + '.');
        };

        row("source missing", target, top + "\\missing.dat", top + "\\missing.dat", "does not exist");
        row("source's drive missing", target, "Q:\\new.dat", "Q:\\new.dat", "does not exist");
        row("source is a directory", target, top + "\\H", top + "\\H", "is a directory");
        row("source empty", target, top + "\\empty.dat", top + "\\empty.dat", "is empty");
        row("source too large", target, top + "\\large.dat", top + "\\large.dat",
            "is larger than 1048576 bytes, and no licence file");
        row("license directory missing", top + "\\G\\license\\license.dat", source, top + "\\G\\license",
            "does not exist");
        row("license directory is a file", top + "\\file\\license\\license.dat", source,
            top + "\\file\\license", "is not a directory");
        row("license directory's drive missing", "Q:\\H\\license\\license.dat", source, "Q:\\H",
            "does not exist");
        row("directory of another name", top + "\\H\\bin\\license.dat", source, top + "\\H\\bin\\license.dat",
            "does not lie in a directory named license");
        row("destination is a directory", license + "\\sub", source, license + "\\sub", "is a directory");
        row("source written with slashes", target, QString(top).replace('\\', '/') + "//missing.dat",
            top + "\\missing.dat", "does not exist");
    }

    void refuses()
    {
        QFETCH(QString, destination);
        QFETCH(QString, from);
        QFETCH(QString, reason);
        makeFile(top + "\\empty.dat", QByteArray());
        makeFile(top + "\\large.dat", QByteArray(1024 * 1024 + 1, 'x'));
        makeFile(top + "\\file\\license", "a file");
        QVERIFY(QDir().mkpath(top + "\\G"));
        QVERIFY(QDir().mkpath(top + "\\H\\bin"));
        QVERIFY(QDir().mkpath(license + "\\sub"));
        const auto before = tree(top);

        QCOMPARE(run(line(destination, from)), refused(reason));

        QVERIFY(tree(top) == before);
    }

    void refusesDetours_data()
    {
        // detour: the part of the destination that the reason names
        columns<QString, QString>("destination", "detour");

        row("license directory is a link", top + "\\G\\license\\license.dat", top + "\\G\\license");
        row("link on the way to the license directory", top + "\\link\\license\\license.dat", top + "\\link");
        row("destination is a link", license + "\\link.dat", license + "\\link.dat");
        // The same directory under another drive letter, which the user could map elsewhere.
        const QString driveC = onAnotherDrive("C:\\");
        row("another drive", driveC + target.mid(2), driveC);
    }

    /// What the destination leads to would be acceptable. Wine opens what a link leads to.
    void refusesDetours()
    {
        QFETCH(QString, destination);
        QFETCH(QString, detour);
        makeFile(license + "\\old.dat", "the old license");
        makeFile(target, "the old license");
        QVERIFY(QDir().mkpath(top + "\\G"));
        const QMap<QString, QString> links{{top + "\\G\\license", "../H/license"},
                                           {top + "\\link", "H"},
                                           {license + "\\link.dat", "old.dat"}};
        for (auto link = links.begin(); link != links.end(); ++link) {
            makeSymbolicLink(link.value(), link.key());
        }
        const auto before = tree(top);
        QCOMPARE(read(destination), QByteArray("the old license"));

        const ProgramResult result = run(line(destination, source));
        const auto after = tree(top);
        for (const QString &link : links.keys()) {
            removeSymbolicLink(link);
        }

        QCOMPARE(result, refused('"' + detour + "\" lies elsewhere than its path says."));
        QVERIFY(after == before);
    }

    void sourceOnItsWay_data()
    {
        columns<QString>("from");

        row("share", "\\\\server\\share\\new.dat");
        row("drive letter for a directory", "W:\\new.dat");
        row("link", top + "\\S\\link.dat");
        row("linked directory", top + "\\link\\new.dat");
        row("second name", top + "\\S\\second.dat");
    }

    /// The caller may name any file as the source, however it is reached.
    void sourceOnItsWay()
    {
        QFETCH(QString, from);
        const QString directory = top + "\\S";
        makeFile(directory + "\\new.dat", contents);
        const Mapping drive("W:", directory);
        const Mapping share("\\\\server\\share", directory);
        makeSymbolicLink("new.dat", directory + "\\link.dat");
        makeSymbolicLink("S", top + "\\link");
        makeHardLink(directory + "\\new.dat", directory + "\\second.dat");

        const ProgramResult result = run(line(target, from));
        removeSymbolicLink(directory + "\\link.dat");
        removeSymbolicLink(top + "\\link");

        QCOMPARE(result, done());
        QCOMPARE(read(target), contents);
        QCOMPARE(read(directory + "\\new.dat"), contents);
    }

    /// Another hard link to the replaced file keeps its contents.
    void replacesOneNameOfTwo()
    {
        makeFile(top + "\\precious.dat", "precious");
        makeHardLink(top + "\\precious.dat", target);

        QCOMPARE(run(line(target, source)), done());

        QCOMPARE(read(top + "\\precious.dat"), QByteArray("precious"));
        QCOMPARE(read(target), contents);
    }

    void overItself_data()
    {
        columns<QString>("from");

        row("same path", target);
        row("second name", top + "\\second.dat");
    }

    /// The source is the destination: it is replaced by its own contents.
    void overItself()
    {
        QFETCH(QString, from);
        makeFile(target, contents);
        makeHardLink(target, top + "\\second.dat");

        QCOMPARE(run(line(target, from)), done());

        QCOMPARE(read(target), contents);
        QCOMPARE(read(top + "\\second.dat"), contents);
    }

    void failedCopyKeepsTheOldFile_data()
    {
        columns<QString, bool, QString>("directory", "readOnly", "named");

        row("ordinary", license, false, license);
        row("read-only", license, true, license);
        // A direction mark could make the message show another path.
        row("direction mark", top + "\\a\u202Eb\\license", false, top + "\\a?b\\license");
    }

    /// An open file cannot be replaced. A read-only one may lose its attribute.
    void failedCopyKeepsTheOldFile()
    {
        QFETCH(QString, directory);
        QFETCH(bool, readOnly);
        QFETCH(QString, named);
        const QString target = directory + "\\license.dat";
        makeFile(target, "the old license");
        setReadOnly(target, readOnly);
        QFile open(target);
        QVERIFY(open.open(QFile::ReadOnly));

        QCOMPARE(
            run(line(target, source)),
            failed(6,
                   "The licence file could not be copied. The old one, if there was one, holds what it held.",
                   '"' + named + "\\license.dat\" could not be replaced."));

        QCOMPARE(open.readAll(), QByteArray("the old license"));
        QCOMPARE(filesIn(directory), QStringList{"license.dat"});
        open.close();
        QCOMPARE(read(target), QByteArray("the old license"));
        setReadOnly(target, false);
    }
};

QTEST_GUILESS_MAIN(HelperCopyTest)

#include "HelperCopyTest_win.moc"
