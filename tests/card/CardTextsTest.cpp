#include "card/CardTexts.h"

#include <QtTest>

class CardTextsTest : public QObject {
    Q_OBJECT

private slots:
    void colour_data();
    void colour();
    void styleSheet();
    void major_data();
    void major();
    void badge_data();
    void badge();
    void xlBadge();
    void details_data();
    void details();
    void directoryIsNoHtml_data();
    void directoryIsNoHtml();
    void architectureFilter_data();
    void architectureFilter();
    void visualStudioRows();
};

void CardTextsTest::colour_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<QString>("colour");

    QTest::newRow("6") << 6 << "#ffebbd";
    QTest::newRow("7") << 7 << "#ffebbd";
    QTest::newRow("8") << 8 << "#ccffbd";
    QTest::newRow("9") << 9 << "#fefbbe";
    QTest::newRow("10") << 10 << "#fed6be";
    QTest::newRow("11") << 11 << "#ffbdbd";
    QTest::newRow("12") << 12 << "#f3bffd";
    QTest::newRow("13") << 13 << "#c6bdff";
    QTest::newRow("14") << 14 << "#bee1fe";
    QTest::newRow("15") << 15 << "#ffebbd";
    QTest::newRow("20") << 20 << "#ffebbd";
    QTest::newRow("unknown") << -1 << "#ffebbd";
}

void CardTextsTest::colour()
{
    QFETCH(int, major);
    QTEST(cardColour(major), "colour");
}

void CardTextsTest::styleSheet()
{
    QCOMPARE(
        cardStyleSheet("#f3bffd"),
        QString(
            R"(SingleHalconVersionFrame {  background-color: #f3bffd;  border: 2px solid  black;}QGroupBox {  border: 1px solid gray;}QPushButton:focus.myPushButton {  border: none;  outline: none;}QPushButton#pbMajor {  font: bold 64pt "Consolas"; background-color: #33FF0000; border: none;}QPushButton#pbHelp::menu-indicator {    image: none;}QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}QTextBrowser#textBrowser {  font: small "Consolas";  border: 1px solid gray;})"));
}

void CardTextsTest::major_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("text");

    QTest::newRow("old") << 12 << 0 << ""
                         << "12";
    QTest::newRow("old Progress") << 13 << 0 << "Progress"
                                  << "13.0";
    QTest::newRow("old with another suffix") << 13 << 0 << "Steady"
                                             << "13";
    QTest::newRow("suffix in another case") << 13 << 0 << "progress"
                                            << "13";
    QTest::newRow("last without minor") << 16 << 5 << ""
                                        << "16";
    QTest::newRow("first with minor") << 17 << 12 << ""
                                      << "17.12";
    QTest::newRow("new") << 20 << 11 << "Progress"
                         << "20.11";
    QTest::newRow("new, minor of one digit") << 20 << 5 << ""
                                             << "20.05";
    QTest::newRow("first with minor, of one digit") << 17 << 0 << "Progress"
                                                    << "17.00";
    QTest::newRow("last with a minor of one digit") << 16 << 5 << "Progress"
                                                    << "16.5";
}

void CardTextsTest::major()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(QString, suffix);
    HalconInstallation installation(major, minor, -1, -1);
    installation.setSuffix(suffix);
    QTEST(majorText(installation), "text");
}

void CardTextsTest::badge_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("background");
    QTest::addColumn<QString>("border");

    QTest::newRow("x64") << "x64-win64"
                         << "x64"
                         << "#CCFF0000"
                         << "#FFFF0000";
    QTest::newRow("SSE2") << "x86sse2-win32"
                          << "x86sse2"
                          << "#CC0000FF"
                          << "#FF0000FF";
    QTest::newRow("x86") << "x86-win32"
                         << "x86"
                         << "#CC00FF00"
                         << "#FF00FF00";
    QTest::newRow("other") << "arm-a-win64"
                           << "arm-a"
                           << "#CCFF0000"
                           << "#FFFF0000";
    QTest::newRow("nothing to cut off") << "x64"
                                        << "x64"
                                        << "#CCFF0000"
                                        << "#FFFF0000";
}

void CardTextsTest::badge()
{
    QFETCH(QString, arch);
    QFETCH(QString, background);
    QFETCH(QString, border);
    QTEST(architectureBadgeText(arch), "text");
    QCOMPARE(architectureBadgeStyleSheet(arch),
             "background-color: " + background + "; border: 1px solid " + border +
                 "; color: white; font: bold; margin: 5px; padding: 1px 3px; ");
}

void CardTextsTest::xlBadge()
{
    QCOMPARE(
        xlBadgeStyleSheet(),
        QString("QPushButton {background-color: #CC00FF00; border: 1px solid #FF00FF00; color: white; font: "
                "bold; margin: 5px; padding: 1px 3px; }"));
}

void CardTextsTest::details_data()
{
    QTest::addColumn<bool>("installDirExists");
    QTest::addColumn<bool>("exampleRootExists");
    QTest::addColumn<QString>("html");

    const QString head = "<b>Details:</b><br>Version: <b>20.11.1 Progress</b><br>InstallDir: ";
    const QString installLink = R"(<b><a href="file:///installDir"><span style="text-decoration: underline; )"
                                R"(color:#0000ff;">C:\H %1</span></a></b>)";
    const QString installMissing = R"(C:\H %1 <span style="color:#ff0000;"><b>(not found)</b></span>)";
    const QString exampleLink =
        R"(<b><a href="file:///exampleRoot"><span style="text-decoration: underline; )"
        R"(color:#0000ff;">D:\E</span></a></b>)";
    const QString exampleMissing = R"(D:\E <span style="color:#ff0000;">(not found)</span>)";
    const QString middle = "<br>ExampleRoot: ";

    QTest::newRow("both") << true << true << head + installLink + middle + exampleLink;
    QTest::newRow("no installation") << false << true << head + installMissing + middle + exampleLink;
    QTest::newRow("no examples") << true << false << head + installLink + middle + exampleMissing;
    QTest::newRow("neither") << false << false << head + installMissing + middle + exampleMissing;
}

void CardTextsTest::details()
{
    HalconInstallation installation(20, 11, 1, 0);
    installation.setSuffix("Progress");
    // The arguments are inserted one after the other, but what looks like an earlier placeholder stays.
    installation.installDir = "C:\\H %1";
    installation.setExampleRoot("D:\\E");
    QFETCH(bool, installDirExists);
    QFETCH(bool, exampleRootExists);
    QTEST(detailsHtml(installation, installDirExists, exampleRootExists), "html");
}

void CardTextsTest::directoryIsNoHtml_data()
{
    QTest::addColumn<bool>("exists");

    QTest::newRow("existing") << true;
    QTest::newRow("missing") << false;
}

void CardTextsTest::directoryIsNoHtml()
{
    HalconInstallation installation(20, 11, 1, 0);
    installation.installDir = R"(C:\R&D <img src="//server/share/1.png">)";
    installation.setExampleRoot(R"(D:\&lt;E</b></body>)");
    QFETCH(bool, exists);
    const QString html = detailsHtml(installation, exists, exists);
    QVERIFY(html.contains("C:\\R&amp;D &lt;img src=&quot;//server/share/1.png&quot;&gt;"));
    QVERIFY(html.contains("D:\\&amp;lt;E&lt;/b&gt;&lt;/body&gt;"));
}

void CardTextsTest::architectureFilter_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<QStringList>("editions");

    QTest::newRow("x64") << "x64-win64" << QStringList{"b", "d"};
    QTest::newRow("x86") << "x86-win32" << QStringList{"a", "e"};
    QTest::newRow("SSE2") << "x86sse2-win32" << QStringList{"a", "e"};
}

void CardTextsTest::architectureFilter()
{
    const auto version = [](const QString &edition, const QString &architecture) {
        VisualStudioVersion result;
        result.edition = edition;
        result.architecture = architecture;
        return result;
    };
    const QList<VisualStudioVersion> all{version("a", "x86"), version("b", "amd64"), version("c", ""),
                                         version("d", "AMD64"), version("e", "x86")};
    QFETCH(QString, arch);
    QStringList editions;
    for (const VisualStudioVersion &kept : versionsForArchitecture(all, arch)) {
        editions.append(kept.edition);
    }
    QTEST(editions, "editions");
}

void CardTextsTest::visualStudioRows()
{
    const auto version = [](const QString &edition, const QString &architecture, const QString &idePath) {
        VisualStudioVersion result;
        result.version = "14.0";
        result.edition = edition;
        result.architecture = architecture;
        result.idePath = idePath;
        return result;
    };
    const QStringList rows = ::visualStudioRows({
        version("a", "", "C:/a"),
        version("b", "", "C:/a"),
        version("c", "amd64", "C:/a"),
        version("d", "", "C:/d"),
        version("e", "", ""),
        version("f", "", ""),
    });
    QCOMPARE(rows, (QStringList{"Visual Studio 14.0 (a)", "Visual Studio 14.0 (c) (amd64)",
                                "Visual Studio 14.0 (d)", "Visual Studio 14.0 (e)"}));
}

QTEST_GUILESS_MAIN(CardTextsTest)

#include "CardTextsTest.moc"
