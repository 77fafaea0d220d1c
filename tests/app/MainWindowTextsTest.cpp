#include "app/MainWindowTexts.h"
#include "base/ApplicationIdentity.h"
#include "base/MakerAddresses.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/ProjectVersion.h"
#include "tests/support/RichText.h"
#include "update/HalconReleases.h"
#include "update/OwnRelease.h"

#include <QtTest>

class MainWindowTextsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }

    void identity()
    {
        QCOMPARE(QApplication::applicationName(), QString("Corvanta for HALCON"));
        QCOMPARE(QApplication::applicationDisplayName(), QString("Corvanta for HALCON"));
        QCOMPARE(QApplication::applicationVersion(), projectVersion());
        QCOMPARE(QApplication::organizationName(), QString("Quorvik Solutions"));
        QCOMPARE(QApplication::organizationDomain(), MakerAddresses::webDomain());
    }

    void addresses()
    {
        const QString home = "http://www." + MakerAddresses::webDomain() + "/";
        QCOMPARE(MakerAddresses::homePage(), home);
        QCOMPARE(MakerAddresses::contactPage(), home + "contact/");
        QVERIFY(MakerAddresses::shop().startsWith("http://www."));
        QVERIFY(MakerAddresses::shop().endsWith("/"));
        QVERIFY(MakerAddresses::velloxaDownloads().startsWith("http://www."));
        QVERIFY(MakerAddresses::velloxaDownloads().endsWith("/downloads.html"));
        QVERIFY(MakerAddresses::feedbackAddress().contains("@"));
    }

    void placesAreFilledInTurn()
    {
        QCOMPARE(filledFooter("%1|%2|%3|%3|%4|%5"),
                 "Quorvik Solutions Corvanta for HALCON|" + projectVersion() + "|http://www." +
                     MakerAddresses::webDomain() + "/|http://www." + MakerAddresses::webDomain() + "/|" +
                     MakerAddresses::shop() + "|Corvanta%20for%20HALCON%20" + projectVersion());
    }

    void browserHtmlServesAsTemplate()
    {
        QTextDocument document;
        document.setHtml(footerTemplate());
        document.setHtml(filledFooter(document.toHtml()));
        const auto link = [](const QString &text, const QString &target) {
            return '"' + text + "\" underlined #0000ff -> " + target;
        };
        QCOMPARE(
            richTextRuns(document).join('\n'),
            (QStringList{
                 "\"Quorvik Solutions Corvanta for HALCON (" + projectVersion() +
                     ") - Please find more information about our HALCON services at \"",
                 link(MakerAddresses::homePage(), MakerAddresses::homePage()), "\" or our products at \"",
                 link(MakerAddresses::shop(), MakerAddresses::shop()), "\". We are happy to receive \"",
                 link("feedback", "mailto:" + MakerAddresses::feedbackAddress() +
                                      "?subject=Feedback Corvanta%20for%20HALCON%20" + projectVersion()),
                 "\" from you.\""})
                .join('\n'));
        QCOMPARE(document.firstBlock().begin().fragment().charFormat().fontPointSize(), 8.0);
    }

    void noInstallation()
    {
        const QString contact = MakerAddresses::contactPage();
        QCOMPARE(
            noInstallationHtml(),
            "Could not find any HALCON installation. Please install HALCON first.<br><br><hr><small>If you "
            "think this is an error in this program, please contact us via<br><a href=\"" +
                contact + "\">" + contact + "</a>.</small>");
    }

    void translated()
    {
        const MarkingTranslator translator;
        QVERIFY(noInstallationHtml().startsWith("[Could not find any HALCON installation."));
        QVERIFY(footerTemplate().contains(
            ">[%1 (%2) - Please find more information about our HALCON services at ]<"));
        QVERIFY(footerTemplate().contains(">[feedback]<"));
        QVERIFY(ownReleaseHtml({1, 9, QString()}, "1.8")
                    .startsWith("[An updated version of Corvanta for HALCON"));
        const QString line = updateLine(HalconInstallation(20, 11, 2, 0), "http://x.example/");
        QVERIFY(line.startsWith("Latest version: 20.11.2 <a "));
        QVERIFY(line.contains(">[Update available!]<"));
    }
};

QTEST_MAIN(MainWindowTextsTest)
#include "MainWindowTextsTest.moc"
