#include "card/CardDetails.h"
#include "base/MakerAddresses.h"
#include "tests/support/Desktop.h"
#include "tests/support/Installations.h"
#include "tests/support/RichText.h"
#include "tests/support/Rows.h"

#include <QTemporaryDir>
#include <QTextBrowser>

class CardDetailsTest : public QObject {
    Q_OBJECT

private slots:
    void directories()
    {
        // Of the two remarks only the first is bold.
        const QMap<QString, QStringList> pathsWith{
            {"HALCON",
             {"\"\nInstallDir: \"", "\"D:/HALCON\" bold underlined #0000ff -> file:///installDir",
              "\"\nExampleRoot: D:/examples \"", "\"(not found)\" #ff0000"}},
            {"examples",
             {"\"\nInstallDir: D:/HALCON \"", "\"(not found)\" bold #ff0000", "\"\nExampleRoot: \"",
              "\"D:/examples\" bold underlined #0000ff -> file:///exampleRoot"}},
        };
        const QTemporaryDir machine;
        QTextBrowser browser;
        for (const QString &there : pathsWith.keys()) {
            QVERIFY(QDir(machine.path()).mkdir(there));
            showDetails(installationIn(machine.filePath("HALCON"), "x64-win64", machine.filePath("examples")),
                        browser);
            QVERIFY(QDir(machine.path()).rmdir(there));

            const QStringList runs = richTextRuns(*browser.document()).replaceInStrings(machine.path(), "D:");
            QCOMPARE(runs, (QStringList{"\"Details:\" bold", "\"\nVersion: \"", "\"20.11.1.3\" bold"} +
                            pathsWith.value(there)));
        }
        QVERIFY(!browser.openLinks());
    }

    /// Each newer release replaces the one shown before; what is not newer changes nothing.
    void release()
    {
        const HalconInstallation installed = installationIn("C:\\H");
        QTextBrowser browser;
        showDetails(installed, browser);
        const QStringList before = richTextRuns(*browser.document());
        showRelease(HalconInstallation(20, 11, 1, 2), installed, browser);
        showRelease(installed, installed, browser);
        QCOMPARE(richTextRuns(*browser.document()), before);

        for (const HalconInstallation &latest :
             {HalconInstallation(20, 11, 2, 0), HalconInstallation(20, 11, 3, 0)}) {
            showRelease(latest, installed, browser);
            QCOMPARE(richTextRuns(*browser.document()).join('|'),
                     (before + QStringList{"\"Latest version: " + latest.versionText() + " \"",
                                           "\"Update available!\" bold underlined #ff0000 -> " +
                                               MakerAddresses::halconDownloads(),
                                           "\"\n\""})
                         .join('|'));
        }
        const QStringList newest = richTextRuns(*browser.document());
        showRelease(installed, installed, browser);
        QCOMPARE(richTextRuns(*browser.document()), newest);
    }

    void otherLinks_data()
    {
        columns<QUrl>("link");

        row("web", QUrl("http://corvanta.invalid/a%20b?c#d"));
        row("another word", QUrl("file:///licenseDir"));
        row("other letter case", QUrl("file:///installdir"));
        row("longer", QUrl("file:///installDir/"));
        row("deeper", QUrl("file:///C:/exampleRoot"));
    }

    void otherLinks()
    {
        QFETCH(QUrl, link);
        const Desktop desktop(link.scheme());
        openDetailsLink(link, installationIn("C:\\windows"));
        QCOMPARE(desktop.opened, QList<QUrl>{link});
    }
};

QTEST_MAIN(CardDetailsTest)
#include "CardDetailsTest.moc"
