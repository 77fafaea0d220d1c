#include "recent/RecentProgramsFrame.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Rows.h"

#include <QSignalBlocker>
#include <QtTest>

class RecentProgramsSearchTest : public QObject {
    Q_OBJECT

private slots:
    void order_data()
    {
        const auto row =
            columns<QStringList, QString, QStringList, QStringList>("paths", "search", "shown", "keys");

        row("two matches above one, none below, in the order of the settings",
            {"C:/z.txt", "C:/a.hdev", "C:/hdev/a.hdev", "C:/a.txt"}, "hdev",
            {"C:/hdev/a.hdev", "C:/a.hdev", "C:/z.txt", "C:/a.txt"}, {"6", "3", "0", "-3"});
        row("empty search", {"c", "a", "b"}, "", {"c", "a", "b"}, {"0", "-1", "-2"});
        row("by number, not by digits", {"x", "xx", "xxxxxxxxxxx"}, "x", {"xxxxxxxxxxx", "xx", "x"},
            {"31", "5", "3"});
    }

    void order()
    {
        QFETCH(QStringList, paths);
        QFETCH(QString, search);
        settings.writePrograms(paths);
        const RecentProgramsFrame frame;

        searchLine(frame)->setText(search);

        QTEST(shownPaths(frame), "shown");
        QTEST(shownKeys(frame), "keys");
    }

    void texts()
    {
        settings.writePrograms({"C:/a & b/<x>.txt", "C:/Programs/gauge.hdev"});
        const RecentProgramsFrame frame;

        searchLine(frame)->setText("& B");
        QCOMPARE(shownTexts(frame), (QStringList{R"(C:\a )" + marked("&amp; B") + R"(\&lt;x&gt;.txt)",
                                                 R"(C:\Programs\gauge.hdev)"}));
    }

    void changedAndCleared()
    {
        const QStringList paths{"c.txt", "b.hdev", "a.hdev", "hdev.hdev"};
        settings.writePrograms(paths);
        const RecentProgramsFrame frame;

        searchLine(frame)->setText("hdev");
        QCOMPARE(shownPaths(frame), (QStringList{"hdev.hdev", "b.hdev", "a.hdev", "c.txt"}));
        searchLine(frame)->setText("txt");
        QCOMPARE(shownPaths(frame), (QStringList{"c.txt", "b.hdev", "a.hdev", "hdev.hdev"}));
        QCOMPARE(shownTexts(frame), (QStringList{"c." + marked("txt"), "b.hdev", "a.hdev", "hdev.hdev"}));
        searchLine(frame)->setText("a.");
        QCOMPARE(shownPaths(frame), (QStringList{"a.hdev", "c.txt", "b.hdev", "hdev.hdev"}));
        searchLine(frame)->clear();
        QCOMPARE(shownPaths(frame), paths);
        QCOMPARE(shownTexts(frame), paths);
        QCOMPARE(shownKeys(frame), (QStringList{"0", "-1", "-2", "-3"}));
    }

    void textOfTheSearchLineCounts()
    {
        settings.writePrograms({"a.txt", "b.hdev"});
        RecentProgramsFrame frame;

        frame.highlight_matching("hdev");
        QCOMPARE(shownTexts(frame), (QStringList{"a.txt", "b.hdev"}));
        {
            const QSignalBlocker blocker(searchLine(frame));
            searchLine(frame)->setText("hdev");
        }
        QCOMPARE(shownTexts(frame), (QStringList{"a.txt", "b.hdev"}));
        frame.highlight_matching("txt");
        QCOMPARE(shownTexts(frame), (QStringList{"b." + marked("hdev"), "a.txt"}));
    }

    void itemsStayInTheModel()
    {
        const QStringList paths{"c.txt", "b.hdev", "hdev.hdev"};
        settings.writePrograms(paths);
        const RecentProgramsFrame frame;
        QStandardItem *item = settingsModel(frame)->item(1);

        searchLine(frame)->setText("hdev");

        QCOMPARE(rowsOf(*settingsModel(frame), pathRole), paths);
        QCOMPARE(rowsOf(*settingsModel(frame), sortKeyRole), (QStringList{"0", "2", "4"}));
        QCOMPARE(settingsModel(frame)->item(1), item);
        QVERIFY(!item->isEditable());
    }

private:
    HDevelopSettings settings;
};

QTEST_MAIN(RecentProgramsSearchTest)
#include "RecentProgramsSearchTest.moc"
