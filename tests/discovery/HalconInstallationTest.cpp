#include "discovery/HalconInstallation.h"

#include <QtTest>

#include <algorithm>
#include <random>

Q_DECLARE_METATYPE(QList<HalconInstallation>)

namespace {

HalconInstallation installation(int major, int minor, int revision, int build, const QString &arch,
                                const QString &suffix = QString())
{
    HalconInstallation result(major, minor, revision, build);
    result.arch = arch;
    result.setSuffix(suffix);
    return result;
}

QStringList identities(const QList<HalconInstallation> &installations)
{
    QStringList texts;
    for (const HalconInstallation &each : installations) {
        texts.append(each.versionArchText());
    }
    return texts;
}

const QString x86 = QStringLiteral("x86-win32");
const QString sse2 = QStringLiteral("x86sse2-win32");
const QString x64 = QStringLiteral("x64-win64");

} // namespace

class HalconInstallationTest : public QObject {
    Q_OBJECT

private slots:
    void freshRecord();
    void versionText_data();
    void versionText();
    void identity();
    void archRank_data();
    void archRank();
    void ordering_data();
    void ordering();
    void longList();
    void equalIdentityOccursOnce();
};

void HalconInstallationTest::freshRecord()
{
    const HalconInstallation record(20, 11, 1, 3);
    QCOMPARE(record.major, 20);
    QCOMPARE(record.minor, 11);
    QCOMPARE(record.revision, 1);
    QCOMPARE(record.build, 3);
    QCOMPARE(record.installDir, QString());
    QCOMPARE(record.exampleRoot, QString());
    QCOMPARE(record.components, QStringList());
    QCOMPARE(record.arch, QString());
    QCOMPARE(record.suffix, QString());
}

void HalconInstallationTest::versionText_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("revision");
    QTest::addColumn<int>("build");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("text");

    QTest::newRow("unknown revision and build") << 20 << 11 << -1 << -1 << "Progress"
                                                << "20.11 Progress";
    QTest::newRow("no suffix") << 18 << 11 << 2 << 0 << ""
                               << "18.11.2";
    QTest::newRow("revision 0 is printed") << 20 << 11 << 0 << 0 << ""
                                           << "20.11.0";
    QTest::newRow("build other than 0") << 20 << 11 << 0 << 7 << ""
                                        << "20.11.0.7";
    QTest::newRow("everything") << 20 << 11 << 1 << 3 << "Progress"
                                << "20.11.1.3 Progress";
    QTest::newRow("unknown minor ends the numbers") << 20 << -1 << 3 << 3 << "Progress"
                                                    << "20 Progress";
    QTest::newRow("unknown revision ends the numbers") << 20 << 11 << -1 << 3 << ""
                                                       << "20.11";
    QTest::newRow("unknown build") << 20 << 11 << 4 << -1 << ""
                                   << "20.11.4";
    QTest::newRow("minor 0") << 13 << 0 << -1 << -1 << ""
                             << "13.0";
    QTest::newRow("unknown major") << -1 << 11 << 1 << 3 << "Progress"
                                   << "";
    QTest::newRow("other negative numbers are printed") << -2 << -3 << -4 << -5 << ""
                                                        << "-2.-3.-4.-5";
}

void HalconInstallationTest::versionText()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, revision);
    QFETCH(int, build);
    QFETCH(QString, suffix);
    QFETCH(QString, text);

    QCOMPARE(formatVersion(major, minor, revision, build, suffix), text);
    QCOMPARE(installation(major, minor, revision, build, x64, suffix).versionText(), text);
}

void HalconInstallationTest::identity()
{
    QCOMPARE(installation(20, 11, 1, -1, x64, QStringLiteral("Progress")).versionArchText(),
             QStringLiteral("20.11.1 Progress (x64-win64)"));
}

void HalconInstallationTest::archRank_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<int>("rank");

    QTest::newRow("64-bit") << x64 << 3;
    QTest::newRow("SSE2") << sse2 << 2;
    QTest::newRow("32-bit") << x86 << 1;
    QTest::newRow("other case") << "X64-win64" << 0;
    QTest::newRow("beginning only") << "x64" << 0;
    QTest::newRow("empty") << "" << 0;
}

void HalconInstallationTest::archRank()
{
    QFETCH(QString, arch);
    QTEST(::archRank(arch), "rank");
}

void HalconInstallationTest::ordering_data()
{
    QTest::addColumn<QList<HalconInstallation>>("installations");
    QTest::addColumn<QStringList>("ordered");

    using List = QList<HalconInstallation>;
    QTest::newRow("none") << List() << QStringList();
    QTest::newRow("numbers, not text")
        << List{installation(18, 11, -1, -1, x64), installation(10, 0, -1, -1, x64),
                installation(9, 0, -1, -1, x64)}
        << QStringList{"9.0 (x64-win64)", "10.0 (x64-win64)", "18.11 (x64-win64)"};
    QTest::newRow("architectures of one version")
        << List{installation(12, 0, 3, 0, x64), installation(12, 0, 3, 0, x86),
                installation(12, 0, 3, 0, sse2)}
        << QStringList{"12.0.3 (x86-win32)", "12.0.3 (x86sse2-win32)", "12.0.3 (x64-win64)"};
    QTest::newRow("version before architecture")
        << List{installation(13, 0, 0, 0, x86), installation(12, 0, 0, 0, x64)}
        << QStringList{"12.0.0 (x64-win64)", "13.0.0 (x86-win32)"};
    QTest::newRow("minor versions") << List{installation(20, 11, 0, 0, x64), installation(20, 5, 0, 0, x64)}
                                    << QStringList{"20.5.0 (x64-win64)", "20.11.0 (x64-win64)"};
    QTest::newRow("suffixes by text")
        << List{installation(20, 11, -1, -1, x64, "Steady"), installation(20, 11, -1, -1, x64, "Progress")}
        << QStringList{"20.11 Progress (x64-win64)", "20.11 Steady (x64-win64)"};
    QTest::newRow("revisions by text")
        << List{installation(20, 11, 9, 0, x64), installation(20, 11, 10, 0, x64)}
        << QStringList{"20.11.10 (x64-win64)", "20.11.9 (x64-win64)"};
    QTest::newRow("unknown revision is another identity than 0")
        << List{installation(20, 11, 0, -1, x64, "X"), installation(20, 11, -1, -1, x64, "X")}
        << QStringList{"20.11 X (x64-win64)", "20.11.0 X (x64-win64)"};
    QTest::newRow("duplicates that are apart")
        << List{installation(13, 0, 0, 0, x64), installation(12, 0, 0, 0, x64),
                installation(13, 0, 0, 0, x64)}
        << QStringList{"12.0.0 (x64-win64)", "13.0.0 (x64-win64)"};
    QTest::newRow("suffixes by code unit")
        << List{installation(20, 11, -1, -1, x64, "\uff5e"), installation(20, 11, -1, -1, x64, "\u00e4"),
                installation(20, 11, -1, -1, x64, "\U0001f52c"), installation(20, 11, -1, -1, x64, "a"),
                installation(20, 11, -1, -1, x64, "Z")}
        << QStringList{"20.11 Z (x64-win64)", "20.11 a (x64-win64)", "20.11 \u00e4 (x64-win64)",
                       "20.11 \U0001f52c (x64-win64)", "20.11 \uff5e (x64-win64)"};
    QTest::newRow("suffixes that differ in case are two")
        << List{installation(20, 11, -1, -1, x64, "progress"), installation(20, 11, -1, -1, x64, "Progress")}
        << QStringList{"20.11 Progress (x64-win64)", "20.11 progress (x64-win64)"};
    QTest::newRow("unknown architecture first")
        << List{installation(13, 0, 0, 0, x86), installation(13, 0, 0, 0, QStringLiteral("arm64"))}
        << QStringList{"13.0.0 (arm64)", "13.0.0 (x86-win32)"};
}

void HalconInstallationTest::ordering()
{
    QFETCH(QList<HalconInstallation>, installations);
    orderInstallations(installations);
    QTEST(identities(installations), "ordered");
}

/// An unstable sort shows only in lists of more than 16.
void HalconInstallationTest::longList()
{
    QList<HalconInstallation> installations;
    for (const int major : {12, 13}) {
        for (const QString &arch : {x86, sse2, x64}) {
            for (const char suffix : QByteArray("ABCDEFGH")) {
                installations.append(installation(major, 0, 1, 0, arch, QChar(suffix)));
            }
        }
    }
    const QStringList ordered = identities(installations);
    QCOMPARE(ordered.size(), 48);

    std::mt19937 generator;
    for (int round = 0; round < 10; ++round) {
        std::shuffle(installations.begin(), installations.end(), generator);
        orderInstallations(installations);
        QCOMPARE(identities(installations), ordered);
    }
}

void HalconInstallationTest::equalIdentityOccursOnce()
{
    HalconInstallation here = installation(20, 11, 1, 3, x64);
    here.installDir = QStringLiteral("C:\\here");
    HalconInstallation there = here;
    there.installDir = QStringLiteral("C:\\there");

    QList<HalconInstallation> installations{here, there};
    orderInstallations(installations);

    QCOMPARE(installations.size(), 1);
    const QStringList eitherOne{here.installDir, there.installDir};
    QVERIFY(eitherOne.contains(installations.first().installDir));
}

QTEST_GUILESS_MAIN(HalconInstallationTest)

#include "HalconInstallationTest.moc"
