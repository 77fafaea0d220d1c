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
    void suffixes_data();
    void suffixes();
    void keys_data();
    void keys();
    void newer_data();
    void newer();
    void fromFileToInstallation_data();
    void fromFileToInstallation();
    void lines_data();
    void lines();
    void lastLine_data();
    void lastLine();
};

void HalconComparisonTest::suffixes_data()
{
    // revision: 1: in the table of the continuous releases, 2: in the other
    columns<QString, int>("suffix", "revision");

    row("Progress", "Progress", 1);
    row("progress", "progress", 2);
    row("empty", "", 2);
}

void HalconComparisonTest::suffixes()
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

void HalconComparisonTest::keys_data()
{
    columns<QString, Record, bool>("key", "installed", "matches");

    row("same", "20.11", Record(20, 11, 2, 0), true);
    row("revision and build do not count", "20.11", Record(20, 11, -1, -1), true);
    row("one digit", "20.5", Record(20, 5, 0, 0), true);
    row("zero", "13.0", Record(13, 0, 0, 0), true);
    row("leading zero of the minor version", "20.05", Record(20, 5, 0, 0), false);
    row("space before", " 20.11", Record(20, 11, 0, 0), false);
    row("another minor version", "20.12", Record(20, 11, 0, 0), false);
    row("nothing known", "-1.-1", Record(-1, -1, -1, -1), true);
}

void HalconComparisonTest::keys()
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

void HalconComparisonTest::newer_data()
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

void HalconComparisonTest::newer()
{
    QFETCH(Record, release);
    QFETCH(Record, installed);
    QFETCH(bool, isNewer);
    QCOMPARE(::isNewer(release, installed), isNewer);
}

void HalconComparisonTest::fromFileToInstallation_data()
{
    // latest: empty when none is newer
    const auto row = columns<QByteArray, Record, QString>("elements", "installed", "latest");

    row("newer", R"({"version": "20.11", "revision": "2", "build": "3"})", {20, 11, 1, 0}, "20.11.2.3");
    row("revision not known", R"({"version": "20.11", "revision": "0", "build": "0"})", {20, 11, -1, -1},
        "20.11.0");
    row("build that is no number is not newer", R"({"version": "20.11", "revision": "2", "build": "?"})",
        {20, 11, 2, 0}, "");
    row("space before the version", R"({"version": " 20.11", "revision": "9", "build": "0"})", {20, 11, 1, 0},
        "");
    row("leading zero", R"({"version": "20.05", "revision": "9", "build": "0"})", {20, 5, 1, 0}, "");
    const QByteArray bothEditions =
        R"({"version": "20.11", "revision": "2", "build": "0", "edition": "progress"},
           {"version": "20.11", "revision": "3", "build": "0", "edition": "steady"})";
    row("edition with continuous releases", bothEditions, {20, 11, 1, 0, "Progress"}, "20.11.2");
    row("no edition", bothEditions, {20, 11, 1, 0}, "20.11.3");
    row("edition up to date, other not", bothEditions, {20, 11, 2, 0, "Progress"}, "");
}

void HalconComparisonTest::fromFileToInstallation()
{
    QFETCH(QByteArray, elements);
    QFETCH(Record, installed);
    QFETCH(QString, latest);
    QStringList log;

    const HalconReleases releases = parseHalconReleases(R"({"halcon": [)" + elements + "]}", &log);
    const auto found = publishedRelease(releases, installed);

    QCOMPARE(found && isNewer(*found, installed) ? found->versionText() : QString(), latest);
}

void HalconComparisonTest::lines_data()
{
    columns<Record, QString, QString>("latest", "page", "line");

    const QString link = "<a href=\"%1\"><span style=\"text-decoration: underline; color:#ff0000; "
                         "font-size:12pt;\"><b>Update available!</b></span></a><br>";
    const auto linkTo = [&link](const QString &page) { return QString(link).replace("%1", page); };
    const QString page = "http://vendor.example/download/halcon/";
    row("no build", Record(20, 11, 2, 0), page,
        "Latest version: 20.11.2 " + linkTo("http://vendor.example/download/halcon/"));
    row("build", Record(20, 11, 2, 3), page, "Latest version: 20.11.2.3 " + linkTo(page));
    row("placeholders in the address", Record(20, 11, 2, 0), "http://vendor.example/%1/%2/%3?a=%20",
        "Latest version: 20.11.2 " + linkTo("http://vendor.example/%1/%2/%3?a=%20"));
    row("no page", Record(20, 11, 2, 0), "", "Latest version: 20.11.2<br>");
}

void HalconComparisonTest::lines()
{
    QFETCH(Record, latest);
    QFETCH(QString, page);
    QFETCH(QString, line);
    QCOMPARE(updateLine(latest, page), line);
}

void HalconComparisonTest::lastLine_data()
{
    columns<QString, QString, QString>("html", "line", "result");

    row("document", "<html><body><p>a</p></body></html>", "b<br>", "<html><body><p>a</p>b<br></body></html>");
    row("empty body", "<body></body>", "b", "<body>b</body>");
    row("no body", "<p>a</p>", "b", "<p>a</p>");
    row("upper case", "<BODY>a</BODY>", "b", "<BODY>a</BODY>");
    row("space in the tag", "<body>a</body >", "b", "<body>a</body >");
    row("placeholders", "<body>%1 %2</body>", "100% %1 %2<br>", "<body>%1 %2100% %1 %2<br></body>");
    row("signs of regular expressions", "<body>a</body>", "\\0 \\1 $& $1", "<body>a\\0 \\1 $& $1</body>");
}

void HalconComparisonTest::lastLine()
{
    QFETCH(QString, html);
    QFETCH(QString, line);
    QFETCH(QString, result);
    QCOMPARE(withLastLine(html, line), result);
}

QTEST_GUILESS_MAIN(HalconComparisonTest)
#include "HalconComparisonTest.moc"
