#include "card/DetailsHtml.h"
#include "tests/support/Rows.h"

class DetailsHtmlTest : public QObject {
    Q_OBJECT

private slots:
    void directories_data()
    {
        columns<bool, bool, QString>("installDirExists", "exampleRootExists", "html");

        const QString head = "<b>Details:</b><br>Version: <b>20.11.1 Progress</b><br>InstallDir: ";
        const QString link =
            R"(<b><a href="file:///%1"><span style="text-decoration: underline; color:#0000ff;">)";
        const QString installLink = link.arg("installDir") + R"(C:\H %1</span></a></b>)";
        const QString installMissing = R"(C:\H %1 <span style="color:#ff0000;"><b>(not found)</b></span>)";
        const QString exampleLink = link.arg("exampleRoot") + R"(D:\E</span></a></b>)";
        const QString exampleMissing = R"(D:\E <span style="color:#ff0000;">(not found)</span>)";
        const QString middle = "<br>ExampleRoot: ";

        row("both", true, true, head + installLink + middle + exampleLink);
        row("no installation", false, true, head + installMissing + middle + exampleLink);
        row("no examples", true, false, head + installLink + middle + exampleMissing);
        row("neither", false, false, head + installMissing + middle + exampleMissing);
    }

    void directories()
    {
        HalconInstallation installation(20, 11, 1, 0);
        installation.setSuffix("Progress");
        // What looks like a placeholder stays.
        installation.installDir = "C:\\H %1";
        installation.setExampleRoot("D:\\E");
        QFETCH(bool, installDirExists);
        QFETCH(bool, exampleRootExists);
        QTEST(detailsHtml(installation, installDirExists, exampleRootExists), "html");
    }

    void directoryIsNoHtml()
    {
        HalconInstallation installation(20, 11, 1, 0);
        installation.installDir = R"(C:\R&D <img src="//server/share/1.png">)";
        installation.setExampleRoot(R"(D:\&lt;E</b></body>)");
        for (const bool exists : {true, false}) {
            const QString html = detailsHtml(installation, exists, exists);
            QVERIFY(html.contains("C:\\R&amp;D &lt;img src=&quot;//server/share/1.png&quot;&gt;"));
            QVERIFY(html.contains("D:\\&amp;lt;E&lt;/b&gt;&lt;/body&gt;"));
        }
    }
};

QTEST_GUILESS_MAIN(DetailsHtmlTest)
#include "DetailsHtmlTest.moc"
