#include "devenv/Vswhere.h"

#include "tests/support/Rows.h"

#include <QtTest>

#include <algorithm>

namespace {

// Lines of a report, as the log shows them.
const QString pathA = "installationPath: C:\\A";
const QString pathB = "installationPath: C:\\B";
const QString nameA = "displayName: A";
const QString nameB = "displayName: B";
const QString version17 = "installationVersion: 17.4";
const QString version16 = "installationVersion: 16.9";
// What is read from them.
const QString readA = "= C:\\A | A | 17.4";
const QString readB = "= C:\\B | B | 16.9";

/// What is read from @p report: the lines for the log, with each installation behind its own.
QStringList read(const QByteArray &report)
{
    const VswhereReport result = readVswhereReport(report);
    QStringList lines;
    for (const VswhereInstallation &each : result.installations) {
        lines << each.log << "= " + each.path + " | " + each.displayName + " | " + each.version;
    }
    return lines << result.log;
}

} // namespace

class VswhereReportTest : public QObject {
    Q_OBJECT

private slots:
    /// A full report of vswhere.exe about two installations.
    void wholeReport()
    {
        const QByteArray report =
            R"(Visual Studio Locator version 3.0.3+45247720e1 [query version 3.4.1106.11442]
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
        QCOMPARE(read(report),
                 (QStringList{"installationPath: C:\\Program Files\\Microsoft Visual Studio\\2022\\Community",
                              "installationVersion: 17.4", "displayName: Visual Studio Community 2022",
                              "= C:\\Program Files\\Microsoft Visual Studio\\2022\\Community | "
                              "Visual Studio Community 2022 | 17.4",
                              "installationPath: D:\\VS\\Preview", "installationVersion: 16.11",
                              "displayName: Visual Studio Professional 2019 Preview",
                              "= D:\\VS\\Preview | Visual Studio Professional 2019 Preview | 16.11"}));
    }

    void blocks_data()
    {
        // lines: of the report, and what is read from those in front
        const auto row = columns<QStringList>("lines");

        row("one installation", {pathA, nameA, version17, readA});
        row("three installations, one of them twice",
            {pathA, nameA, version17, readA, pathB, nameB, version16, readB, pathA, nameA, version17, readA});
        row("only a path", {pathA});
        row("last installation incomplete", {pathA, nameA, version17, readA, pathB, version16});
        row("installation without a name goes into the next",
            {pathA, version17, pathB, version16, nameB, readB});
        row("installation without a version lends its name and leaves the other's",
            {pathA, nameA, pathB, version16, "= C:\\B | A | 16.9", nameB});
        row("value that comes twice: the later counts", {pathA, pathB, nameB, version16, readB});
        row("value that comes again after a complete installation is the next one's",
            {pathA, nameA, version17, readA, nameA, pathB, version16, "= C:\\B | A | 16.9"});
        row("name without a value", {pathA, "displayName: ", version17});
        row("not ASCII",
            {"installationPath: C:\\Pr\u00fcfung\\\u691c\u67fb", "displayName: \U0001f52c Studio", version17,
             "= C:\\Pr\u00fcfung\\\u691c\u67fb | \U0001f52c Studio | 17.4"});
        // The second block starts afresh, whichever line completed the first.
        QStringList a{nameA, pathA, version17};
        QStringList b{nameB, pathB, version16};
        do {
            row(qPrintable("order: " + a.join(", ")), a + QStringList{readA} + b + QStringList{readB});
            std::next_permutation(b.begin(), b.end());
        } while (std::next_permutation(a.begin(), a.end()));
    }

    void blocks()
    {
        QFETCH(QStringList, lines);
        QStringList report = lines;
        report.erase(std::remove_if(report.begin(), report.end(),
                                    [](const QString &line) { return line.startsWith('='); }),
                     report.end());
        QCOMPARE(read(report.join('\n').toUtf8()), lines);
    }

    void bytes_data()
    {
        const auto row = columns<QByteArray, QStringList>("report", "expected");

        const QStringList complete{pathA, nameA, version17, readA};
        const QStringList nameless{pathA, "displayName: ", version17};
        row("empty report", "", {});
        row("none of the keys", "instanceId: 1\nisPrerelease: 1\nproductPath: C:\\VS\n", {});
        row("version that is none leaves the earlier one",
            "installationVersion: 17.4\ninstallationVersion: unknown\ninstallationPath: C:\\A\ndisplayName: "
            "A\n",
            {version17, pathA, nameA, readA});
        row("stray bytes", "installationPath: \xfc\ndisplayName: A\x80\ninstallationVersion: 17.4\xff\n",
            {"installationPath: \ufffd", "displayName: A\ufffd", version17, "= \ufffd | A\ufffd | 17.4"});
        row("byte order mark at the start",
            "\xef\xbb\xbfinstallationPath: C:\\A\ndisplayName: A\ninstallationVersion: 17.4\n", complete);
        row("carriage return and line feed",
            "installationPath: C:\\A\r\ndisplayName: A\r\ninstallationVersion: 17.4\r\n", complete);
        row("name without a value or a space",
            "installationPath: C:\\A\ndisplayName:\ninstallationVersion: 17.4\n", nameless);
        row("name without a value before carriage return and line feed",
            "installationPath: C:\\A\r\ndisplayName:\r\ninstallationVersion: 17.4\r\n", nameless);
        row("lone carriage return ends no line",
            "installationPath: C:\\A\rdisplayName: A\rinstallationVersion: 17.4\r",
            {"installationPath: C:\\A\rdisplayName: A\rinstallationVersion: 17.4"});
    }

    void bytes()
    {
        QFETCH(QByteArray, report);
        QTEST(read(report), "expected");
    }

    void keys_data()
    {
        // key: is replaced by the other one in its line, which then is none
        columns<QString, QString>("key", "other");

        for (const QString key : {"installationPath", "displayName", "installationVersion"}) {
            for (const QString &other :
                 {' ' + key + ':', '\t' + key + ':', key + " :", key, key + '=', key.toUpper() + ':',
                  key + "s:", "properties_" + key + ':', "description: " + key + ':'}) {
                row(qPrintable(other), key + ':', other);
            }
        }
    }

    void keys()
    {
        QFETCH(QString, key);
        QFETCH(QString, other);
        const QStringList lines{pathA, nameA, version17};
        const QByteArray report = lines.join('\n').replace(key, other).toUtf8();
        QStringList others = lines;
        others.removeOne(lines.filter(key).constFirst());
        QCOMPARE(read(report), others);
    }

    void values_data()
    {
        // path, name: as after the colons
        const auto row =
            columns<QByteArray, QByteArray, QString, QString>("path", "name", "readPath", "readName");

        row("no space after the colon", "C:\\A", "A", "C:\\A", "A");
        row("white space around", " \t C:\\A \t ", "   A\v\f ", "C:\\A", "A");
        row("colons",
            " \\\\?\\C:\\A: B:", " : A: displayName: B:", "\\\\?\\C:\\A: B:", ": A: displayName: B:");
        row("percent signs are no placeholders", " C:\\%1 %PATH%", " 100%1 %2", "C:\\%1 %PATH%", "100%1 %2");
    }

    void values()
    {
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, name);
        QFETCH(QString, readPath);
        QFETCH(QString, readName);
        QCOMPARE(read("installationPath:" + path + "\ndisplayName:" + name + "\ninstallationVersion: 17.4\n"),
                 (QStringList{"installationPath: " + readPath, "displayName: " + readName, version17,
                              "= " + readPath + " | " + readName + " | 17.4"}));
    }

    void versionNumbers_data()
    {
        // text: as after the colon
        // version: empty when it is none
        const auto row = columns<QByteArray, QString>("text", "version");

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

    void versionNumbers()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, version);
        QStringList expected{pathA, nameA};
        if (!version.isEmpty()) {
            expected << "installationVersion: " + version << "= C:\\A | A | " + version;
        }
        QCOMPARE(read("installationPath: C:\\A\ndisplayName: A\ninstallationVersion:" + text + '\n'),
                 expected);
    }
};

QTEST_GUILESS_MAIN(VswhereReportTest)

#include "VswhereReportTest.moc"
