#include "devenv/VisualStudioVersion.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <algorithm>
#include <random>

namespace {

VisualStudioVersion studio(const QString &version, const QString &edition, const QString &architecture = {})
{
    return {"", edition, version, architecture, "", "", "", "", "", false};
}

/// Records such as "14.0 Edition x86" in their order.
QStringList ordered(const QStringList &texts)
{
    QList<VisualStudioVersion> versions;
    for (const QString &text : texts) {
        versions.append(studio(text.section(' ', 0, 0), text.section(' ', 1, 1), text.section(' ', 2)));
    }
    orderVisualStudioVersions(versions);
    QStringList result;
    for (const VisualStudioVersion &each : versions) {
        result.append((each.version + ' ' + each.edition + ' ' + each.architecture).trimmed());
    }
    return result;
}

} // namespace

class VisualStudioVersionTest : public QObject {
    Q_OBJECT

private slots:
    void displayName_data()
    {
        columns<QString, QString, QString, QString>("version", "edition", "architecture", "expected");

        row("64-bit", "14.0", "Professional", "amd64", "Visual Studio 14.0 (Professional) (amd64)");
        row("32-bit Express", "12.0", "Express Edition", "x86", "Visual Studio 12.0 (Express Edition) (x86)");
        row("no architecture", "17.4", "Visual Studio Community 2022", "",
            "Visual Studio 17.4 (Visual Studio Community 2022)");
        row("edition that looks like the placeholder of the architecture", "14.0", "100 %3", "x86",
            "Visual Studio 14.0 (100 %3) (x86)");
    }

    void displayName()
    {
        QFETCH(QString, version);
        QFETCH(QString, edition);
        QFETCH(QString, architecture);
        QTEST(::displayName(studio(version, edition, architecture)), "expected");
    }

    void matchesArchitecture_data()
    {
        columns<QString, QString, bool>("architecture", "halconArch", "expected");

        row("x86 for 32-bit", "x86", "x86-win32", true);
        row("x86 for 64-bit", "x86", "x64-win64", false);
        row("amd64 for 32-bit", "amd64", "x86-win32", false);
        row("amd64 for 64-bit", "amd64", "x64-win64", true);
        row("upper case", "X86", "X86-WIN32", true);
        row("upper case, 64-bit", "AMD64", "X64-WIN64", true);
        row("none for 64-bit", "", "x64-win64", false);
        row("both numbers for 32-bit", "x86_64", "x86-win32", true);
        row("both numbers for 64-bit", "x86_64", "x64-win64", true);
    }

    void matchesArchitecture()
    {
        QFETCH(QString, architecture);
        QFETCH(QString, halconArch);
        QTEST(::matchesArchitecture(studio("14.0", "Professional", architecture), halconArch), "expected");
    }

    void order_data()
    {
        // both: the version, the edition and perhaps the architecture of each record
        const auto row = columns<QStringList, QStringList>("found", "expected");

        row("none", {}, {});
        row("newest first", {"9.0 A", "14.0 A", "10.0 A"}, {"14.0 A", "10.0 A", "9.0 A"});
        row("decimal fractions", {"16.11 A", "16.9 A", "16.2 A"}, {"16.9 A", "16.2 A", "16.11 A"});
        row("equal numbers by name", {"16.10 A", "16.1 A"}, {"16.1 A", "16.10 A"});
        row("architectures of two editions",
            {"14.0 B amd64", "14.0 B x86", "14.0 B", "14.0 A amd64", "14.0 A x86", "14.0 A"},
            {"14.0 A x86", "14.0 B x86", "14.0 A", "14.0 A amd64", "14.0 B", "14.0 B amd64"});
        row("version before architecture", {"12.0 A x86", "14.0 A amd64"}, {"14.0 A amd64", "12.0 A x86"});
        row("equal numbers: architecture before name", {"16.1 A amd64", "16.10 A x86"},
            {"16.10 A x86", "16.1 A amd64"});
        row("names by code unit", {"14.0 \u00e4", "14.0 a", "14.0 Z"}, {"14.0 Z", "14.0 a", "14.0 \u00e4"});
        row("no number counts as 0", {"14.0_Config A", "0.5 A", "-1.0 A"},
            {"0.5 A", "14.0_Config A", "-1.0 A"});
        row("duplicates that are apart", {"14.0 A x86", "12.0 A", "14.0 A", "14.0 A x86", "12.0 A"},
            {"14.0 A x86", "14.0 A", "12.0 A"});
    }

    void order()
    {
        QFETCH(QStringList, found);
        QTEST(ordered(found), "expected");
    }

    /// An unstable sort shows only in lists of more than 16.
    void longList()
    {
        QStringList expected;
        for (const QString version : {"14.0 ", "12.0 "}) {
            for (const char edition : QByteArray("ABCDEFGH")) {
                expected.append(version + edition + " x86");
            }
            for (const char edition : QByteArray("ABCDEFGH")) {
                expected << version + edition << version + edition + " amd64";
            }
        }
        QStringList shuffled = expected;
        std::mt19937 generator;
        for (int round = 0; round < 10; ++round) {
            std::shuffle(shuffled.begin(), shuffled.end(), generator);
            QCOMPARE(ordered(shuffled), expected);
        }
    }

    void equalNamesOccurOnce()
    {
        VisualStudioVersion here = studio("14.0", "Professional", "x86");
        here.productDir = "C:\\here";
        VisualStudioVersion there = here;
        there.productDir = "C:\\there";

        QList<VisualStudioVersion> versions{here, there};
        orderVisualStudioVersions(versions);

        QCOMPARE(versions.size(), 1);
        const QStringList eitherOne{here.productDir, there.productDir};
        QVERIFY(eitherOne.contains(versions.first().productDir));
    }
};

QTEST_GUILESS_MAIN(VisualStudioVersionTest)

#include "VisualStudioVersionTest.moc"
