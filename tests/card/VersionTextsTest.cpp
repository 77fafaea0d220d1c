#include "card/VersionTexts.h"
#include "tests/support/Rows.h"

class VersionTextsTest : public QObject {
    Q_OBJECT

private slots:
    void major_data()
    {
        columns<int, int, QString, QString>("major", "minor", "suffix", "text");

        row("old", 12, 0, "", "12");
        row("old Progress", 13, 0, "Progress", "13.0");
        row("old with another suffix", 13, 0, "Steady", "13");
        row("suffix in another case", 13, 0, "progress", "13");
        row("last without minor", 16, 5, "", "16");
        row("last with a minor of one digit", 16, 5, "Progress", "16.5");
        row("first with minor", 17, 12, "", "17.12");
        row("first with minor, of one digit", 17, 0, "Progress", "17.00");
        row("new", 20, 11, "Progress", "20.11");
    }

    void major()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(QString, suffix);
        HalconInstallation installation(major, minor, -1, -1);
        installation.setSuffix(suffix);
        QTEST(majorText(installation), "text");
    }

    void badge_data()
    {
        columns<QString, QString>("arch", "text");

        row("64-bit", "x64-win64", "x64");
        row("SSE2", "x86sse2-win32", "x86sse2");
        row("hyphen before the last", "arm-a-win64", "arm-a");
        row("nothing to cut off", "x64", "x64");
    }

    void badge()
    {
        QFETCH(QString, arch);
        QTEST(architectureBadgeText(arch), "text");
    }
};

QTEST_GUILESS_MAIN(VersionTextsTest)
#include "VersionTextsTest.moc"
