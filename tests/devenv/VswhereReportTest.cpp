#include "devenv/Vswhere.h"

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
    void encoding_data();
    void encoding();
    void lineEnds_data();
    void lineEnds();
};

/// A full report of vswhere.exe about two installations.
void VswhereReportTest::wholeReport()
{
    const QByteArray report = R"(Visual Studio Locator version 3.0.3+45247720e1 [query version 3.4.1106.11442]
Copyright (C) Microsoft Corporation. All rights reserved.

instanceId: 4a5b6c7d
installDate: 12.01.2023 09:30:00
installationName: VisualStudio/17.4.3+33205.214
installationPath: C:\Program Files\Microsoft Visual Studio\2022\Community
installationVersion: 17.4.33205.214
productId: Microsoft.VisualStudio.Product.Community
productPath: C:\Program Files\Microsoft Visual Studio\2022\Community\Common7\IDE\devenv.exe
state: 4294967295
isComplete: 1
isLaunchable: 1
isPrerelease: 0
isRebootRequired: 0
displayName: Visual Studio Community 2022
description: Powerful IDE, free for students, open-source contributors, and individuals
channelId: VisualStudio.17.Release
enginePath: C:\Program Files (x86)\Microsoft Visual Studio\Installer\resources\app\ServiceHub
releaseNotes: https://notes.example/17#17.4.3
catalog_buildVersion: 17.4.33205.214
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
    QTest::addColumn<QStringList>("order");

    QStringList order{"displayName", "installationPath", "installationVersion"};
    do {
        QTest::newRow(qPrintable(order.join(", "))) << order;
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
    QTest::addColumn<QByteArray>("report");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const QByteArray &report, const VswhereReport &expected) {
        QTest::newRow(name) << report << description(expected);
    };
    row("empty report", "", {});
    row("line feeds only", "\n\n\n", {});
    row("none of the keys", "instanceId: 1\nisPrerelease: 1\nproductPath: C:\\VS\n", {});
    row("one installation", "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n",
        {{installation("C:\\A", "A", "17.4")}, {}});
    row("no line feed at the end", "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1",
        {{installation("C:\\A", "A", "17.4")}, {}});
    row("three installations, one of them twice",
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n\n"
        "installationPath: C:\\B\ndisplayName: B\ninstallationVersion: 16.9.1\n\n"
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4.1\n",
        {{installation("C:\\A", "A", "17.4"), installation("C:\\B", "B", "16.9"),
          installation("C:\\A", "A", "17.4")},
         {}});
    row("lines far apart",
        "instanceId: 1\ninstallationPath: C:\\A\nx: y\n\n\ndisplayName: A\nx: z\ninstallationVersion: 17.4\n",
        {{installation("C:\\A", "A", "17.4")}, {}});
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
    row("installation without a path takes the next one's",
        "displayName: A\ninstallationVersion: 17.4.1\n"
        "installationPath: C:\\B\ninstallationVersion: 16.9.1\ndisplayName: B\n",
        {{{"C:\\B", "A", "17.4", {"displayName: A", "installationVersion: 17.4", "installationPath: C:\\B"}}},
         {"installationVersion: 16.9", "displayName: B"}});
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
    row("name of white space only", "installationPath: C:\\A\ndisplayName: \t \ninstallationVersion: 17.4\n",
        {{}, {"installationPath: C:\\A", "displayName: ", "installationVersion: 17.4"}});
    row("path without a value", "installationPath:\ndisplayName: A\ninstallationVersion: 17.4\n",
        {{}, {"installationPath: ", "displayName: A", "installationVersion: 17.4"}});
    row("name without a value takes the earlier one away",
        "displayName: A\ndisplayName:\ninstallationPath: C:\\A\ninstallationVersion: 17.4\n",
        {{}, {"displayName: A", "displayName: ", "installationPath: C:\\A", "installationVersion: 17.4"}});
    row("version that is none leaves the earlier one",
        "installationVersion: 17.4\ninstallationVersion: unknown\ninstallationPath: C:\\A\ndisplayName: A\n",
        {{{"C:\\A", "A", "17.4", {"installationVersion: 17.4", "installationPath: C:\\A", "displayName: A"}}},
         {}});
}

void VswhereReportTest::blocks()
{
    QFETCH(QByteArray, report);
    QFETCH(QStringList, expected);
    QCOMPARE(description(readVswhereReport(report)), expected);
}

void VswhereReportTest::keys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("line"); // must not be taken for the key's line

    const QMap<QString, QString> values{
        {"installationPath", "C:\\A"}, {"displayName", "A"}, {"installationVersion", "17.4"}};
    for (auto each = values.begin(); each != values.end(); ++each) {
        const QString &key = each.key();
        const auto row = [&](const QString &name, const QString &keyAndColon) {
            QTest::newRow(qPrintable(key + ", " + name)) << key << keyAndColon + ' ' + each.value();
        };
        row("space before the key", ' ' + key + ':');
        row("tab before the key", '\t' + key + ':');
        row("space before the colon", key + " :");
        row("no colon", key);
        row("equals sign", key + '=');
        row("upper case", key.toUpper() + ':');
        row("first letter in upper case", key.left(1).toUpper() + key.mid(1) + ':');
        row("longer key", key + "s:");
        row("key at the end of another", "properties_" + key + ':');
        row("key in a value", "description: " + key + ':');
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
    QTest::addColumn<QByteArray>("path"); // as after the colons
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("readPath");
    QTest::addColumn<QString>("readName");

    QTest::newRow("no space after the colon") << QByteArray("C:\\A") << QByteArray("A") << "C:\\A"
                                              << "A";
    QTest::newRow("white space around") << QByteArray(" \t C:\\A \t ") << QByteArray("   A\v\f ") << "C:\\A"
                                        << "A";
    QTest::newRow("spaces inside") << QByteArray(" C:\\Program  Files\\A ") << QByteArray(" A  B\tC ")
                                   << "C:\\Program  Files\\A"
                                   << "A  B\tC";
    QTest::newRow("colons") << QByteArray(" \\\\?\\C:\\A: B:") << QByteArray(" : A: displayName: B:")
                            << "\\\\?\\C:\\A: B:"
                            << ": A: displayName: B:";
    QTest::newRow("percent signs are no placeholders")
        << QByteArray(" C:\\%1 %PATH%") << QByteArray(" 100%1 %2") << "C:\\%1 %PATH%"
        << "100%1 %2";
    QTest::newRow("forward slashes and one at the end")
        << QByteArray(" C:/A/") << QByteArray(" A/") << "C:/A/"
        << "A/";
    QTest::newRow("quotes") << QByteArray(" \"C:\\A\"") << QByteArray(" 'A'") << "\"C:\\A\""
                            << "'A'";
    QTest::newRow("long") << " C:\\" + QByteArray(40000, 'x') << ' ' + QByteArray(70000, 'y')
                          << "C:\\" + QString(40000, 'x') << QString(70000, 'y');
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
    QTest::addColumn<QByteArray>("text");     // as after the colon
    QTest::addColumn<QString>("readVersion"); // empty when it is not a version

    QTest::newRow("four numbers") << QByteArray(" 17.4.33205.214") << "17.4";
    QTest::newRow("two digits after the point") << QByteArray(" 16.11.32929.386") << "16.11";
    QTest::newRow("two numbers") << QByteArray(" 17.4") << "17.4";
    QTest::newRow("no space") << QByteArray("17.4.1") << "17.4";
    QTest::newRow("spaces and tabs") << QByteArray(" \t 17.4 \t ") << "17.4";
    QTest::newRow("zeros stay") << QByteArray(" 017.040.1") << "017.040";
    QTest::newRow("many digits") << QByteArray(" 123456789012.34567890") << "123456789012.34567890";
    QTest::newRow("words after") << QByteArray(" 17.4-preview 3") << "17.4";
    QTest::newRow("another number after") << QByteArray(" 16.9 17.4") << "16.9";
    QTest::newRow("one number") << QByteArray(" 17") << "";
    QTest::newRow("nothing after the point") << QByteArray(" 17.") << "";
    QTest::newRow("two points") << QByteArray(" 17..4") << "";
    QTest::newRow("nothing before the point") << QByteArray(" .4") << "";
    QTest::newRow("comma") << QByteArray(" 17,4") << "";
    QTest::newRow("letter before") << QByteArray(" v17.4") << "";
    QTest::newRow("minus sign") << QByteArray(" -17.4") << "";
    QTest::newRow("space inside") << QByteArray(" 17 .4") << "";
    QTest::newRow("hexadecimal") << QByteArray(" 0x11.4") << "";
    QTest::newRow("word") << QByteArray(" unknown") << "";
    QTest::newRow("nothing") << QByteArray("") << "";
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

void VswhereReportTest::encoding_data()
{
    QTest::addColumn<QByteArray>("report");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const QByteArray &report, const VswhereReport &expected) {
        QTest::newRow(name) << report << description(expected);
    };
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
    row("character cut off by the line's end",
        "installationPath: C:\\A\xc3\ndisplayName: A\ninstallationVersion: 17.4\n",
        {{installation("C:\\A\ufffd", "A", "17.4")}, {}});
    row("stray byte before a key", "\xffinstallationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\n",
        {{}, {"displayName: A", "installationVersion: 17.4"}});
    row("byte order mark at the start",
        "\xef\xbb\xbfinstallationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\n",
        {{installation("C:\\A", "A", "17.4")}, {}});
    row("byte order mark at the start of another line",
        "installationPath: C:\\A\n\xef\xbb\xbf"
        "displayName: A\ninstallationVersion: 17.4\n",
        {{}, {"installationPath: C:\\A", "installationVersion: 17.4"}});
    row("Unicode line separators end no line",
        "installationPath: C:\\A\xe2\x80\xa8"
        "B\ndisplayName: A\xc2\x85"
        "B\ninstallationVersion: 17.4\xe2\x80\xa9\n",
        {{installation("C:\\A\u2028"
                       "B",
                       QString("A") + QChar(0x85) + "B", "17.4")},
         {}});
}

void VswhereReportTest::encoding()
{
    QFETCH(QByteArray, report);
    QFETCH(QStringList, expected);
    QCOMPARE(description(readVswhereReport(report)), expected);
}

void VswhereReportTest::lineEnds_data()
{
    QTest::addColumn<QByteArray>("report");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const QByteArray &report, const VswhereReport &expected) {
        QTest::newRow(name) << report << description(expected);
    };
    const VswhereReport one{{installation("C:\\A", "A", "17.4")}, {}};
    row("line feed", "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\n", one);
    row("carriage return and line feed",
        "installationPath: C:\\A\r\ndisplayName: A\r\ninstallationVersion: 17.4\r\n", one);
    row("two carriage returns and line feed",
        "installationPath: C:\\A\r\r\ndisplayName: A\r\r\ninstallationVersion: 17.4\r\r\n", one);
    row("carriage return at the end only",
        "installationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\r", one);
    row("name without a value before carriage return and line feed",
        "installationPath: C:\\A\r\ndisplayName:\r\ninstallationVersion: 17.4\r\n",
        {{}, {"installationPath: C:\\A", "displayName: ", "installationVersion: 17.4"}});
    row("one number before carriage return and line feed",
        "installationPath: C:\\A\r\ndisplayName: A\r\ninstallationVersion: 17\r\n",
        {{}, {"installationPath: C:\\A", "displayName: A"}});
    row("lone carriage return ends no line",
        "installationPath: C:\\A\rdisplayName: A\rinstallationVersion: 17.4\r",
        {{}, {"installationPath: C:\\A\rdisplayName: A\rinstallationVersion: 17.4"}});
    row("lone carriage return inside values",
        "installationPath: C:\\A\rB\ndisplayName: A\rB\ninstallationVersion: 17.4\r16.9\n",
        {{installation("C:\\A\rB", "A\rB", "17.4")}, {}});
    row("line feed and carriage return",
        "installationPath: C:\\A\n\rdisplayName: A\n\rinstallationVersion: 17.4\n\r",
        {{}, {"installationPath: C:\\A"}});
}

void VswhereReportTest::lineEnds()
{
    QFETCH(QByteArray, report);
    QFETCH(QStringList, expected);
    QCOMPARE(description(readVswhereReport(report)), expected);
}

QTEST_GUILESS_MAIN(VswhereReportTest)

#include "VswhereReportTest.moc"
