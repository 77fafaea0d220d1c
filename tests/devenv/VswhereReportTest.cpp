#include "devenv/Vswhere.h"

#include "tests/support/Rows.h"

#include <QtTest>

#include <algorithm>

namespace {

/// All values of a report, one line each, so that a comparison shows the one that differs.
QStringList description(const VswhereReport &report)
{
    QStringList lines;
    for (const VswhereInstallation &each : report.installations) {
        lines << "path: " + each.path << "displayName: " + each.displayName << "version: " + each.version;
        for (const QString &line : each.log) {
            lines << "its log: " + line;
        }
    }
    for (const QString &line : report.log) {
        lines << "log at the end: " + line;
    }
    return lines;
}

/// An installation whose values were reported once each, in the order of the fields.
VswhereInstallation installation(const QString &path, const QString &name, const QString &version)
{
    return {path,
            name,
            version,
            {"installationPath: " + path, "displayName: " + name, "installationVersion: " + version}};
}

} // namespace

class VswhereReportTest : public QObject {
    Q_OBJECT

private slots:
    void wholeReport();
    void anyOrderOfLines_data();
    void anyOrderOfLines();
    void blocks_data();
    void blocks();
    void keys_data();
    void keys();
    void values_data();
    void values();
    void versionNumbers_data();
    void versionNumbers();
};

/// A full report of vswhere.exe about two installations.
void VswhereReportTest::wholeReport()
{
    const QByteArray report = R"(Visual Studio Locator version 3.0.3+45247720e1 [query version 3.4.1106.11442]
Copyright (C) Microsoft Corporation. All rights reserved.

instanceId: 4a5b6c7d
installationPath: C:\Program Files\Microsoft Visual Studio\2022\Community
installationVersion: 17.4.33205.214
productPath: C:\Program Files\Microsoft Visual Studio\2022\Community\Common7\IDE\devenv.exe
isPrerelease: 0
displayName: Visual Studio Community 2022
catalog_productDisplayVersion: 17.4.3
properties_nickname: installationPath: none

instanceId: 8e9fa0b1
installationPath: D:\VS\Preview
installationVersion: 16.11.32929.386
isPrerelease: 1
displayName: Visual Studio Professional 2019 Preview
catalog_productSemanticVersion: 16.11.20+32929.386
)";
    const VswhereReport expected{
        {{"C:\\Program Files\\Microsoft Visual Studio\\2022\\Community",
          "Visual Studio Community 2022",
          "17.4",
          {"installationPath: C:\\Program Files\\Microsoft Visual Studio\\2022\\Community",
           "installationVersion: 17.4", "displayName: Visual Studio Community 2022"}},
         {"D:\\VS\\Preview",
          "Visual Studio Professional 2019 Preview",
          "16.11",
          {"installationPath: D:\\VS\\Preview", "installationVersion: 16.11",
           "displayName: Visual Studio Professional 2019 Preview"}}},
        {}};
    QCOMPARE(description(readVswhereReport(report)), description(expected));
}

void VswhereReportTest::anyOrderOfLines_data()
{
    columns<QStringList>("order");

    QStringList order{"displayName", "installationPath", "installationVersion"};
    do {
        row(qPrintable(order.join(", ")), order);
    } while (std::next_permutation(order.begin(), order.end()));
}

void VswhereReportTest::anyOrderOfLines()
{
    QFETCH(QStringList, order);

    // Two blocks: the second starts afresh, whichever line completed the first.
    const auto block = [&order](const QMap<QString, QString> &values) {
        QStringList lines;
        for (const QString &key : order) {
            lines << key + ": " + values.value(key);
        }
        return lines;
    };
    const QStringList first =
        block({{"installationPath", "C:\\A"}, {"displayName", "First"}, {"installationVersion", "17.4"}});
    const QStringList second =
        block({{"installationPath", "C:\\B"}, {"displayName", "Second"}, {"installationVersion", "16.9"}});

    const VswhereReport report = readVswhereReport((first + second).join('\n').toUtf8());

    QCOMPARE(description(report),
             description({{{"C:\\A", "First", "17.4", first}, {"C:\\B", "Second", "16.9", second}}, {}}));
}

void VswhereReportTest::blocks_data()
{
    columns<QByteArray, QStringList>("report", "expected");

    const auto row = [](const char *name, const QByteArray &report, const VswhereReport &expected) {
        ::row(name, report, description(expected));
    };
    row("empty report", "", {});
    row("none of the keys", "instanceId: 1\nisPrerelease: 1\nproductPath: C:\\VS\n", {});
    row("one installation", "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n",
        {{installation("C:\\A", "A", "17.4")}, {}});
    row("three installations, one of them twice",
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n\n"
        "installationPath: C:\\B\ndisplayName: B\ninstallationVersion: 16.9.1\n\n"
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n",
        {{installation("C:\\A", "A", "17.4"), installation("C:\\B", "B", "16.9"),
          installation("C:\\A", "A", "17.4")},
         {}});
    row("only a path", "installationPath: C:\\A\n", {{}, {"installationPath: C:\\A"}});
    row("last installation incomplete",
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n"
        "installationPath: C:\\B\ninstallationVersion: 16.9.1\n",
        {{installation("C:\\A", "A", "17.4")}, {"installationPath: C:\\B", "installationVersion: 16.9"}});
    row("installation without a name goes into the next",
        "installationPath: C:\\A\ninstallationVersion: 17.4.1\n"
        "installationPath: C:\\B\ninstallationVersion: 16.9.1\ndisplayName: B\n",
        {{{"C:\\B",
           "B",
           "16.9",
           {"installationPath: C:\\A", "installationVersion: 17.4", "installationPath: C:\\B",
            "installationVersion: 16.9", "displayName: B"}}},
         {}});
    row("installation without a version lends its name and leaves the other's",
        "installationPath: C:\\A\ndisplayName: A\n"
        "installationPath: C:\\B\ninstallationVersion: 16.9.1\ndisplayName: B\n",
        {{{"C:\\B",
           "A",
           "16.9",
           {"installationPath: C:\\A", "displayName: A", "installationPath: C:\\B",
            "installationVersion: 16.9"}}},
         {"displayName: B"}});
    row("value that comes twice: the later counts",
        "installationPath: C:\\A\ninstallationPath: C:\\B\ndisplayName: B\ninstallationVersion: 17.4\n",
        {{{"C:\\B",
           "B",
           "17.4",
           {"installationPath: C:\\A", "installationPath: C:\\B", "displayName: B",
            "installationVersion: 17.4"}}},
         {}});
    row("value that comes again after a complete installation is the next one's",
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\ndisplayName: Late\n"
        "installationPath: C:\\B\ninstallationVersion: 16.9\n",
        {{installation("C:\\A", "A", "17.4"),
          {"C:\\B",
           "Late",
           "16.9",
           {"displayName: Late", "installationPath: C:\\B", "installationVersion: 16.9"}}},
         {}});
    row("name without a value", "installationPath: C:\\A\ndisplayName:\ninstallationVersion: 17.4\n",
        {{}, {"installationPath: C:\\A", "displayName: ", "installationVersion: 17.4"}});
    row("version that is none leaves the earlier one",
        "installationVersion: 17.4\ninstallationVersion: unknown\ninstallationPath: C:\\A\ndisplayName: A\n",
        {{{"C:\\A", "A", "17.4", {"installationVersion: 17.4", "installationPath: C:\\A", "displayName: A"}}},
         {}});
    row("not ASCII",
        "installationPath: C:\\Pr\xc3\xbc"
        "fung\\\xe6\xa4\x9c\xe6\x9f\xbb\ndisplayName: \xf0\x9f\x94\xac Studio\ninstallationVersion: 17.4\n",
        {{installation("C:\\Pr\u00fcfung\\\u691c\u67fb", "\U0001f52c Studio", "17.4")}, {}});
    row("stray bytes",
        "installationPath: C:\\Pr\xfc"
        "fung\ndisplayName: A\x80\ninstallationVersion: 17.4\xff\n",
        {{installation("C:\\Pr\ufffd"
                       "fung",
                       "A\ufffd", "17.4")},
         {}});
    row("byte order mark at the start",
        "\xef\xbb\xbfinstallationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\n",
        {{installation("C:\\A", "A", "17.4")}, {}});
    row("carriage return and line feed",
        "installationPath: C:\\A\r\ndisplayName: A\r\ninstallationVersion: 17.4\r\n",
        {{installation("C:\\A", "A", "17.4")}, {}});
    row("name without a value before carriage return and line feed",
        "installationPath: C:\\A\r\ndisplayName:\r\ninstallationVersion: 17.4\r\n",
        {{}, {"installationPath: C:\\A", "displayName: ", "installationVersion: 17.4"}});
    row("lone carriage return ends no line",
        "installationPath: C:\\A\rdisplayName: A\rinstallationVersion: 17.4\r",
        {{}, {"installationPath: C:\\A\rdisplayName: A\rinstallationVersion: 17.4"}});
}

void VswhereReportTest::blocks()
{
    QFETCH(QByteArray, report);
    QFETCH(QStringList, expected);
    QCOMPARE(description(readVswhereReport(report)), expected);
}

void VswhereReportTest::keys_data()
{
    // line: must not be taken for the key's line
    columns<QString, QString>("key", "line");

    const QMap<QString, QString> values{
        {"installationPath", "C:\\A"}, {"displayName", "A"}, {"installationVersion", "17.4"}};
    for (auto each = values.begin(); each != values.end(); ++each) {
        const QString &key = each.key();
        for (const QString &other :
             {' ' + key + ':', '\t' + key + ':', key + " :", key, key + '=', key.toUpper() + ':',
              key + "s:", "properties_" + key + ':', "description: " + key + ':'}) {
            row(qPrintable(other), key, other + ' ' + each.value());
        }
    }
}

void VswhereReportTest::keys()
{
    QFETCH(QString, key);
    QFETCH(QString, line);
    QStringList lines{"installationPath: C:\\A", "displayName: A", "installationVersion: 17.4"};
    const auto ofKey = std::find_if(lines.begin(), lines.end(),
                                    [&key](const QString &each) { return each.startsWith(key + ':'); });
    QVERIFY(ofKey != lines.end());
    QCOMPARE(description(readVswhereReport(lines.join('\n').toUtf8())),
             description({{installation("C:\\A", "A", "17.4")}, {}}));

    *ofKey = line;
    const QByteArray report = lines.join('\n').toUtf8();
    lines.erase(ofKey);
    QCOMPARE(description(readVswhereReport(report)), description({{}, lines}));
}

void VswhereReportTest::values_data()
{
    // path: as after the colons
    const auto row =
        columns<QByteArray, QByteArray, QString, QString>("path", "name", "readPath", "readName");

    row("no space after the colon", "C:\\A", "A", "C:\\A", "A");
    row("white space around", " \t C:\\A \t ", "   A\v\f ", "C:\\A", "A");
    row("colons", " \\\\?\\C:\\A: B:", " : A: displayName: B:", "\\\\?\\C:\\A: B:", ": A: displayName: B:");
    row("percent signs are no placeholders", " C:\\%1 %PATH%", " 100%1 %2", "C:\\%1 %PATH%", "100%1 %2");
}

void VswhereReportTest::values()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, name);
    QFETCH(QString, readPath);
    QFETCH(QString, readName);
    const VswhereReport report = readVswhereReport("installationPath:" + path + "\ndisplayName:" + name +
                                                   "\ninstallationVersion: 17.4\n");
    QCOMPARE(description(report), description({{installation(readPath, readName, "17.4")}, {}}));
}

void VswhereReportTest::versionNumbers_data()
{
    // text: as after the colon
    // readVersion: empty when it is not a version
    const auto row = columns<QByteArray, QString>("text", "readVersion");

    row("four numbers", " 17.4.33205.214", "17.4");
    row("two digits after the point", " 16.11.32929.386", "16.11");
    row("zeros stay", " 017.040.1", "017.040");
    row("words after", " 17.4-preview 3", "17.4");
    row("one number", " 17", "");
    row("nothing after the point", " 17.", "");
    row("nothing before the point", " .4", "");
    row("letter before", " v17.4", "");
    row("minus sign", " -17.4", "");
}

void VswhereReportTest::versionNumbers()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, readVersion);
    const VswhereReport report =
        readVswhereReport("installationPath: C:\\A\ndisplayName: A\ninstallationVersion:" + text + '\n');
    const VswhereReport incomplete{{}, {"installationPath: C:\\A", "displayName: A"}};
    const VswhereReport complete{{installation("C:\\A", "A", readVersion)}, {}};
    QCOMPARE(description(report), description(readVersion.isEmpty() ? incomplete : complete));
}

QTEST_GUILESS_MAIN(VswhereReportTest)

#include "VswhereReportTest.moc"
