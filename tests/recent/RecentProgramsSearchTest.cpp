#include "recent/RecentProgramsFrame.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"

#include <QSignalBlocker>
#include <QtTest>

namespace {

/// How a match is shown.
QString marked(const QString &text)
{
    return "<b><font color='red'>" + text + "</font></b>";
}

} // namespace

class RecentProgramsSearchTest : public QObject {
    Q_OBJECT

private slots:
    void order_data();
    void order();
    void texts();
    void rolesFollowTheRows();
    void changedAndCleared();
    void typed();
    void textOfTheSearchLineCounts();
    void settingsOrderStaysInTheModel();
    void otherDataIsKept();
    void selectionStaysWithItsProgram();

private:
    HDevelopSettings settings;
};

void RecentProgramsSearchTest::order_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("search");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("keys");

    QTest::newRow("two matches above one, none below, in the order of the settings")
        << QStringList{"C:/z.txt", "C:/a.hdev", "C:/hdev/a.hdev", "C:/a.txt"} << "hdev"
        << QStringList{"C:/hdev/a.hdev", "C:/a.hdev", "C:/z.txt", "C:/a.txt"}
        << QStringList{"6", "3", "0", "-3"};
    QTest::newRow("as many matches") << QStringList{"c.hdev", "a.hdev", "b.hdev"} << "hdev"
                                     << QStringList{"c.hdev", "a.hdev", "b.hdev"}
                                     << QStringList{"3", "2", "1"};
    QTest::newRow("no matches") << QStringList{"c", "a", "b"} << "hdev" << QStringList{"c", "a", "b"}
                                << QStringList{"0", "-1", "-2"};
    QTest::newRow("empty search") << QStringList{"c", "a", "b"} << "" << QStringList{"c", "a", "b"}
                                  << QStringList{"0", "-1", "-2"};
    QTest::newRow("last one matches")
        << QStringList{"a", "b", "c"} << "C" << QStringList{"c", "a", "b"} << QStringList{"1", "0", "-1"};
    QTest::newRow("overlapping matches") << QStringList{"aa.aa", "b", "aaaa"} << "aa"
                                         << QStringList{"aaaa", "aa.aa", "b"} << QStringList{"7", "6", "-1"};
    QTest::newRow("by number, not by digits")
        << QStringList{"x", "xx", "xxxxxxxxxxx"} << "x" << QStringList{"xxxxxxxxxxx", "xx", "x"}
        << QStringList{"31", "5", "3"};
    QTest::newRow("ampersand") << QStringList{"a.hdev", "R&D", "a & b & c"} << "&"
                               << QStringList{"a & b & c", "R&D", "a.hdev"} << QStringList{"4", "2", "0"};
    QTest::newRow("less than") << QStringList{"a&b", "<", "<<"} << "<" << QStringList{"<<", "<", "a&b"}
                               << QStringList{"4", "2", "0"};
    QTest::newRow("empty rows stay below")
        << QStringList{"", "a", "", "aa"} << "a" << QStringList{"aa", "a", "", ""}
        << QStringList{"5", "3", "0", "-2"};
    QTest::newRow("not ASCII") << QStringList{"a", "\u00fcbung", "\u00dc\u00dc"} << "\u00dc"
                               << QStringList{"\u00dc\u00dc", "\u00fcbung", "a"}
                               << QStringList{"4", "2", "0"};
    QTest::newRow("longer than every path")
        << QStringList{"a", "b"} << "C:/Programs/a.hdev" << QStringList{"a", "b"} << QStringList{"0", "-1"};
    QTest::newRow("space") << QStringList{"a", "my a", "my own a"} << " "
                           << QStringList{"my own a", "my a", "a"} << QStringList{"4", "2", "0"};
}

void RecentProgramsSearchTest::order()
{
    QFETCH(QStringList, paths);
    QFETCH(QString, search);
    settings.writePrograms(paths);
    const RecentProgramsFrame frame;

    searchLine(frame)->setText(search);

    QTEST(shownPaths(frame), "shown");
    QTEST(shownKeys(frame), "keys");
}

void RecentProgramsSearchTest::texts()
{
    settings.writePrograms({"C:/a & b/<x>.txt", "C:/Programs/gauge.hdev"});
    const RecentProgramsFrame frame;

    searchLine(frame)->setText("PROG");
    QCOMPARE(shownTexts(frame), (QStringList{R"(C:\)" + marked("PROG") + R"(rams\gauge.hdev)",
                                             R"(C:\a &amp; b\&lt;x&gt;.txt)"}));
    searchLine(frame)->setText("& B");
    QCOMPARE(shownTexts(frame), (QStringList{R"(C:\a )" + marked("&amp; B") + R"(\&lt;x&gt;.txt)",
                                             R"(C:\Programs\gauge.hdev)"}));
    searchLine(frame)->setText("<");
    QCOMPARE(shownTexts(frame), (QStringList{R"(C:\a &amp; b\)" + marked("&lt;") + R"(x&gt;.txt)",
                                             R"(C:\Programs\gauge.hdev)"}));
}

void RecentProgramsSearchTest::rolesFollowTheRows()
{
    settings.writePrograms({"C:/a.txt", "C:/b.hdev"});
    const RecentProgramsFrame frame;

    searchLine(frame)->setText("hdev");

    const QModelIndex first = shownModel(frame)->index(0, 0);
    QCOMPARE(first.data(Qt::UserRole + 2).toString(), QString("C:/b.hdev"));
    QCOMPARE(first.data(Qt::UserRole + 1).toInt(), 1);
    QCOMPARE(first.data(Qt::DisplayRole).toString(), R"(C:\b.)" + marked("hdev"));
    QCOMPARE(first.data(Qt::EditRole).toString(), R"(C:\b.)" + marked("hdev"));
}

void RecentProgramsSearchTest::changedAndCleared()
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

void RecentProgramsSearchTest::typed()
{
    settings.writePrograms({"aba", "b", "ab"});
    RecentProgramsFrame frame;
    frame.show();

    QTest::keyClick(searchLine(frame), Qt::Key_B);
    QCOMPARE(shownTexts(frame), (QStringList{"a" + marked("b") + "a", marked("b"), "a" + marked("b")}));
    QTest::keyClick(searchLine(frame), Qt::Key_Backspace);
    QTest::keyClick(searchLine(frame), 'A', Qt::ShiftModifier);
    QCOMPARE(shownTexts(frame), (QStringList{marked("A") + "b" + marked("A"), marked("A") + "b", "b"}));
    QTest::keyClick(searchLine(frame), Qt::Key_Backspace);
    QCOMPARE(shownTexts(frame), (QStringList{"aba", "b", "ab"}));
}

void RecentProgramsSearchTest::textOfTheSearchLineCounts()
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

void RecentProgramsSearchTest::settingsOrderStaysInTheModel()
{
    const QStringList paths{"c.txt", "b.hdev", "hdev.hdev"};
    settings.writePrograms(paths);
    const RecentProgramsFrame frame;

    searchLine(frame)->setText("hdev");

    QCOMPARE(rowsOf(*settingsModel(frame), pathRole), paths);
    QCOMPARE(rowsOf(*settingsModel(frame), sortKeyRole), (QStringList{"0", "2", "4"}));
}

void RecentProgramsSearchTest::otherDataIsKept()
{
    settings.writePrograms({"c.txt", "b.hdev"});
    const RecentProgramsFrame frame;
    QStandardItem *item = settingsModel(frame)->item(1);

    searchLine(frame)->setText("hdev");

    QCOMPARE(settingsModel(frame)->item(1), item);
    QVERIFY(!item->isEditable());
    QCOMPARE(shownModel(frame)->headerData(0, Qt::Horizontal).toString(), QString("Recent"));
}

void RecentProgramsSearchTest::selectionStaysWithItsProgram()
{
    settings.writePrograms({"c.txt", "b.txt", "a.hdev"});
    const RecentProgramsFrame frame;
    list(frame)->setCurrentIndex(shownModel(frame)->index(1, 0));

    searchLine(frame)->setText("hdev");

    QCOMPARE(list(frame)->currentIndex().data(pathRole).toString(), QString("b.txt"));
    QCOMPARE(list(frame)->currentIndex().row(), 2);
    QCOMPARE(list(frame)->selectionModel()->selectedRows(), QModelIndexList{list(frame)->currentIndex()});
}

QTEST_MAIN(RecentProgramsSearchTest)

#include "RecentProgramsSearchTest.moc"
