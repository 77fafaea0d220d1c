#include "tests/support/Rows.h"
#include "update/HalconReleases.h"

#include <QtTest>

namespace {

/// An installation record with a default constructor, as rows of a test need.
struct Record : HalconInstallation {
    Record() : Record(-1, -1, -1, -1) {}
    Record(int major, int minor, int revision, int build, const QString &word = QString())
        : HalconInstallation(major, minor, revision, build)
    {
        setSuffix(word);
    }
};

} // namespace

Q_DECLARE_METATYPE(Record)

/// The releases that an installation is told about.
class HalconComparisonTest : public QObject {
    Q_OBJECT

private slots:
    void suffixes_data()
    {
        // revision: 1: in the table of the continuous releases, 2: in the other
        columns<QString, int>("suffix", "revision");

        row("Progress", "Progress", 1);
        row("progress", "progress", 2);
        row("empty", "", 2);
    }

    void suffixes()
    {
        QFETCH(QString, suffix);
        QFETCH(int, revision);
        HalconReleases releases;
        releases.progress.insert("20.11", Record(20, 11, 1, 0));
        releases.regular.insert("20.11", Record(20, 11, 2, 0));

        const auto found = publishedRelease(releases, Record(20, 11, 0, 0, suffix));

        QVERIFY(found.has_value());
        QCOMPARE(found->revision, revision);
    }

    void keys_data()
    {
        columns<QString, Record, bool>("key", "installed", "matches");

        row("revision and build do not count", "20.11", Record(20, 11, -1, -1), true);
        row("zero", "13.0", Record(13, 0, 0, 0), true);
        row("leading zero of the minor version", "20.05", Record(20, 5, 0, 0), false);
        row("space before", " 20.11", Record(20, 11, 0, 0), false);
        row("another minor version", "20.12", Record(20, 11, 0, 0), false);
        row("nothing known", "-1.-1", Record(-1, -1, -1, -1), true);
    }

    void keys()
    {
        QFETCH(QString, key);
        QFETCH(Record, installed);
        QFETCH(bool, matches);
        for (const QString &suffix : {QString(), QStringLiteral("Progress")}) {
            installed.setSuffix(suffix);
            HalconReleases releases;
            auto &table = suffix.isEmpty() ? releases.regular : releases.progress;
            table.insert("1.0", Record(1, 0, 9, 9));
            table.insert(key, Record(installed.major, installed.minor, 7, 8));

            const auto found = publishedRelease(releases, installed);

            QCOMPARE(found.has_value(), matches);
            QCOMPARE(found ? found->versionText() : QString(),
                     matches ? Record(installed.major, installed.minor, 7, 8).versionText() : QString());
        }
    }

    void newer_data()
    {
        columns<Record, Record, bool>("release", "installed", "isNewer");

        row("same", Record(20, 11, 2, 3), Record(20, 11, 2, 3), false);
        row("higher build", Record(20, 11, 2, 4), Record(20, 11, 2, 3), true);
        row("lower build", Record(20, 11, 2, 2), Record(20, 11, 2, 3), false);
        row("higher revision", Record(20, 11, 3, 0), Record(20, 11, 2, 9), true);
        row("lower revision", Record(20, 11, 1, 9), Record(20, 11, 2, 0), false);
        row("higher minor version", Record(20, 12, 0, 0), Record(20, 11, 9, 9), true);
        row("lower minor version", Record(20, 10, 9, 9), Record(20, 11, 0, 0), false);
        row("higher major version", Record(21, 0, 0, 0), Record(20, 99, 9, 9), true);
        row("revision not known", Record(20, 11, 0, 0), Record(20, 11, -1, -1), true);
        row("build not known", Record(20, 11, 2, 0), Record(20, 11, 2, -1), true);
        row("published as -1, installed not known", Record(20, 11, -1, -1), Record(20, 11, -1, -1), false);
        row("far apart", Record(20, 11, 2147483647, 0), Record(20, 11, -2147483647 - 1, 0), true);
        row("suffix does not count", Record(20, 11, 2, 3), Record(20, 11, 2, 3, "Progress"), false);
    }

    void newer()
    {
        QFETCH(Record, release);
        QFETCH(Record, installed);
        QFETCH(bool, isNewer);
        QCOMPARE(::isNewer(release, installed), isNewer);
    }

    void lines()
    {
        const QString page = "http://vendor.example/%1/%2/%3?a=%20";
        QCOMPARE(updateLine(Record(20, 11, 2, 3), page),
                 "Latest version: 20.11.2.3 <a href=\"" + page +
                     "\"><span style=\"text-decoration: underline; color:#ff0000; "
                     "font-size:12pt;\"><b>Update available!</b></span></a><br>");
        QCOMPARE(updateLine(Record(20, 11, 2, 0), ""), QString("Latest version: 20.11.2<br>"));
    }

    void lastLine_data()
    {
        columns<QString, QString, QString>("html", "line", "result");

        row("document", "<html><body><p>a</p></body></html>", "b<br>",
            "<html><body><p>a</p>b<br></body></html>");
        row("no body", "<p>a</p>", "b", "<p>a</p>");
        row("upper case", "<BODY>a</BODY>", "b", "<BODY>a</BODY>");
        row("space in the tag", "<body>a</body >", "b", "<body>a</body >");
        row("placeholders", "<body>%1 %2</body>", "100% %1 %2<br>", "<body>%1 %2100% %1 %2<br></body>");
        row("signs of regular expressions", "<body>a</body>", "\\0 \\1 $& $1", "<body>a\\0 \\1 $& $1</body>");
    }

    void lastLine()
    {
        QFETCH(QString, html);
        QFETCH(QString, line);
        QFETCH(QString, result);
        QCOMPARE(withLastLine(html, line), result);
    }
};

QTEST_GUILESS_MAIN(HalconComparisonTest)
#include "HalconComparisonTest.moc"
