#include "discovery/VersionNames.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

/// The result for a name as one line of text. Everything but the numbers and the suffix is empty or unknown.
QString meaning(const VersionName &version)
{
    if (!version.installation) {
        return version.matches ? "a number too large" : "no version";
    }
    const HalconInstallation &base = *version.installation;
    const bool restIsUnknown = base.revision == -1 && base.build == -1 && base.components.isEmpty() &&
                               (base.installDir + base.exampleRoot + base.arch).isEmpty();
    if (!version.matches || !restIsUnknown) {
        return "more than the name says";
    }
    return QString("%1 | %2 | %3").arg(base.major).arg(base.minor).arg(base.suffix);
}

} // namespace

class VersionNamesTest : public QObject {
    Q_OBJECT

private slots:
    void productKeyName_data()
    {
        columns<QString, QString>("name", "expected");

        row("hyphen and suffix", "20.11-Progress", "20 | 11 | Progress");
        row("numbers only", "13.0", "13 | 0 | ");
        row("suffix without hyphen", "20.11Progress", "20 | 11 | Progress");
        row("hyphen without suffix", "20.11-", "20 | 11 | ");
        row("third number ends the match", "12.0.1-Steady", "12 | 0 | ");
        row("space ends the match", "20.11 Progress", "20 | 11 | ");
        row("second hyphen ends the match", "20.11--Progress", "20 | 11 | ");
        row("hyphen ends the suffix", "20.11-Progress-Beta", "20 | 11 | Progress");
        row("characters of a suffix", "20.11-_0AZaz9_", "20 | 11 | _0AZaz9_");
        row("non-ASCII letter ends the suffix", "20.11-Pr\u00f6gress", "20 | 11 | Pr");
        row("leading text with a number", "HALCON-8-20.11-Steady", "20 | 11 | Steady");
        row("leading minus", "-20.11", "20 | 11 | ");
        row("first of two versions", "7.1 and 20.11-Progress", "7 | 1 | ");
        row("leading zeros", "007.011", "7 | 11 | ");
        row("ASCII digits before another digit", "20.11\u0967", "20 | 11 | ");
        row("largest numbers", "2147483647.2147483647-X", "2147483647 | 2147483647 | X");

        row("word", "Licenses", "no version");
        row("empty", "", "no version");
        row("one number", "20", "no version");
        row("no minor", "20.-Progress", "no version");
        row("no major", ".11", "no version");
        row("comma", "20,11", "no version");
        row("other digits than ASCII", "\u0968\u0966.\u0967\u0967", "no version");

        row("major beyond 32 bits", "2147483648.0", "a number too large");
        row("minor beyond 32 bits", "20.2147483648-Progress", "a number too large");
        row("beyond 64 bits", "99999999999999999999.11-Progress", "a number too large");
    }

    void productKeyName()
    {
        QFETCH(QString, name);
        QTEST(meaning(parseProductKeyName(name)), "expected");
    }

    void uninstallKeyName_data()
    {
        columns<QString, QString>("name", "expected");

        row("space and suffix", "MVTec HALCON 20.11 Progress", "20 | 11 | Progress");
        row("hyphen and suffix", "MVTec HALCON 20.11-Progress", "20 | 11 | Progress");
        row("space without suffix", "MVTec HALCON 13.0 ", "13 | 0 | ");
        row("hyphen without suffix", "MVTec HALCON 13.0-", "13 | 0 | ");
        row("space and hyphen", "MVTec HALCON 20.11 -Progress", "20 | 11 | ");
        row("characters of a suffix", "MVTec HALCON 20.11 _0AZaz9_", "20 | 11 | _0AZaz9_");
        row("parenthesis after the space", "MVTec HALCON 20.11 (x64)", "20 | 11 | ");
        row("text around", "New MVTec HALCON 22.11 Steady & Tools (\u00fc)", "22 | 11 | Steady");
        row("largest numbers", "MVTec HALCON 2147483647.2147483647 X", "2147483647 | 2147483647 | X");

        row("nothing after the minor", "MVTec HALCON 20.11", "no version");
        row("suffix directly after the minor", "MVTec HALCON 20.11Progress", "no version");
        row("third number", "MVTec HALCON 12.0.1 Steady", "no version");
        row("tab after the minor", "MVTec HALCON 20.11\tProgress", "no version");
        row("other case", "MVTEC Halcon 20.11 Progress", "no version");
        row("no vendor", "HALCON 20.11 Progress", "no version");
        row("two spaces", "MVTec HALCON  20.11 Progress", "no version");
        row("name of a product key", "20.11-Progress", "no version");
        row("empty", "", "no version");
        row("other digits than ASCII", "MVTec HALCON \u0968\u0966.\u0967\u0967 Progress", "no version");

        row("major beyond 32 bits", "MVTec HALCON 2147483648.0 X", "a number too large");
        row("minor beyond 32 bits", "MVTec HALCON 20.2147483648-X", "a number too large");
    }

    void uninstallKeyName()
    {
        QFETCH(QString, name);
        QTEST(meaning(parseUninstallKeyName(name)), "expected");
    }

    void rejection()
    {
        QCOMPARE(invalidVersionText("Licenses"),
                 QString("Licensesis not a valid HALCON version containing major.minor(-optionalstring)"));
    }
};

QTEST_GUILESS_MAIN(VersionNamesTest)

#include "VersionNamesTest.moc"
