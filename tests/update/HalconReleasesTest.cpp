#include "update/HalconReleases.h"

#include "discovery/HalconInstallation.h"

#include "tests/support/Rows.h"

#include <QtTest>

namespace {

/// The numbers of @p record and all its other fields.
QString description(const HalconInstallation &record)
{
    const QStringList numbers{QString::number(record.major), QString::number(record.minor),
                              QString::number(record.revision), QString::number(record.build)};
    const QStringList texts{record.installDir, record.exampleRoot, record.components.join(','), record.arch,
                            record.suffix};
    return numbers.join('.') + texts.join(QString());
}

/// All records, one line for each, in the order of their keys: "progress \"20.11\": 20.11.2.0".
QStringList description(const HalconReleases &releases)
{
    QStringList lines;
    for (auto each = releases.progress.begin(); each != releases.progress.end(); ++each) {
        lines << QString("progress \"%1\": %2").arg(each.key(), description(*each));
    }
    for (auto each = releases.regular.begin(); each != releases.regular.end(); ++each) {
        lines << QString("regular \"%1\": %2").arg(each.key(), description(*each));
    }
    lines.sort();
    return lines;
}

/// What is logged for every element.
QStringList found(const QString &version, const QString &revision, const QString &build,
                  const QString &edition)
{
    return {"update check found remotely available HALCON version", "  version: " + version,
            "  revision: " + revision, "  buildStr: " + build, "  edition: " + edition};
}

/// The file with these elements of the array.
QByteArray file(const QList<QByteArray> &elements)
{
    return R"({"halcon": [)" + elements.join(", ") + "]}";
}

/// An element with these strings.
QByteArray element(const QByteArray &version, const QByteArray &revision, const QByteArray &build,
                   const QByteArray &edition)
{
    return R"({"version": ")" + version + R"(", "revision": ")" + revision + R"(", "build": ")" + build +
           R"(", "edition": ")" + edition + "\"}";
}

/// What is logged for an element with that version, and why it is ignored.
QStringList unmatched(const QString &version)
{
    return found(version, "2", "3", "steady") +
           QStringList("Could not parse major/minor version in string \"" + version +
                       "\". Ignored update information for version \"\".");
}

QString unread(const QString &what, const QString &text, const QString &version)
{
    return "Could not parse " + what + " version in string \"" + text +
           "\". Ignored update information for version \"" + version + "\".";
}

QString unreadBuild(const QString &text, const QString &version)
{
    return "Could not parse build version in string \"" + text + "\". Assume build = 0 for version \"" +
           version + "\".";
}

} // namespace

/// Reading the list of releases.
class HalconReleasesTest : public QObject {
    Q_OBJECT

private slots:
    void files_data()
    {
        const auto row = columns<QByteArray, QStringList, QStringList>("file", "releases", "log");

        const QByteArray entry = element("20.11", "2", "3", "steady");
        const QStringList entryRecord{"regular \"20.11\": 20.11.2.3"};
        const QStringList entryLog = found("20.11", "2", "3", "steady");
        row("nothing", {}, {}, {"Could not fetch HALCON versions update information file"});
        row("another key", R"({"Halcon": [)" + entry + "]}", {}, {});
        row("object instead of the array", R"({"halcon": )" + entry + "}", {}, {});
        row("array instead of the object", "[" + entry + "]", {}, {});
        row("other keys beside", R"({"about": [1, {}], "halcon": [)" + entry + R"(], "vulcan": []})",
            entryRecord, entryLog);
        row("byte order mark", "\xef\xbb\xbf" + file({entry}), entryRecord, entryLog);
        row("same version and edition twice: the second counts",
            file({element("20.11", "9", "9", "steady"), element("20.11", "1", "0", "steady")}),
            {"regular \"20.11\": 20.11.1.0"},
            found("20.11", "9", "9", "steady") + found("20.11", "1", "0", "steady"));
        row("same version twice, the second ignored: the first counts",
            file({element("20.11", "9", "9", "steady"), element("20.11", "x", "0", "steady")}),
            {"regular \"20.11\": 20.11.9.9"},
            found("20.11", "9", "9", "steady") + found("20.11", "x", "0", "steady") +
                QStringList(unread("revision", "x", "20.11")));
        row("same version in both editions",
            file({element("20.11", "1", "0", "progress"), element("20.11", "2", "0", "steady")}),
            {"progress \"20.11\": 20.11.1.0", "regular \"20.11\": 20.11.2.0"},
            found("20.11", "1", "0", "progress") + found("20.11", "2", "0", "steady"));
    }

    void files()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, log);
        QStringList logged{"a line that is there already"};

        const HalconReleases read = parseHalconReleases(file, &logged);

        QCOMPARE(logged, QStringList("a line that is there already") + log);
        QTEST(description(read), "releases");
    }

    void versions_data()
    {
        // numbers: empty when the version is ignored
        columns<QString, QString, QStringList>("version", "numbers", "log");

        const auto taken = [](const char *name, const QString &version, const QString &numbers) {
            row(name, version, numbers, found(version, "2", "3", "steady"));
        };
        taken("plain", "20.11", "20.11");
        taken("zeros", "0.0", "0.0");
        taken("spaces around", "   20.11  ", "20.11");
        taken("no-break space before", "\u00a020.11", "20.11");
        taken("leading zeros", "0020.0011", "20.11");
        taken("highest number", "2147483647.2147483647", "2147483647.2147483647");

        for (const char *version : {"", " ", "20", "20.11.2", ".11", "20.", "20,11", "20. 11", "-20.11",
                                    "20.-11", "+20.11", "v20.11", "20.11 Progress", "%1.%2"}) {
            QTest::addRow("\"%s\"", version) << version << "" << unmatched(version);
        }
        const auto ignored = [](const char *name, const QString &version, const QString &line) {
            row(name, version, "", found(version, "2", "3", "steady") + QStringList(line));
        };
        ignored("major version beyond 32 bits", "2147483648.11",
                unread("major", "2147483648", "2147483648.11"));
        ignored("minor version beyond 32 bits", " 20.2147483648 ",
                unread("minor", "2147483648", " 20.2147483648 "));
        ignored("both beyond 32 bits: the major version is named", "2147483648.2147483649",
                unread("major", "2147483648", "2147483648.2147483649"));
        ignored("digits of another script", "\u0662\u0660.\u0661\u0661",
                unread("major", "\u0662\u0660", "\u0662\u0660.\u0661\u0661"));
    }

    void versions()
    {
        QFETCH(QString, version);
        QFETCH(QString, numbers);
        QStringList logged;

        const HalconReleases read =
            parseHalconReleases(file({element(version.toUtf8(), "2", "3", "steady")}), &logged);

        QTEST(logged, "log");
        // An accepted version stands under its own string.
        const QString release = QString("regular \"%1\": %2.2.3").arg(version, numbers);
        QCOMPARE(description(read), numbers.isEmpty() ? QStringList() : QStringList(release));
    }

    /// Only the very word is that of the other edition.
    void editions()
    {
        for (const char *edition : {"Progress", "progress ", ""}) {
            QStringList log;
            QCOMPARE(description(parseHalconReleases(file({element("20.11", "2", "3", edition)}), &log)),
                     QStringList("regular \"20.11\": 20.11.2.3"));
            QCOMPARE(log, found("20.11", "2", "3", edition));
        }
    }

    void otherValues_data()
    {
        // release: empty when there is none
        const auto row = columns<QByteArray, QString, QStringList>("element", "release", "log");

        const QStringList ignored(unread("major/minor", "", ""));
        row("version", R"({"version": 20.11, "revision": "2", "build": "3"})", {},
            found("", "2", "3", "") + ignored);
        row("revision", R"({"version": "20.11", "revision": true, "build": "3"})", {},
            found("20.11", "", "3", "") + QStringList(unread("revision", "", "20.11")));
        row("build", R"({"version": "20.11", "revision": "2", "build": null})",
            "regular \"20.11\": 20.11.2.0",
            found("20.11", "2", "", "") + QStringList(unreadBuild("", "20.11")));
        row("edition", R"({"version": "20.11", "revision": "2", "build": "3", "edition": ["progress"]})",
            "regular \"20.11\": 20.11.2.3", found("20.11", "2", "3", ""));
        row("element", "\"20.11\"", {}, found("", "", "", "") + ignored);
        row("all missing", "{}", {}, found("", "", "", "") + ignored);
        row("other keys beside",
            R"({"major": 9, "version": "20.11", "revision": "2", "Build": "9", "build": "3", "arch": "x"})",
            "regular \"20.11\": 20.11.2.3", found("20.11", "2", "3", ""));
    }

    /// Values that are not strings, and missing keys, are read as empty strings.
    void otherValues()
    {
        QFETCH(QByteArray, element);
        QFETCH(QString, release);
        QStringList logged;

        const HalconReleases read = parseHalconReleases(file({element}), &logged);

        QTEST(logged, "log");
        QCOMPARE(description(read), release.isEmpty() ? QStringList() : QStringList(release));
    }

    void orderOfTheLog()
    {
        QStringList log;

        const HalconReleases releases = parseHalconReleases(
            file({element("18.11", "4", "0", "steady"), element("unknown", "2", "3", "steady"),
                  element("20.11", "2", "x", "progress"), element("13.0", "", "", "steady"),
                  element("19.05", "+1", "7", "progress")}),
            &log);

        QCOMPARE(log, found("18.11", "4", "0", "steady") + unmatched("unknown") +
                          found("20.11", "2", "x", "progress") + QStringList(unreadBuild("x", "20.11")) +
                          found("13.0", "", "", "steady") + QStringList(unread("revision", "", "13.0")) +
                          found("19.05", "+1", "7", "progress"));
        QCOMPARE(description(releases),
                 (QStringList{"progress \"19.05\": 19.5.1.7", "progress \"20.11\": 20.11.2.0",
                              "regular \"18.11\": 18.11.4.0"}));
    }

    /// Strings go into the log and the keys unchanged.
    void texts()
    {
        QStringList log;

        const HalconReleases releases = parseHalconReleases(
            file(
                {R"({"version": "20.11\n", "revision": "%2", "build": "<b>", "edition": "%1"})",
                 R"({"version": "\t20.11", "revision": "1", "build": "%1 %2", "edition": "Gr\u00f6\u00dfe"})"}),
            &log);

        QCOMPARE(log, found("20.11\n", "%2", "<b>", "%1") + QStringList(unread("revision", "%2", "20.11\n")) +
                          found("\t20.11", "1", "%1 %2", "Gr\u00f6\u00dfe") +
                          QStringList(unreadBuild("%1 %2", "\t20.11")));
        QCOMPARE(description(releases), QStringList("regular \"\t20.11\": 20.11.1.0"));
    }

    void brokenFiles_data()
    {
        const auto row = columns<QByteArray, QString>("file", "error");

        const QByteArray whole = file({element("20.11", "2", "3", "steady")});
        row("page of HTML", "<!DOCTYPE html>", "illegal value( offset: 1)");
        row("null", "null", "illegal value( offset: 1)");
        row("no colon", "{\"halcon\" []}", "missing name separator( offset: 11)");
        row("last byte missing", whole.left(whole.size() - 1), "unterminated object( offset: 85)");
        row("more after", "{}{}", "garbage at the end of the document( offset: 2)");
        row("bytes that are no UTF-8", "{\"halcon\": [{\"version\": \"20\xff.11\"}]}",
            "invalid UTF8 string( offset: 27)");
        row("nesting very deep and not closed", QByteArray(1000000, '['),
            "too deeply nested document( offset: 1025)");
    }

    void brokenFiles()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, error);
        QStringList log;

        const HalconReleases releases = parseHalconReleases(file, &log);

        QCOMPARE(log,
                 (QStringList{"Could not parse HALCON versions update information file:", "  " + error}));
        QCOMPARE(description(releases), QStringList());
    }
};

QTEST_GUILESS_MAIN(HalconReleasesTest)
#include "HalconReleasesTest.moc"
