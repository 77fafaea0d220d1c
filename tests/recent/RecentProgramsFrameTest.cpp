#include "recent/RecentProgramsFrame.h"
#include "recent/HtmlDelegate.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"
#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QScrollBar>
#include <QTextDocument>
#include <QtTest>

class RecentProgramsFrameTest : public QObject {
    Q_OBJECT

private slots:
    void form()
    {
        RecentProgramsFrame frame;
        QVERIFY(qobject_cast<HtmlDelegate *>(list(frame)->itemDelegate()) != nullptr);
        COMPARE_SNAPSHOT(describeForm(frame), "RecentProgramsFrame.tree");
    }

    void models()
    {
        settings.writePrograms({"C:\\a.hdev", "C:\\b.hdev"});
        const RecentProgramsFrame frame;
        const QSortFilterProxyModel *shown = shownModel(frame);
        QCOMPARE(shown->sortRole(), Qt::UserRole + 1);
        QCOMPARE(shown->sortColumn(), 0);
        QCOMPARE(shown->sortOrder(), Qt::DescendingOrder);
        for (const QAbstractItemModel *model : {list(frame)->model(), shown->sourceModel()}) {
            QCOMPARE(model->columnCount(), 1);
            QCOMPARE(model->rowCount(), 2);
            QVERIFY(!model->hasChildren(model->index(0, 0)));
            QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QString("Recent"));
        }
    }

    void searchLineHasTheFocus()
    {
        QWidget window;
        const RecentProgramsFrame frame(&window);
        QCOMPARE(frame.focusWidget(), searchLine(frame));
        QCOMPARE(window.focusWidget(), searchLine(frame));
    }

    void rows_data()
    {
        const auto row =
            columns<QByteArray, QStringList, QStringList, QStringList>("contents", "paths", "texts", "keys");

        row("several", "RecentPrograms=C:\\a.hdev, D:/b.hdev,\"C:\\c, d.hdev\"\r\n",
            {"C:\\a.hdev", "D:/b.hdev", "C:\\c, d.hdev"}, {"C:\\a.hdev", "D:\\b.hdev", "C:\\c, d.hdev"},
            {"0", "-1", "-2"});
        row("signs", "RecentPrograms=C:\\a & <b>.hdev,C:\\%1 &amp;.hdev\r\n",
            {"C:\\a & <b>.hdev", "C:\\%1 &amp;.hdev"},
            {"C:\\a &amp; &lt;b&gt;.hdev", "C:\\%1 &amp;amp;.hdev"}, {"0", "-1"});
        row("empty entries", "RecentPrograms=,a,,b\r\n", {"", "a", "", "b"}, {"", "a", "", "b"},
            {"0", "-1", "-2", "-3"});
        row("no line with programs", "Other=1\r\n", {""}, {""}, {"0"});
        row("no entry", "RecentPrograms=\"\r\n", {}, {}, {});
    }

    void rows()
    {
        QFETCH(QByteArray, contents);
        settings.write(contents);
        const RecentProgramsFrame frame;
        QTEST(shownPaths(frame), "paths");
        QTEST(shownTexts(frame), "texts");
        QTEST(shownKeys(frame), "keys");
        QTEST(rowsOf(*settingsModel(frame), pathRole), "paths");
    }

    void longPathsFit_data()
    {
        columns<bool>("inCapitals");

        row("searched for as it is", false);
        row("searched for in capitals", true);
    }

    void longPathsFit()
    {
        QFETCH(bool, inCapitals);
        const QString path = "C:/" + QString("a long directory name/").repeated(20) + "a.hdev";
        settings.writePrograms({"C:/a.hdev", path, "C:/b.hdev"});
        Shown<RecentProgramsFrame> frame;
        const int lineHeight = list(frame)->visualRect(shownModel(frame)->index(0, 0)).height();

        // The whole row matches, and bold letters are wider.
        const QString search = QString(path).replace('/', '\\');
        searchLine(frame)->setText(inCapitals ? search.toUpper() : search);

        QTextDocument document;
        document.setDefaultFont(list(frame)->font());
        document.setHtml(shownTexts(frame).constFirst());
        const QRect row = list(frame)->visualRect(shownModel(frame)->index(0, 0));
        QVERIFY2(row.width() >= int(document.idealWidth()),
                 qPrintable(QString("%1 < %2").arg(row.width()).arg(document.idealWidth())));
        QCOMPARE(row.height(), lineHeight);
        // Rows wider than the frame can be scrolled.
        EVENTUALLY_VERIFY(list(frame)->horizontalScrollBar()->maximum() > 0);
    }

    void updateRecent()
    {
        settings.writePrograms({"C:\\a.hdev", "C:\\b.hdev", "C:\\c.hdev"});
        RecentProgramsFrame frame;

        settings.writePrograms({"C:\\b.hdev", "C:\\d.hdev"});
        frame.update_recent();
        QCOMPARE(shownPaths(frame), (QStringList{"C:\\b.hdev", "C:\\d.hdev"}));
        QCOMPARE(shownKeys(frame), (QStringList{"0", "-1"}));
        QVERIFY(!shownModel(frame)->index(1, 0).flags().testFlag(Qt::ItemIsEditable));

        QVERIFY(QFile::remove(settings.file()));
        frame.update_recent();
        // Nothing to mark, no crash.
        searchLine(frame)->setText("hdev");
        QCOMPARE(shownModel(frame)->rowCount(), 0);

        // The search is that of the search line.
        settings.writePrograms({"C:\\a.txt", "C:\\a.hdev", "C:\\hdev\\a.hdev"});
        frame.update_recent();
        QCOMPARE(shownTexts(frame), (QStringList{"C:\\" + marked("hdev") + "\\a." + marked("hdev"),
                                                 "C:\\a." + marked("hdev"), "C:\\a.txt"}));
        QCOMPARE(shownKeys(frame), (QStringList{"4", "2", "0"}));
        QCOMPARE(shownModel(frame)->headerData(0, Qt::Horizontal).toString(), QString("Recent"));
    }

    void developersSeeTheList()
    {
        settings.writePrograms({"C:/first.hdev", "C:/second.hdev"});
        const LogLines log;
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("first\\.hdev.*second\\.hdev"));
        RecentProgramsFrame frame;

        settings.writePrograms({"C:/third.hdev"});
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("third\\.hdev"));
        frame.update_recent();

        // Only in the message channel.
        QCOMPARE(log.lines(), QStringList());
    }

    void failuresAreSilent()
    {
        const LogLines log;
        const CaughtMessages messages;
        qunsetenv("APPDATA");
        RecentProgramsFrame frame;
        QCOMPARE(shownModel(frame)->rowCount(), 0);
        QCOMPARE(shownModel(frame)->headerData(0, Qt::Horizontal).toString(), QString("Recent"));
        searchLine(frame)->setText("a");
        frame.update_recent();
        QCOMPARE(shownModel(frame)->rowCount(), 0);
        settings.moveTo(settings.path(""));
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(messages.warnings(), QStringList());
    }

    void screenReadersGetNamesAndPaths()
    {
        settings.writePrograms({"C:\\a & b.hdev", "D:\\c.hdev"});
        Shown<RecentProgramsFrame> frame;
        QCOMPARE(accessibleControls(frame).join(", "),
                 QString("Search recent programs, OK, Recent programs"));
        searchLine(frame)->setText("HDEV");
        QVERIFY(shownTexts(frame).first().contains("<b>"));
        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(list(frame));
        QStringList spoken;
        for (int row = 0; row < 2; ++row) {
            spoken.append(table->tableInterface()->cellAt(row, 0)->text(QAccessible::Name));
        }
        QCOMPARE(spoken, (QStringList{"C:\\a & b.hdev", "D:\\c.hdev"}));
    }

    void translated()
    {
        const MarkingTranslator translator;
        const RecentProgramsFrame frame;
        QCOMPARE(shownModel(frame)->headerData(0, Qt::Horizontal).toString(), QString("[Recent]"));
        QCOMPARE(searchLine(frame)->placeholderText(), QString("[Search recent programs]"));
    }

private:
    HDevelopSettings settings;
};

QTEST_MAIN(RecentProgramsFrameTest)
#include "RecentProgramsFrameTest.moc"
