#include "update/HalconReleases.h"

#include "discovery/HalconInstallation.h"

#include <QJsonDocument>
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

/// Arrays within each other.
QByteArray nested(int depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}

void addFileColumns()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("releases");
    QTest::addColumn<QStringList>("log");
}

void compareFile()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, releases);
    QFETCH(QStringList, log);
    QStringList logged{"a line that is there already"};

    const HalconReleases read = parseHalconReleases(file, &logged);

    QCOMPARE(logged, QStringList("a line that is there already") + log);
    QCOMPARE(description(read), releases);
}

} // namespace

/// Reading the list of releases.
class HalconReleasesTest : public QObject {
    Q_OBJECT

private slots:
    void files_data();
    void files() { compareFile(); }
    void versions_data();
    void versions() { compareFile(); }
    void numbers_data();
    void numbers();
    void editions_data();
    void editions() { compareFile(); }
    void otherValues_data();
    void otherValues() { compareFile(); }
    void orderOfTheLog();
    void texts();
    void manyElements();
    void brokenFiles_data();
    void brokenFiles();
    void literalParserError();
};

void HalconReleasesTest::files_data()
{
    addFileColumns();

    const QByteArray entry = element("20.11", "2", "3", "steady");
    const QStringList entryRecord{"regular \"20.11\": 20.11.2.3"};
    const QStringList entryLog = found("20.11", "2", "3", "steady");
    const auto row = [](const char *name, const QByteArray &bytes, const QStringList &releases,
                        const QStringList &log) { QTest::newRow(name) << bytes << releases << log; };

    row("nothing", {}, {}, {"Could not fetch HALCON versions update information file"});
    row("one release", file({entry}), entryRecord, entryLog);
    row("no key", "{}", {}, {});
    row("another key", R"({"Halcon": [)" + entry + "]}", {}, {});
    row("no releases", file({}), {}, {});
    row("object instead of the array", R"({"halcon": )" + entry + "}", {}, {});
    row("string instead of the array", R"({"halcon": "20.11"})", {}, {});
    row("number instead of the array", R"({"halcon": 20.11})", {}, {});
    row("null instead of the array", R"({"halcon": null})", {}, {});
    row("array instead of the object", "[" + entry + "]", {}, {});
    row("other keys beside", R"({"about": [1, {}], "halcon": [)" + entry + R"(], "vulcan": []})", entryRecord,
        entryLog);
    row("byte order mark", "\xef\xbb\xbf" + file({entry}), entryRecord, entryLog);
    row("white space around", " \r\n\t" + file({entry}) + "\r\n", entryRecord, entryLog);
    row("deep nesting beside", R"({"about": )" + nested(1000) + R"(, "halcon": [)" + entry + "]}",
        entryRecord, entryLog);
    row("deep nesting as an element", file({nested(1000), entry}), entryRecord,
        found({}, {}, {}, {}) +
            QStringList("Could not parse major/minor version in string \"\". "
                        "Ignored update information for version \"\".") +
            entryLog);
    row("same version and edition twice: the second counts",
        file({element("20.11", "9", "9", "steady"), element("20.11", "1", "0", "steady")}),
        {"regular \"20.11\": 20.11.1.0"},
        found("20.11", "9", "9", "steady") + found("20.11", "1", "0", "steady"));
    row("same version twice, the second ignored: the first counts",
        file({element("20.11", "9", "9", "steady"), element("20.11", "x", "0", "steady")}),
        {"regular \"20.11\": 20.11.9.9"},
        found("20.11", "9", "9", "steady") + found("20.11", "x", "0", "steady") +
            QStringList("Could not parse revision version in string \"x\". "
                        "Ignored update information for version \"20.11\"."));
    row("same version in both editions",
        file({element("20.11", "1", "0", "progress"), element("20.11", "2", "0", "steady")}),
        {"progress \"20.11\": 20.11.1.0", "regular \"20.11\": 20.11.2.0"},
        found("20.11", "1", "0", "progress") + found("20.11", "2", "0", "steady"));
}

void HalconReleasesTest::versions_data()
{
    addFileColumns();

    // An accepted version, under its own string.
    const auto taken = [](const char *name, const QString &version, const QString &numbers) {
        QTest::newRow(name) << file({element(version.toUtf8(), "2", "3", "steady")})
                            << QStringList(QString("regular \"%1\": %2.2.3").arg(version, numbers))
                            << found(version, "2", "3", "steady");
    };
    taken("plain", "20.11", "20.11");
    taken("zeros", "0.0", "0.0");
    taken("space before", " 20.11", "20.11");
    taken("spaces around", "   20.11  ", "20.11");
    taken("no-break space before", "\u00a020.11", "20.11");
    taken("leading zero of the minor version", "20.05", "20.5");
    taken("leading zeros", "0020.0011", "20.11");
    taken("highest number", "2147483647.2147483647", "2147483647.2147483647");

    const auto ignored = [](const char *name, const QString &version, const QString &line) {
        QTest::newRow(name) << file({element(version.toUtf8(), "2", "3", "steady")}) << QStringList()
                            << found(version, "2", "3", "steady") + QStringList(line);
    };
    const auto unmatched = [&ignored](const char *name, const QString &version) {
        ignored(name, version,
                "Could not parse major/minor version in string \"" + version +
                    "\". Ignored update information for version \"\".");
    };
    unmatched("empty", "");
    unmatched("space", " ");
    unmatched("one number", "20");
    unmatched("three numbers", "20.11.2");
    unmatched("no major version", ".11");
    unmatched("no minor version", "20.");
    unmatched("comma", "20,11");
    unmatched("space inside", "20. 11");
    unmatched("minus sign", "-20.11");
    unmatched("minus sign of the minor version", "20.-11");
    unmatched("plus sign", "+20.11");
    unmatched("letter before", "v20.11");
    unmatched("word after", "20.11 Progress");
    unmatched("what looks like a placeholder", "%1.%2");
    ignored("major version beyond 32 bits", "2147483648.11",
            "Could not parse major version in string \"2147483648\". "
            "Ignored update information for version \"2147483648.11\".");
    ignored("major version beyond 64 bits", "20000000000000000000.11",
            "Could not parse major version in string \"20000000000000000000\". Ignored update information "
            "for version \"20000000000000000000.11\".");
    ignored("minor version beyond 32 bits", " 20.2147483648 ",
            "Could not parse minor version in string \"2147483648\". "
            "Ignored update information for version \" 20.2147483648 \".");
    ignored("both beyond 32 bits: the major version is named", "2147483648.2147483649",
            "Could not parse major version in string \"2147483648\". Ignored update information for version "
            "\"2147483648.2147483649\".");
    ignored("digits of another script", "\u0662\u0660.\u0661\u0661",
            "Could not parse major version in string \"\u0662\u0660\". Ignored update information for "
            "version \"\u0662\u0660.\u0661\u0661\".");
    ignored("minor version in digits of another script", "20.\u0661\u0661",
            "Could not parse minor version in string \"\u0661\u0661\". Ignored update information for "
            "version \"20.\u0661\u0661\".");
}

void HalconReleasesTest::numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<int>("number");

    const auto number = [](const char *name, const QString &text, int value) {
        QTest::newRow(name) << text << true << value;
    };
    const auto none = [](const char *name, const QString &text) {
        QTest::newRow(name) << text << false << 0;
    };
    number("one digit", "2", 2);
    number("zero", "0", 0);
    number("minus", "-1", -1);
    number("plus", "+2", 2);
    number("leading zeros", "0010", 10);
    number("highest", "2147483647", 2147483647);
    number("lowest", "-2147483648", -2147483647 - 1);
    number("spaces around", " 2 ", 2);
    none("empty", "");
    none("space", " ");
    none("beyond 32 bits", "2147483648");
    none("below 32 bits", "-2147483649");
    none("beyond 64 bits", "20000000000000000000");
    none("letter after", "2a");
    none("word", "unknown");
    none("point", "2.0");
    none("exponent", "1e3");
    none("hexadecimal", "0x10");
    none("thousands", "1,000");
    none("two numbers", "1 2");
    none("two signs", "--1");
    none("sign only", "-");
    none("digit of another script", "\u0662");
    none("what looks like a placeholder", "%1%2%3");
}

void HalconReleasesTest::numbers()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(int, number);
    const QByteArray bytes = text.toUtf8();

    QStringList log;
    const HalconReleases byRevision = parseHalconReleases(file({element("20.11", bytes, "3", "x")}), &log);
    QStringList expectedLog = found("20.11", text, "3", "x");
    if (!isNumber) {
        expectedLog << "Could not parse revision version in string \"" + text +
                           "\". Ignored update information for version \"20.11\".";
    }
    QCOMPARE(log, expectedLog);
    QCOMPARE(description(byRevision),
             isNumber ? QStringList(QString("regular \"20.11\": 20.11.%1.3").arg(number)) : QStringList());

    log.clear();
    const HalconReleases byBuild = parseHalconReleases(file({element("20.11", "2", bytes, "x")}), &log);
    expectedLog = found("20.11", "2", text, "x");
    if (!isNumber) {
        expectedLog << "Could not parse build version in string \"" + text +
                           "\". Assume build = 0 for version \"20.11\".";
    }
    QCOMPARE(log, expectedLog);
    QCOMPARE(description(byBuild), QStringList(QString("regular \"20.11\": 20.11.2.%1").arg(number)));
}

void HalconReleasesTest::editions_data()
{
    addFileColumns();

    const auto row = [](const QByteArray &edition, const char *table) {
        QTest::addRow("\"%s\"", edition.constData())
            << file({element("20.11", "2", "3", edition)})
            << QStringList(QString("%1 \"20.11\": 20.11.2.3").arg(table))
            << found("20.11", "2", "3", QString::fromUtf8(edition));
    };
    row("progress", "progress");
    row("Progress", "regular");
    row("PROGRESS", "regular");
    row("progress ", "regular");
    row(" progress", "regular");
    row("progress 2", "regular");
    row("steady", "regular");
    row("", "regular");
}

/// Values that are not strings, and missing keys, are read as empty strings.
void HalconReleasesTest::otherValues_data()
{
    addFileColumns();

    const QString unmatched =
        "Could not parse major/minor version in string \"\". Ignored update information for version \"\".";
    const QString noRevision =
        "Could not parse revision version in string \"\". Ignored update information for version \"20.11\".";
    const QString noBuild =
        "Could not parse build version in string \"\". Assume build = 0 for version \"20.11\".";
    const auto row = [](const char *name, const QByteArray &each, const QStringList &releases,
                        const QStringList &log) { QTest::newRow(name) << file({each}) << releases << log; };
    for (const char *value : {"20.11", "true", "null", "[\"20.11\"]", "{\"x\": \"20.11\"}"}) {
        row(qPrintable(QString("version is %1").arg(value)),
            QByteArray(R"({"version": )") + value + R"(, "revision": "2", "build": "3"})", {},
            found("", "2", "3", "") + QStringList(unmatched));
        row(qPrintable(QString("revision is %1").arg(value)),
            QByteArray(R"({"version": "20.11", "revision": )") + value + R"(, "build": "3"})", {},
            found("20.11", "", "3", "") + QStringList(noRevision));
        row(qPrintable(QString("build is %1").arg(value)),
            QByteArray(R"({"version": "20.11", "revision": "2", "build": )") + value + "}",
            {"regular \"20.11\": 20.11.2.0"}, found("20.11", "2", "", "") + QStringList(noBuild));
        row(qPrintable(QString("edition is %1").arg(value)),
            QByteArray(R"({"version": "20.11", "revision": "2", "build": "3", "edition": )") + value + "}",
            {"regular \"20.11\": 20.11.2.3"}, found("20.11", "2", "3", ""));
        row(qPrintable(QString("element is %1").arg(value)), value, {},
            found("", "", "", "") + QStringList(unmatched));
    }
    row("element is a string", "\"20.11\"", {}, found("", "", "", "") + QStringList(unmatched));
    row("empty element", "{}", {}, found("", "", "", "") + QStringList(unmatched));
    row("only a version", R"({"version": "20.11"})", {},
        found("20.11", "", "", "") + QStringList(noRevision));
    row("no version", R"({"revision": "2", "build": "3", "edition": "progress"})", {},
        found("", "2", "3", "progress") + QStringList(unmatched));
    row("other keys beside",
        R"({"major": 9, "version": "20.11", "revision": "2", "Build": "9", "build": "3", "arch": "x"})",
        {"regular \"20.11\": 20.11.2.3"}, found("20.11", "2", "3", ""));
}

void HalconReleasesTest::orderOfTheLog()
{
    QStringList log;

    const HalconReleases releases = parseHalconReleases(
        file({element("18.11", "4", "0", "steady"), element("unknown", "1", "0", "steady"),
              element("20.11", "2", "x", "progress"), "7", element("13.0", "", "", "steady"),
              element("19.05", "+1", "7", "progress")}),
        &log);

    QCOMPARE(log, found("18.11", "4", "0", "steady") + found("unknown", "1", "0", "steady") +
                      QStringList("Could not parse major/minor version in string \"unknown\". Ignored update "
                                  "information for version \"\".") +
                      found("20.11", "2", "x", "progress") +
                      QStringList("Could not parse build version in string \"x\". "
                                  "Assume build = 0 for version \"20.11\".") +
                      found("", "", "", "") +
                      QStringList("Could not parse major/minor version in string \"\". "
                                  "Ignored update information for version \"\".") +
                      found("13.0", "", "", "steady") +
                      QStringList("Could not parse revision version in string \"\". "
                                  "Ignored update information for version \"13.0\".") +
                      found("19.05", "+1", "7", "progress"));
    QCOMPARE(description(releases),
             (QStringList{"progress \"19.05\": 19.5.1.7", "progress \"20.11\": 20.11.2.0",
                          "regular \"18.11\": 18.11.4.0"}));
}

/// Strings go into the log and the keys unchanged.
void HalconReleasesTest::texts()
{
    QStringList log;

    const HalconReleases releases = parseHalconReleases(
        R"({"halcon": [{"version": "20.11\n", "revision": "%2", "build": "<b>", "edition": "%1"},
                       {"version": "\t20.11", "revision": "1", "build": "%1 %2", "edition": "Gr\u00f6\u00dfe"}]})",
        &log);

    QCOMPARE(log, found("20.11\n", "%2", "<b>", "%1") +
                      QStringList("Could not parse revision version in string \"%2\". "
                                  "Ignored update information for version \"20.11\n\".") +
                      found("\t20.11", "1", "%1 %2", "Gr\u00f6\u00dfe") +
                      QStringList("Could not parse build version in string \"%1 %2\". "
                                  "Assume build = 0 for version \"\t20.11\"."));
    QCOMPARE(description(releases), QStringList("regular \"\t20.11\": 20.11.1.0"));
}

void HalconReleasesTest::manyElements()
{
    const int count = 20000;
    QList<QByteArray> elements;
    QStringList expectedLog;
    QStringList expected;
    for (int each = 0; each < count; ++each) {
        // Every version twice.
        const QByteArray version = QByteArray::number(each % (count / 2)) + ".11";
        const QByteArray number = QByteArray::number(each);
        elements << element(version, number, "0", "steady");
        expectedLog << found(version, number, "0", "steady");
        if (each >= count / 2) {
            expected << "regular \"" + version + "\": " + version + '.' + number + ".0";
        }
    }
    expected.sort();
    QStringList log;

    const HalconReleases releases = parseHalconReleases(file(elements), &log);

    QCOMPARE(log, expectedLog);
    QCOMPARE(description(releases), expected);
}

void HalconReleasesTest::brokenFiles_data()
{
    QTest::addColumn<QByteArray>("file");

    const QByteArray whole = file({element("20.11", "2", "3", "steady")});
    QTest::newRow("space") << QByteArray(" ");
    QTest::newRow("byte order mark only") << QByteArray("\xef\xbb\xbf");
    QTest::newRow("page of HTML") << QByteArray("<!DOCTYPE html>\n<html><body>Not Found</body></html>\n");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("number") << QByteArray("20.11");
    QTest::newRow("string") << QByteArray("\"halcon\"");
    QTest::newRow("cut off") << whole.left(whole.size() / 2);
    QTest::newRow("last byte missing") << whole.left(whole.size() - 1);
    QTest::newRow("more after") << whole + whole;
    QTest::newRow("comma after the last element") << QByteArray(R"({"halcon": [{"version": "20.11"},]})");
    QTest::newRow("comment") << "// releases\n" + whole;
    QTest::newRow("single quotes") << QByteArray("{'halcon': []}");
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe{\0}\0", 6);
    QTest::newRow("bytes that are no UTF-8") << QByteArray("{\"halcon\": [{\"version\": \"20\xff.11\"}]}");
    QTest::newRow("NUL") << QByteArray("\0", 1);
    QTest::newRow("nesting too deep") << R"({"halcon": )" + nested(2000) + '}';
    QTest::newRow("nesting very deep and not closed") << QByteArray(1000000, '[');
}

void HalconReleasesTest::brokenFiles()
{
    QFETCH(QByteArray, file);
    QJsonParseError error{};
    QJsonDocument::fromJson(file, &error);
    QVERIFY(error.error != QJsonParseError::NoError);
    QStringList log{"a line that is there already"};

    const HalconReleases releases = parseHalconReleases(file, &log);

    QCOMPARE(log, (QStringList{
                      "a line that is there already",
                      "Could not parse HALCON versions update information file:",
                      "  " + error.errorString() + "( offset: " + QString::number(error.offset) + ")",
                  }));
    QCOMPARE(description(releases), QStringList());
}

void HalconReleasesTest::literalParserError()
{
    QStringList log;
    parseHalconReleases("{\"halcon\" []}", &log);
    QCOMPARE(log, (QStringList{"Could not parse HALCON versions update information file:",
                               "  missing name separator( offset: 11)"}));
}

QTEST_GUILESS_MAIN(HalconReleasesTest)
#include "HalconReleasesTest.moc"
