#include "devenv/VisualStudioVersion.h"
#include "tests/devenv/RecordLines.h"

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
    void freshRecord();
    void displayName_data();
    void displayName();
    void otherFieldsAreNotShown();
    void matchesArchitecture_data();
    void matchesArchitecture();
    void order_data();
    void order();
    void longList();
    void equalNamesOccurOnce();
    void recordsStayWhole();
};

void VisualStudioVersionTest::freshRecord()
{
    const QStringList expected{"name: ",  "edition: ",   "version: ", "architecture: ", "productDir: ",
                               "vcDir: ", "vcvarsBat: ", "ideName: ", "idePath: ",      "express: no"};
    QCOMPARE(fieldLines({VisualStudioVersion()}), expected);
}

void VisualStudioVersionTest::displayName_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("edition");
    QTest::addColumn<QString>("architecture");
    QTest::addColumn<QString>("expected");

    QTest::newRow("64-bit") << "14.0"
                            << "Professional"
                            << "amd64"
                            << "Visual Studio 14.0 (Professional) (amd64)";
    QTest::newRow("32-bit Express") << "12.0"
                                    << "Express Edition"
                                    << "x86"
                                    << "Visual Studio 12.0 (Express Edition) (x86)";
    QTest::newRow("no architecture") << "17.4"
                                     << "Visual Studio Community 2022"
                                     << ""
                                     << "Visual Studio 17.4 (Visual Studio Community 2022)";
    QTest::newRow("no edition") << "14.0"
                                << ""
                                << "x86"
                                << "Visual Studio 14.0 () (x86)";
    QTest::newRow("nothing") << ""
                             << ""
                             << ""
                             << "Visual Studio  ()";
    QTest::newRow("edition that looks like the placeholder of the architecture")
        << "14.0"
        << "100 %3"
        << "x86"
        << "Visual Studio 14.0 (100 %3) (x86)";
    QTest::newRow("edition that looks like the placeholder of the version") << "14.0"
                                                                            << "%1"
                                                                            << ""
                                                                            << "Visual Studio 14.0 (%1)";
    QTest::newRow("version that looks like the placeholder of the edition")
        << "%2"
        << "Professional"
        << "amd64"
        << "Visual Studio %2 (Professional) (amd64)";
    QTest::newRow("non-ASCII edition") << "17.4"
                                       << "\u30d7\u30ed \u00c9dition"
                                       << "amd64"
                                       << "Visual Studio 17.4 (\u30d7\u30ed \u00c9dition) (amd64)";
}

void VisualStudioVersionTest::displayName()
{
    QFETCH(QString, version);
    QFETCH(QString, edition);
    QFETCH(QString, architecture);
    QTEST(::displayName(studio(version, edition, architecture)), "expected");
}

void VisualStudioVersionTest::otherFieldsAreNotShown()
{
    VisualStudioVersion record = studio("14.0", "Professional", "x86");
    record.name = "name";
    record.productDir = "C:\\product";
    record.vcDir = "C:\\product\\VC";
    record.vcvarsBat = "C:\\product\\VC\\vcvars.bat";
    record.ideName = "devenv";
    record.idePath = "C:/product/devenv.exe";
    record.express = true;
    QCOMPARE(::displayName(record), QString("Visual Studio 14.0 (Professional) (x86)"));
}

void VisualStudioVersionTest::matchesArchitecture_data()
{
    QTest::addColumn<QString>("architecture");
    QTest::addColumn<QString>("halconArch");
    QTest::addColumn<bool>("expected");

    QTest::newRow("x86 for 32-bit") << "x86"
                                    << "x86-win32" << true;
    QTest::newRow("x86 for SSE2") << "x86"
                                  << "x86sse2-win32" << true;
    QTest::newRow("x86 for 64-bit") << "x86"
                                    << "x64-win64" << false;
    QTest::newRow("amd64 for 32-bit") << "amd64"
                                      << "x86-win32" << false;
    QTest::newRow("amd64 for SSE2") << "amd64"
                                    << "x86sse2-win32" << false;
    QTest::newRow("amd64 for 64-bit") << "amd64"
                                      << "x64-win64" << true;
    QTest::newRow("upper case") << "X86"
                                << "X86-WIN32" << true;
    QTest::newRow("upper case, 64-bit") << "AMD64"
                                        << "X64-WIN64" << true;
    QTest::newRow("none for 32-bit") << ""
                                     << "x86-win32" << false;
    QTest::newRow("none for SSE2") << ""
                                   << "x86sse2-win32" << false;
    QTest::newRow("none for 64-bit") << ""
                                     << "x64-win64" << false;
    QTest::newRow("none for none") << ""
                                   << "" << false;
    QTest::newRow("x86 for none") << "x86"
                                  << "" << false;
    QTest::newRow("amd64 for none") << "amd64"
                                    << "" << false;
    QTest::newRow("both numbers for 32-bit") << "x86_64"
                                             << "x86-win32" << true;
    QTest::newRow("both numbers for 64-bit") << "x86_64"
                                             << "x64-win64" << true;
    QTest::newRow("neither number") << "arm"
                                    << "arm" << false;
}

void VisualStudioVersionTest::matchesArchitecture()
{
    QFETCH(QString, architecture);
    QFETCH(QString, halconArch);
    QTEST(::matchesArchitecture(studio("14.0", "Professional", architecture), halconArch), "expected");
}

void VisualStudioVersionTest::order_data()
{
    QTest::addColumn<QList<VisualStudioVersion>>("versions");
    QTest::addColumn<QStringList>("expected");

    using List = QList<VisualStudioVersion>;
    QTest::newRow("none") << List() << QStringList();
    QTest::newRow("newest first") << List{studio("9.0", "A"), studio("14.0", "A"), studio("10.0", "A")}
                                  << QStringList{"Visual Studio 14.0 (A)", "Visual Studio 10.0 (A)",
                                                 "Visual Studio 9.0 (A)"};
    QTest::newRow("decimal fractions")
        << List{studio("16.11", "A"), studio("16.9", "A"), studio("16.2", "A")}
        << QStringList{"Visual Studio 16.9 (A)", "Visual Studio 16.2 (A)", "Visual Studio 16.11 (A)"};
    QTest::newRow("equal numbers by name")
        << List{studio("16.10", "A"), studio("16.1", "A")}
        << QStringList{"Visual Studio 16.1 (A)", "Visual Studio 16.10 (A)"};
    QTest::newRow("architectures of one product")
        << List{studio("14.0", "A", "amd64"), studio("14.0", "A", "x86"), studio("14.0", "A")}
        << QStringList{"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A)",
                       "Visual Studio 14.0 (A) (amd64)"};
    QTest::newRow("architectures of two editions")
        << List{studio("14.0", "B", "amd64"), studio("14.0", "B", "x86"), studio("14.0", "B"),
                studio("14.0", "A", "amd64"), studio("14.0", "A", "x86"), studio("14.0", "A")}
        << QStringList{"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (B) (x86)",
                       "Visual Studio 14.0 (A)",       "Visual Studio 14.0 (A) (amd64)",
                       "Visual Studio 14.0 (B)",       "Visual Studio 14.0 (B) (amd64)"};
    QTest::newRow("version before architecture")
        << List{studio("12.0", "A", "x86"), studio("14.0", "A", "amd64")}
        << QStringList{"Visual Studio 14.0 (A) (amd64)", "Visual Studio 12.0 (A) (x86)"};
    QTest::newRow("equal numbers: architecture before name")
        << List{studio("16.1", "A", "amd64"), studio("16.10", "A", "x86")}
        << QStringList{"Visual Studio 16.10 (A) (x86)", "Visual Studio 16.1 (A) (amd64)"};
    QTest::newRow("only x86 spelled exactly so goes first")
        << List{studio("14.0", "A", "X86"), studio("14.0", "A", "amd64"), studio("14.0", "A", "x86")}
        << QStringList{"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A) (X86)",
                       "Visual Studio 14.0 (A) (amd64)"};
    QTest::newRow("names by code unit")
        << List{studio("14.0", "\u00e4"), studio("14.0", "a"), studio("14.0", "Z")}
        << QStringList{"Visual Studio 14.0 (Z)", "Visual Studio 14.0 (a)", "Visual Studio 14.0 (\u00e4)"};
    QTest::newRow("no number counts as 0")
        << List{studio("14.0_Config", "A"), studio("", "A"), studio("0.5", "A"), studio("-1.0", "A")}
        << QStringList{"Visual Studio 0.5 (A)", "Visual Studio  (A)", "Visual Studio 14.0_Config (A)",
                       "Visual Studio -1.0 (A)"};
    QTest::newRow("number without a dot") << List{studio("14.0", "A"), studio("1400", "A")}
                                          << QStringList{"Visual Studio 1400 (A)", "Visual Studio 14.0 (A)"};
    QTest::newRow("duplicates that are apart")
        << List{studio("14.0", "A", "x86"), studio("12.0", "A"), studio("14.0", "A"),
                studio("14.0", "A", "x86"), studio("12.0", "A")}
        << QStringList{"Visual Studio 14.0 (A) (x86)", "Visual Studio 14.0 (A)", "Visual Studio 12.0 (A)"};
    QTest::newRow("names that differ in case are two")
        << List{studio("14.0", "a"), studio("14.0", "A")}
        << QStringList{"Visual Studio 14.0 (A)", "Visual Studio 14.0 (a)"};
}

void VisualStudioVersionTest::order()
{
    QFETCH(QList<VisualStudioVersion>, versions);
    orderVisualStudioVersions(versions);
    QTEST(displayNames(versions), "expected");
}

/// An unstable sort shows only in lists of more than 16.
void VisualStudioVersionTest::longList()
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

void VisualStudioVersionTest::equalNamesOccurOnce()
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

void VisualStudioVersionTest::recordsStayWhole()
{
    const VisualStudioVersion older{"n", "E", "12.0", "x86", "p", "v", "b", "wdexpress", "i", true};
    const VisualStudioVersion newer{"N", "P", "14.0", "amd64", "P", "V", "B", "devenv", "I", false};
    QList<VisualStudioVersion> versions{older, newer};
    orderVisualStudioVersions(versions);
    QCOMPARE(fieldLines(versions), fieldLines({newer, older}));
}

QTEST_GUILESS_MAIN(VisualStudioVersionTest)

#include "VisualStudioVersionTest.moc"
