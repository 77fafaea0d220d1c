#include "license/SameFile.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Rows.h"
#include "tests/support/WideText.h"
#include "tests/support/WineFiles.h"

#include <QtTest>

#include <windows.h>

using WineFiles::makeSymbolicLink;
using WineFiles::Mapping;
using WineFiles::onAnotherDrive;
using WineFiles::removeSymbolicLink;

namespace {

const QString share = "\\\\server\\share";

/// The path with short (8.3) names.
QString withShortNames(const QString &path)
{
    wchar_t buffer[MAX_PATH] = {};
    const DWORD length = GetShortPathNameW(wide(path), buffer, MAX_PATH);
    return QString::fromWCharArray(buffer, int(length));
}

/// An installation with one licence, and all the paths that lead to it.
struct OnlyLicense {
    OnlyLicense()
    {
        files.write("H/license/the only license.dat", "the only one");
        drive = std::make_unique<Mapping>("W:", files.path("H"));
        network = std::make_unique<Mapping>(share, files.path("H"));
        makeSymbolicLink("H", files.path("link"));
    }
    OnlyLicense(const OnlyLicense &) = delete;
    OnlyLicense &operator=(const OnlyLicense &) = delete;
    ~OnlyLicense() { removeSymbolicLink(files.path("link")); }

    QString path() const { return files.native("H/license/the only license.dat"); }

    /// The licence's path by this @p way.
    QString path(const QString &way) const
    {
        const QMap<QString, QString> ways{
            {"capitals", path().toUpper()},
            {"drive letter", "W:\\license\\the only license.dat"},
            {"drive of the whole file system", onAnotherDrive(path())},
            {"share", share + "\\license\\the only license.dat"},
            {"linked directory", files.native("link/license/the only license.dat")},
            {"short names", withShortNames(path())},
        };
        return ways[way];
    }

    LicenseFiles files;
    std::unique_ptr<Mapping> drive;
    std::unique_ptr<Mapping> network;
};

} // namespace

/// The chosen licence is the installed one, reached by another path. Removing the target first would delete
/// it.
class LicenseOwnPlaceTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { license = std::make_unique<OnlyLicense>(); }
    void cleanupTestCase() { license.reset(); }

    void stays_data()
    {
        columns<QString, bool>("way", "toTheTarget");

        for (const char *way : {"capitals", "drive letter", "drive of the whole file system", "share",
                                "linked directory", "short names"}) {
            row(way, way, false);
        }
        row("share of the target", "share", true);
    }

    void stays()
    {
        QFETCH(QString, way);
        QFETCH(bool, toTheTarget);
        const QString other = license->path(way);
        QVERIFY(other != license->path());
        QFile reached(other);
        QVERIFY2(reached.open(QFile::ReadOnly), qPrintable(other));
        QCOMPARE(reached.readAll(), QByteArray("the only one"));
        reached.close();
        const LogLines log;
        QStringList errors;

        QVERIFY(copyLicenseFile(toTheTarget ? license->path() : other, "dropped",
                                toTheTarget ? other : license->path(), &errors));

        QCOMPARE(license->files.read("H/license/the only license.dat"), QByteArray("the only one"));
        QCOMPARE(QDir(license->files.path("H/license")).entryList(QDir::Files).size(), 1);
        QCOMPARE(errors, QStringList());
        QCOMPARE(log.lines(), QStringList());
    }

    /// The control: otherwise nothing would ever be copied.
    void otherFilesAreNotTheSame()
    {
        license->files.write("H/license/copy.dat", "the only one");

        QVERIFY(!isSameFile(license->path(), license->files.path("H/license/copy.dat")));
        QVERIFY(!isSameFile("W:\\license\\copy.dat", "W:\\license\\the only license.dat"));
        QVERIFY(!isSameFile(license->path(), license->files.path("missing.dat")));
        QVERIFY(!isSameFile(license->files.path("missing.dat"), license->path()));
        QVERIFY(!isSameFile(license->files.path("missing.dat"), license->files.path("missing.dat")));
        QVERIFY(isSameFile(license->path("share"), license->path("drive letter")));
    }

private:
    std::unique_ptr<OnlyLicense> license;
};

QTEST_GUILESS_MAIN(LicenseOwnPlaceTest)
#include "LicenseOwnPlaceTest_win.moc"
