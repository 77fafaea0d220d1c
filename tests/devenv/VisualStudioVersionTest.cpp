#include "devenv/VisualStudioVersion.h"
#include "tests/devenv/RecordLines.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <algorithm>
#include <random>

Q_DECLARE_METATYPE(QList<VisualStudioVersion>)

namespace {

VisualStudioVersion studio(const QString &version, const QString &edition, const QString &architecture = {})
{
    VisualStudioVersion result;
    result.version = version;
    result.edition = edition;
    result.architecture = architecture;
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
        const auto row = columns<QList<VisualStudioVersion>, QStringList>("versions", "expected");

        using List = QList<VisualStudioVersion>;
        row("none", List(), {});
        row("newest first", List{studio("9.0", "A"), studio("14.0", "A"), studio("10.0", "A")},
            {"Visual Studio 14.0 (A)", "Visual Studio 10.0 (A)", "Visual Studio 9.0 (A)"});
        row("decimal fractions", List{studio("16.11", "A"), studio("16.9", "A"), studio("16.2", "A")},
            {"Visual Studio 16.9 (A)", "Visual Studio 16.2 (A)", "Visual Studio 16.11 (A)"});
        row("equal numbers by name", List{studio("16.10", "A"), studio("16.1", "A")},
            {"Visual Studio 16.1 (A)", "Visual Studio 16.10 (A)"});
        row("architectures of two editions",
            List{studio("14.0", "B", "amd64"), studio("14.0", "B", "x86"), studio("14.0", "B"),
                 studio("14.0", "A", "amd64"), studio("14.0", "A", "x86"), studio("14.0", "A")},
            {"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (B) (x86)", "Visual Studio 14.0 (A)",
             "Visual Studio 14.0 (A) (amd64)", "Visual Studio 14.0 (B)", "Visual Studio 14.0 (B) (amd64)"});
        row("version before architecture", List{studio("12.0", "A", "x86"), studio("14.0", "A", "amd64")},
            {"Visual Studio 14.0 (A) (amd64)", "Visual Studio 12.0 (A) (x86)"});
        row("equal numbers: architecture before name",
            List{studio("16.1", "A", "amd64"), studio("16.10", "A", "x86")},
            {"Visual Studio 16.10 (A) (x86)", "Visual Studio 16.1 (A) (amd64)"});
        row("names by code unit", List{studio("14.0", "\u00e4"), studio("14.0", "a"), studio("14.0", "Z")},
            {"Visual Studio 14.0 (Z)", "Visual Studio 14.0 (a)", "Visual Studio 14.0 (\u00e4)"});
        row("no number counts as 0",
            List{studio("14.0_Config", "A"), studio("0.5", "A"), studio("-1.0", "A")},
            {"Visual Studio 0.5 (A)", "Visual Studio 14.0_Config (A)", "Visual Studio -1.0 (A)"});
        row("duplicates that are apart",
            List{studio("14.0", "A", "x86"), studio("12.0", "A"), studio("14.0", "A"),
                 studio("14.0", "A", "x86"), studio("12.0", "A")},
            {"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A)", "Visual Studio 12.0 (A)"});
    }

    void order()
    {
        QFETCH(QList<VisualStudioVersion>, versions);
        orderVisualStudioVersions(versions);
        QTEST(displayNames(versions), "expected");
    }

    /// An unstable sort shows only in lists of more than 16.
    void longList()
    {
        QList<VisualStudioVersion> versions;
        for (const char *version : {"14.0", "12.0"}) {
            for (const char edition : QByteArray("ABCDEFGH")) {
                versions.append(studio(version, QChar(edition), "x86"));
            }
            for (const char edition : QByteArray("ABCDEFGH")) {
                versions.append(studio(version, QChar(edition)));
                versions.append(studio(version, QChar(edition), "amd64"));
            }
        }
        const QStringList ordered = displayNames(versions);
        QCOMPARE(ordered.size(), 48);

        std::mt19937 generator;
        for (int round = 0; round < 10; ++round) {
            std::shuffle(versions.begin(), versions.end(), generator);
            orderVisualStudioVersions(versions);
            QCOMPARE(displayNames(versions), ordered);
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
