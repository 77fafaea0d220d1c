#include "launch/ElevatedHelper.h"
#include "license/LicenseCopy.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Messages.h"

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
    void helperIsNotNeeded();
    void missingTargetDirectory_data();
    void missingTargetDirectory();
    void targetThatCannotBeRemoved();
    void vanishedSource_data();
    void vanishedSource();
    void sourceThatCannotBeRead_data();
    void sourceThatCannotBeRead();
    void temporaryFileIsNotWhole_data();
    void temporaryFileIsNotWhole();
    void translated();
    void errorsWithoutAList();
};

void LicenseCopyFallbackTest::helperIsNotNeeded()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    files.write("H/license/license.dat", "old");

    QVERIFY(
        copyLicenseFile(files.path("license.dat"), QString(), files.path("H/license/license.dat"), nullptr));
    QVERIFY(copyLicenseFile(files.path("mail/1.dat"), "x", files.path("H/license/1.dat"), nullptr));

    QCOMPARE(ElevatedHelperFake::starts().size(), 0);
    QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
}

void LicenseCopyFallbackTest::missingTargetDirectory_data()
{
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QStringList>("failure");

    const QString line = "helper process returned with value %1. This indicates an error in its execution!";
    QTest::newRow("helper succeeds") << 0 << QStringList();
    QTest::newRow("helper fails") << 3 << QStringList{line.arg(3)};
    QTest::newRow("helper not started") << -1 << QStringList{line.arg(-1)};
}

void LicenseCopyFallbackTest::missingTargetDirectory()
{
    QFETCH(int, exitCode);
    QFETCH(QStringList, failure);
    const LicenseFiles files;
    files.write("my licences/license 1.dat", "x");
    ElevatedHelperFake::setOutcome(exitCode, true);
    const LogLines log;
    QStringList errors{"earlier line"};

    const QString target = files.path("HALCON 20.11/license/license 1.dat");
    QCOMPARE(copyLicenseFile(files.path("my licences/license 1.dat"), "unused", target, &errors),
             failure.isEmpty());

    QCOMPARE(errors, failure);
    const QString source = files.native("my licences/license 1.dat");
    const QString arguments = "--copy=\"" + target + "\" \"" + source + "\"";
    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    const ElevatedHelperFake::Start &start = ElevatedHelperFake::starts().constFirst();
    QCOMPARE(start.executable, helperExecutablePath());
    QCOMPARE(start.arguments, arguments);
    QVERIFY(!start.show);
    QVERIFY(start.wait);
    QCOMPARE(log.lines(),
             (QStringList{
                 "warning: could not copy source file \"" + source + "\" to destination file \"" + target +
                     "\". Trying to install license with an elevated helper process.",
                 "executing helper process with elevated rights: " + helperExecutablePath() + " " + arguments,
             }));
    QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
}

/// A directory as the target represents anything that cannot be removed.
void LicenseCopyFallbackTest::targetThatCannotBeRemoved()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    files.makeDirectory("H/license/license.dat");
    const LogLines log;
    QStringList errors;

    QVERIFY(
        copyLicenseFile(files.path("license.dat"), QString(), files.path("H/license/license.dat"), &errors));

    QCOMPARE(errors, QStringList());
    const QString source = files.path("license.dat");
    const QString target = files.path("H/license/license.dat");
    const QString arguments = "--copy=\"" + target + "\" \"" + source + "\"";
    QCOMPARE(log.lines(),
             (QStringList{
                 "removing existing file " + target,
                 "warning: cannot remove existing file " + target + " \"",
                 "warning: could not copy source file \"" + source + "\" to destination file \"" + target +
                     "\". Trying to install license with an elevated helper process.",
                 "executing helper process with elevated rights: " + helperExecutablePath() + " " + arguments,
             }));
    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    QCOMPARE(ElevatedHelperFake::starts().constFirst().arguments, arguments);
}

void LicenseCopyFallbackTest::vanishedSource_data()
{
    QTest::addColumn<int>("exitCode");

    QTest::newRow("helper succeeds") << 0;
    QTest::newRow("helper fails") << 3;
}

void LicenseCopyFallbackTest::vanishedSource()
{
    QFETCH(int, exitCode);
    const LicenseFiles files;
    ElevatedHelperFake::setOutcome(exitCode, true);
    const LogLines log;

    const QString target = files.path("H/license/license.dat");
    QCOMPARE(copyLicenseFile(files.path("mail/license.dat"), "x", target, nullptr), exitCode == 0);

    // The helper is given the temporary file, whose name only the log tells.
    const QStringList lines = log.lines();
    QCOMPARE(lines.size(), 3);
    const QString temporary =
        lines.first().section("creating temporary file ", 1).section(" with the same contents", 0, 0);
    QCOMPARE(QFileInfo(temporary).path(), files.path("temporary"));
    QCOMPARE(lines.first(), "dropped file " + files.path("mail/license.dat") +
                                " no longer exists. creating temporary file " + temporary +
                                " with the same contents");
    QCOMPARE(lines.at(1), "warning: could not copy source file \"" + temporary + "\" to destination file \"" +
                              target + "\". Trying to install license with an elevated helper process.");
    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    QCOMPARE(ElevatedHelperFake::starts().constFirst().arguments,
             "--copy=\"" + target + "\" \"" + temporary + "\"");
    QCOMPARE(files.temporaryFiles(), QStringList());
}

void LicenseCopyFallbackTest::sourceThatCannotBeRead_data()
{
    QTest::addColumn<int>("exitCode");

    QTest::newRow("helper succeeds") << 0;
    QTest::newRow("helper fails") << 2;
    QTest::newRow("helper not started") << -1;
}

/// The old file stays until there is something to replace it with. A directory represents anything that
/// cannot be read.
void LicenseCopyFallbackTest::sourceThatCannotBeRead()
{
    QFETCH(int, exitCode);
    const LicenseFiles files;
    files.makeDirectory("license.dat");
    files.write("H/license/license.dat", "the old one");
    ElevatedHelperFake::setOutcome(exitCode, true);
    const LogLines log;

    const QString source = files.path("license.dat");
    const QString target = files.path("H/license/license.dat");
    QCOMPARE(copyLicenseFile(source, QString(), target, nullptr), exitCode == 0);

    QCOMPARE(files.read("H/license/license.dat"), QByteArray("the old one"));
    const QString arguments = "--copy=\"" + target + "\" \"" + source + "\"";
    QCOMPARE(log.lines(),
             (QStringList{
                 "warning: could not copy source file \"" + source + "\" to destination file \"" + target +
                     "\". Trying to install license with an elevated helper process.",
                 "executing helper process with elevated rights: " + helperExecutablePath() + " " + arguments,
             }));
    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
}

void LicenseCopyFallbackTest::temporaryFileIsNotWhole_data()
{
    QTest::addColumn<int>("size"); // for which the disk has room

    QTest::newRow("no room") << 0;
    QTest::newRow("room for a part") << 4096;
    QTest::newRow("one byte missing") << 99999;
}

/// A part of a licence is not a licence.
void LicenseCopyFallbackTest::temporaryFileIsNotWhole()
{
    QFETCH(int, size);
    const LicenseFiles files;
    files.write("H/license/license.dat", "the old one");
    const LogLines log;
    QStringList errors{"earlier line"};
    const QString source = files.path("mail/license.dat");
    bool copied = true;
    {
        const FullDisk disk(static_cast<rlim_t>(size));
        copied = copyLicenseFile(source, QString(100000, 'x'), files.path("H/license/license.dat"), &errors);
    }

    QVERIFY(!copied);
    QCOMPARE(log.lines().size(), 1);
    const QString temporary = log.lines()
                                  .constFirst()
                                  .section("creating temporary file ", 1)
                                  .section(" with the same contents", 0, 0);
    QCOMPARE(QFileInfo(temporary).path(), files.path("temporary"));
    QCOMPARE(errors,
             QStringList{"Dropped file " + source + " no longer exists and could not create temporary file " +
                         temporary + " with the same contents"});
    QCOMPARE(files.read("H/license/license.dat"), QByteArray("the old one"));
    QCOMPARE(files.temporaryFiles(), QStringList());
    QCOMPARE(ElevatedHelperFake::starts().size(), 0);
}

/// The user reads the errors, a developer the log: both are compared whole.
void LicenseCopyFallbackTest::translated()
{
    const MarkingTranslator translator;
    const LicenseFiles files;
    files.makeDirectory("H/license/license.dat");
    ElevatedHelperFake::setOutcome(3, true);
    const LogLines log;
    QStringList errors;

    QVERIFY(
        !copyLicenseFile(files.path("mail/license.dat"), "x", files.path("H/license/license.dat"), &errors));

    QCOMPARE(
        errors,
        QStringList{"[helper process returned with value 3. This indicates an error in its execution!]"});
    QStringList beginnings;
    for (const QString &line : log.lines()) {
        beginnings.append(line.section(' ', 0, 2));
    }
    QCOMPARE(beginnings,
             (QStringList{"dropped file " + files.path("mail/license.dat"), "removing existing file",
                          "warning: cannot remove", "warning: could not", "executing helper process"}));

    files.loseTemporaryDirectory();
    QVERIFY(
        !copyLicenseFile(files.path("mail/license.dat"), "x", files.path("H/license/license.dat"), &errors));
    QCOMPARE(errors,
             QStringList{"[Dropped file " + files.path("mail/license.dat") +
                         " no longer exists and could not create temporary file  with the same contents]"});
}

void LicenseCopyFallbackTest::errorsWithoutAList()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    ElevatedHelperFake::setOutcome(3, true);

    QVERIFY(
        !copyLicenseFile(files.path("license.dat"), QString(), files.path("missing/license.dat"), nullptr));

    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
}

QTEST_GUILESS_MAIN(LicenseCopyFallbackTest)

#include "LicenseCopyFallbackTest.moc"
