#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <csignal>
#include <sys/resource.h>

namespace {

/// While it lives, limits every file to a number of bytes, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        // Without a handler the signal would end the program.
        handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    rlimit before = {};
    void (*handler)(int) = nullptr;
};

} // namespace

/// Copies that the program cannot make itself.
class LicenseCopyFallbackTest : public QObject {
    Q_OBJECT

private slots:
    void init() { ElevatedHelperFake::reset(); }

    void cleanup() { QVERIFY(QDir(files.path("H")).removeRecursively()); }

    void helperIsNotNeeded()
    {
        files.write("license.dat", "x");
        files.write("H/license/license.dat", "old");

        QVERIFY(install(files, "license.dat"));
        QVERIFY(install(files, "mail/1.dat", "x"));

        QCOMPARE(ElevatedHelperFake::starts().size(), 0);
        QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
    }

    void missingTargetDirectory_data()
    {
        columns<int>("exitCode");

        row("helper succeeds", 0);
        row("helper fails", 3);
        row("helper not started", -1);
    }

    void missingTargetDirectory()
    {
        QFETCH(int, exitCode);
        files.write("my licences/license 1.dat", "x");
        ElevatedHelperFake::setOutcome(exitCode, true);
        const LogLines log;
        QStringList errors{"earlier line"};

        QCOMPARE(install(files, "my licences/license 1.dat", "unused", &errors), exitCode == 0);

        QCOMPARE(errors, exitCode == 0 ? QStringList() : QStringList{helperFailureLine(exitCode)});
        const QString source = files.native("my licences/license 1.dat");
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
        const ElevatedHelperFake::Start &start = ElevatedHelperFake::starts().constFirst();
        QCOMPARE(start.executable, helperExecutablePath());
        QCOMPARE(start.arguments, "--copy=\"" + target + "\" \"" + source + "\"");
        QVERIFY(!start.show);
        QVERIFY(start.wait);
        QCOMPARE(log.lines(), helperLogLines(source, target));
        QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
    }

    /// A directory as the target represents anything that cannot be removed.
    void targetThatCannotBeRemoved()
    {
        files.write("license.dat", "x");
        files.makeDirectory("H/license/license.dat");
        const LogLines log;
        QStringList errors;

        QVERIFY(install(files, "license.dat", QString(), &errors));

        QCOMPARE(errors, QStringList());
        QCOMPARE(log.lines(), removalLogLines(target) + helperLogLines(files.path("license.dat"), target));
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
        QCOMPARE(entries(), QStringList{"license.dat"});
    }

    void vanishedSource()
    {
        const LogLines log;

        QVERIFY(install(files, "mail/license.dat", "x"));

        // The helper is given the temporary file, whose name only the log tells.
        const QString temporary = loggedTemporaryFile(log);
        QCOMPARE(QFileInfo(temporary).path(), files.path("temporary"));
        QCOMPARE(log.lines(), QStringList("dropped file " + files.path("mail/license.dat") +
                                          " no longer exists. creating temporary file " + temporary +
                                          " with the same contents") +
                                  helperLogLines(temporary, target));
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
        QCOMPARE(ElevatedHelperFake::starts().constFirst().arguments,
                 "--copy=\"" + target + "\" \"" + temporary + "\"");
        QCOMPARE(files.temporaryFiles(), QStringList());
    }

    /// The old file stays until there is something to replace it with. A directory represents anything that
    /// cannot be read.
    void sourceThatCannotBeRead()
    {
        files.makeDirectory("unreadable.dat");
        files.write("H/license/license.dat", "the old one");
        const LogLines log;

        QVERIFY(install(files, "unreadable.dat"));

        QCOMPARE(files.read("H/license/license.dat"), QByteArray("the old one"));
        QCOMPARE(log.lines(), helperLogLines(files.path("unreadable.dat"), target));
        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    }

    void temporaryFileIsNotWhole_data()
    {
        columns<int>("size"); // for which the disk has room

        row("no room", 0);
        row("one byte missing", 99999);
    }

    /// A part of a licence is not a licence.
    void temporaryFileIsNotWhole()
    {
        QFETCH(int, size);
        files.write("H/license/license.dat", "the old one");
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(!installWithRoom(size, "mail/license.dat", QString(100000, 'x'), &errors));

        QCOMPARE(log.lines().size(), 1);
        const QString temporary = loggedTemporaryFile(log);
        QCOMPARE(QFileInfo(temporary).path(), files.path("temporary"));
        QCOMPARE(errors, QStringList{"Dropped file " + files.path("mail/license.dat") +
                                     " no longer exists and could not create temporary file " + temporary +
                                     " with the same contents"});
        QCOMPARE(files.read("H/license/license.dat"), QByteArray("the old one"));
        QCOMPARE(files.temporaryFiles(), QStringList());
        QCOMPARE(ElevatedHelperFake::starts().size(), 0);
    }

    void noRoomForTheCopy_data()
    {
        // old: null when there is none
        // size: for which the disk has room
        columns<QByteArray, int>("old", "size");

        row("new", QByteArray(), 0);
        row("new, one byte missing", QByteArray(), 99999);
        row("over an old one, one byte missing", QByteArray("the old one"), 99999);
    }

    /// The helper finds no room either. An old licence stays as it is, and nothing else is left behind.
    void noRoomForTheCopy()
    {
        QFETCH(QByteArray, old);
        QFETCH(int, size);
        files.write("license.dat", QByteArray(100000, 'x'));
        files.makeDirectory("H/license");
        if (!old.isNull()) {
            files.write("H/license/license.dat", old);
        }
        ElevatedHelperFake::setOutcome(6, true);
        const LogLines log;
        QStringList errors{"earlier line"};

        QVERIFY(!installWithRoom(size, "license.dat", QString(), &errors));

        QCOMPARE(files.read("H/license/license.dat"), old.isNull() ? "(none)" : old);
        QCOMPARE(entries(), old.isNull() ? QStringList() : QStringList{"license.dat"});
        QCOMPARE(errors, QStringList{helperFailureLine(6)});
        QCOMPARE(log.lines(), (old.isNull() ? QStringList() : removalLogLines(target)) +
                                  helperLogLines(files.path("license.dat"), target));
    }

    /// The user reads the errors in his language, a developer the log in English.
    void translated()
    {
        const MarkingTranslator translator;
        files.makeDirectory("H/license/license.dat");
        ElevatedHelperFake::setOutcome(3, true);
        const LogLines log;
        QStringList errors;

        QVERIFY(!install(files, "mail/license.dat", "x", &errors));

        QCOMPARE(errors, QStringList{'[' + helperFailureLine(3) + ']'});
        QCOMPARE(log.lines().size(), 5);
        QVERIFY(!log.lines().join(QString()).contains('['));

        const LicenseFiles others;
        others.loseTemporaryDirectory();
        QVERIFY(!install(others, "mail/license.dat", "x", &errors));
        QCOMPARE(
            errors,
            QStringList{"[Dropped file " + others.path("mail/license.dat") +
                        " no longer exists and could not create temporary file  with the same contents]"});
    }

private:
    bool installWithRoom(int size, const QString &source, const QString &dropped, QStringList *errors)
    {
        const FullDisk disk(static_cast<rlim_t>(size));
        return install(files, source, dropped, errors);
    }

    /// What is in the directory of the licences.
    QStringList entries() const
    {
        return QDir(files.path("H/license"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    const LicenseFiles files;
    const QString target = files.path("H/license/license.dat");
};

QTEST_GUILESS_MAIN(LicenseCopyFallbackTest)
#include "LicenseCopyFallbackTest.moc"
