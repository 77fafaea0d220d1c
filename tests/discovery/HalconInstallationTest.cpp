#include "discovery/HalconInstallation.h"
#include "tests/discovery/InstallationLines.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <algorithm>
#include <random>

namespace {

const QString x86 = QStringLiteral("x86-win32");
const QString sse2 = QStringLiteral("x86sse2-win32");
const QString x64 = QStringLiteral("x64-win64");

/// The record of an identity such as "20.11.1 Progress (x86-win32)", with a revision, a suffix and an
/// architecture or without.
HalconInstallation withIdentity(const QString &identity)
{
    static const QRegularExpression pattern(R"(^(\d+)\.(\d+)(?:\.(\d+))?(?: ([^ (]+))?(?: \((.*)\))?$)");
    const QRegularExpressionMatch match = pattern.match(identity);
    const QString revision = match.captured(3);
    HalconInstallation result(match.captured(1).toInt(), match.captured(2).toInt(),
                              revision.isEmpty() ? -1 : revision.toInt(), -1);
    result.setSuffix(match.captured(4));
    result.arch = match.captured(5).isEmpty() ? x64 : match.captured(5);
    return result;
}

QStringList ordered(const QStringList &identities)
{
    QList<HalconInstallation> installations;
    for (const QString &identity : identities) {
        installations.append(withIdentity(identity));
    }
    orderInstallations(installations);
    QStringList result;
    for (const HalconInstallation &each : installations) {
        result.append(each.versionArchText().remove(" (x64-win64)"));
    }
    return result;
}

} // namespace

class HalconInstallationTest : public QObject {
    Q_OBJECT

private slots:
    void freshRecord()
    {
        QCOMPARE(recordLines({HalconInstallation(20, 11, 1, 3)}), QStringList{"20.11.1.3 ''  |  |  | "});
    }

    void versionText_data()
    {
        columns<int, int, int, int, QString, QString>("major", "minor", "revision", "build", "suffix",
                                                      "text");

        row("unknown revision and build", 20, 11, -1, -1, "Progress", "20.11 Progress");
        row("no suffix", 18, 11, 2, 0, "", "18.11.2");
        row("revision 0 is printed", 20, 11, 0, 0, "", "20.11.0");
        row("build other than 0", 20, 11, 0, 7, "", "20.11.0.7");
        row("everything", 20, 11, 1, 3, "Progress", "20.11.1.3 Progress");
        row("unknown minor ends the numbers", 20, -1, 3, 3, "Progress", "20 Progress");
        row("unknown revision ends the numbers", 20, 11, -1, 3, "", "20.11");
        row("unknown build", 20, 11, 4, -1, "", "20.11.4");
        row("minor 0", 13, 0, -1, -1, "", "13.0");
        row("unknown major", -1, 11, 1, 3, "Progress", "");
        row("other negative numbers are printed", -2, -3, -4, -5, "", "-2.-3.-4.-5");
    }

    void versionText()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(int, revision);
        QFETCH(int, build);
        QFETCH(QString, suffix);
        QFETCH(QString, text);

        QCOMPARE(formatVersion(major, minor, revision, build, suffix), text);
        HalconInstallation record(major, minor, revision, build);
        record.setSuffix(suffix);
        record.arch = x64;
        QCOMPARE(record.versionText(), text);
        QCOMPARE(record.versionArchText(), text + " (x64-win64)");
    }

    void archRank()
    {
        QCOMPARE(::archRank(x64), 3);
        QCOMPARE(::archRank(sse2), 2);
        QCOMPARE(::archRank(x86), 1);
        for (const QString other : {"X64-win64", "x64", ""}) {
            QCOMPARE(::archRank(other), 0);
        }
    }

    void ordering_data()
    {
        // of 64-bit, where no architecture is given
        const auto row = columns<QStringList, QStringList>("found", "expected");

        row("none", {}, {});
        row("numbers, not text", {"18.11", "10.0", "9.0"}, {"9.0", "10.0", "18.11"});
        row("architectures of one version", {"12.0.3", "12.0.3 (x86-win32)", "12.0.3 (x86sse2-win32)"},
            {"12.0.3 (x86-win32)", "12.0.3 (x86sse2-win32)", "12.0.3"});
        row("version before architecture", {"13.0.0 (x86-win32)", "12.0.0"},
            {"12.0.0", "13.0.0 (x86-win32)"});
        row("minor versions", {"20.11.0", "20.5.0"}, {"20.5.0", "20.11.0"});
        row("revisions by text", {"20.11.9", "20.11.10"}, {"20.11.10", "20.11.9"});
        row("unknown revision is another identity than 0", {"20.11.0 X", "20.11 X"},
            {"20.11 X", "20.11.0 X"});
        row("duplicates that are apart", {"13.0.0", "12.0.0", "13.0.0"}, {"12.0.0", "13.0.0"});
        row("suffixes by code unit",
            {"20.11 \uff5e", "20.11 \u00e4", "20.11 \U0001f52c", "20.11 a", "20.11 A"},
            {"20.11 A", "20.11 a", "20.11 \u00e4", "20.11 \U0001f52c", "20.11 \uff5e"});
        row("unknown architecture first", {"13.0.0 (x86-win32)", "13.0.0 (arm64)"},
            {"13.0.0 (arm64)", "13.0.0 (x86-win32)"});
    }

    void ordering()
    {
        QFETCH(QStringList, found);
        QTEST(ordered(found), "expected");
    }

    /// An unstable sort shows only in lists of more than 16.
    void longList()
    {
        QStringList expected;
        for (const QString &version : QStringList{"12.0", "13.0"}) {
            for (const QString arch : {" (x86-win32)", " (x86sse2-win32)", ""}) {
                for (const char suffix : QByteArray("ABCDEFGH")) {
                    expected.append(version + ' ' + suffix + arch);
                }
            }
        }
        QStringList shuffled = expected;
        std::mt19937 generator;
        for (int round = 0; round < 10; ++round) {
            std::shuffle(shuffled.begin(), shuffled.end(), generator);
            QCOMPARE(ordered(shuffled), expected);
        }
    }

    void equalIdentityOccursOnce()
    {
        HalconInstallation here = withIdentity("20.11.1");
        here.installDir = "C:\\here";
        HalconInstallation there = here;
        there.installDir = "C:\\there";

        QList<HalconInstallation> installations{here, there};
        orderInstallations(installations);

        QCOMPARE(installations.size(), 1);
        QVERIFY((QStringList{"C:\\here", "C:\\there"}.contains(installations.constFirst().installDir)));
    }
};

QTEST_GUILESS_MAIN(HalconInstallationTest)

#include "HalconInstallationTest.moc"
