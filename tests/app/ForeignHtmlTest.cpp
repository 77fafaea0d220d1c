#include "app/InertDocument.h"
#include "app/MessageDialog.h"
#include "tests/support/Desktop.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"

#include <QFile>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFrame>
#include <QTextTable>
#include <QToolTip>
#include <QtTest>

namespace {

/// Part of every name that must not be accessed. tests/app/opens-nothing searches a trace of the process for
/// it.
const QString mark = "evil-share";

/// Links of these kinds would go to the desktop.
const QStringList schemes{"http", "https", "mailto",     "file",        "qrc",
                          "ftp",  "foo",   "javascript", "ms-settings", ""};

QPoint middleOf(const QTextBrowser &browser, int position)
{
    QTextCursor cursor(browser.document());
    cursor.setPosition(position);
    const QRect before = browser.cursorRect(cursor);
    cursor.setPosition(position + 1);
    return (before.center() + browser.cursorRect(cursor).center()) / 2;
}

/// Adds to @p formats those of a frame, its cells, and all frames in it.
void addFormats(QList<QTextFormat> &formats, const QTextFrame &frame)
{
    formats.append(frame.frameFormat());
    if (const auto *table = qobject_cast<const QTextTable *>(&frame)) {
        for (int cell = 0; cell < table->rows() * table->columns(); ++cell) {
            formats.append(table->cellAt(cell / table->columns(), cell % table->columns()).format());
        }
    }
    for (const QTextFrame *child : frame.childFrames()) {
        addFormats(formats, *child);
    }
}

/// All formats that anything in the document has.
QList<QTextFormat> formatsOf(const QTextDocument &document)
{
    QList<QTextFormat> formats;
    addFormats(formats, *document.rootFrame());
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        formats += {block.blockFormat(), block.charFormat()};
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            formats.append(each.fragment().charFormat());
        }
    }
    return formats;
}

/// Moves the mouse over every character, waits for its tool tip, and clicks.
void useEverything(QTextBrowser &browser)
{
    for (int position = 0; position + 1 < browser.document()->characterCount(); ++position) {
        const QPoint point = middleOf(browser, position);
        QTest::mouseMove(browser.viewport(), point);
        QHelpEvent hover(QEvent::ToolTip, point, browser.viewport()->mapToGlobal(point));
        QApplication::sendEvent(browser.viewport(), &hover);
        QCOMPARE(QToolTip::text(), QString());
        QTest::mouseClick(browser.viewport(), Qt::LeftButton, Qt::NoModifier, point);
        QCoreApplication::processEvents();
    }
}

} // namespace

/// HTML from the network may only be read, and open web and mail links on a click.
class ForeignHtmlTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Proves that the trace would show an access.
        QVERIFY(!QFile::exists("/" + mark + "/control"));
    }

    void nothingIsLoaded_data()
    {
        columns<QString>("html");

        const auto row = [](const char *name, const QString &html) {
            QTest::newRow(name) << QString(html)
                                       .replace("SHARE", "file://" + mark + "/dir")
                                       .replace("NET", "//" + mark + "/dir")
                                       .replace("LOCAL", "/" + mark + "/dir");
        };
        row("image on a share", "a<img src='NET/1.png'>b");
        row("image by file address", "a<img src='SHARE/2.png'>b");
        row("image on this machine", "a<img src='LOCAL/3.png'>b");
        row("image on this machine by address", "a<img src='file://LOCAL/4.png'>b");
        row("image by relative path", "a<img src='" + mark + "/5.png'>b");
        row("several images", "a<img src='NET/6.png'><img src='NET/7.png'>b<br><img src='NET/8.png'>");
        row("floating image", "a<img style='float: left' src='NET/9.png'>b");
        row("image of a given size", "a<img width=10 height=10 src='NET/10.png'>b");
        row("image in a link", "a<a href='http://x.example/'><img src='NET/11.png'>b</a>");
        row("image in a list", "<ul><li>a<img src='NET/12.png'></li><li><img src='NET/13.png'>b</li></ul>");
        row("image in a table", "<table><tr><td>a<img src='NET/14.png'></td><td>b</td></tr></table>");
        row("image in a table in a table",
            "<table><tr><td><table><tr><td>a<img src='NET/15.png'></td></tr></table></td></tr></table>b");
        row("style sheet", "<link rel='stylesheet' type='text/css' href='NET/16.css'></link>ab");
        row("imported style sheet", "<style>@import url(SHARE/17.css);</style>ab");
        row("imported style sheet by string", "<style>@import 'SHARE/18.css';</style>ab");
        row("background of a paragraph", "<p style='background-image: url(SHARE/19.png)'>ab</p>");
        row("background of an empty paragraph", "ab<p style='background-image: url(SHARE/20.png)'></p>");
        row("background of words", "a<span style='background-image: url(SHARE/21.png)'>b</span>");
        row("background in short", "a<p style='background: url(SHARE/22.png)'>b</p>");
        row("background of the body", "<body background='NET/23.png'>ab</body>");
        row("background of a table", "<table background='NET/24.png'><tr><td>ab</td></tr></table>");
        row("background of a row",
            "<table><tr style='background-image: url(SHARE/25.png)'><td>ab</td></tr></table>");
        row("background of a cell", "<table><tr><td background='NET/26.png'>ab</td></tr></table>");
        row("background of a list", "<ul style='background-image: url(SHARE/27.png)'><li>ab</li></ul>");
        row("background by style sheet",
            "<style>p { background-image: url(SHARE/28.png); }</style><p>ab</p>");
        row("bullet", "<ul style='list-style-image: url(SHARE/29.png)'><li>ab</li></ul>");
        row("border", "<table style='border-image: url(SHARE/30.png)'><tr><td>ab</td></tr></table>");
        row("tool tip of a link", "a<a href='http://x.example/' title='<img src=\"NET/31.png\">'>b</a>");
        row("tool tip of words", "a<span title='<img src=\"NET/32.png\">'>b</span>");
        row("base address", "<base href='SHARE/'>a<img src='33.png'>b");
        row("frame", "a<iframe src='SHARE/34.html'></iframe>b");
        row("object", "a<object data='NET/35.png'></object>b");
        row("input", "a<input type='image' src='NET/36.png'>b");
        row("forwarding", "<meta http-equiv='refresh' content='0; url=SHARE/37.html'>ab");
    }

    void nothingIsLoaded()
    {
        const Desktop desktop(schemes);
        QFETCH(QString, html);
        const Shown<MessageDialog> dialog("<b>Before</b> " + html + " <i>after</i>");
        auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        QVERIFY2(!browser->toHtml().contains(mark), qPrintable(browser->toHtml()));
        for (const QTextFormat &format : formatsOf(*browser->document())) {
            QVERIFY(!format.hasProperty(QTextFormat::BackgroundImageUrl));
            QVERIFY(!format.hasProperty(QTextFormat::TextToolTip));
        }
        const QString text = browser->toPlainText();
        QVERIFY(!text.contains(QChar::ObjectReplacementCharacter));
        useEverything(*browser);
        QCOMPARE(browser->toPlainText(), text);
        for (const char *part : {"Before", "a", "b", "after"}) {
            QVERIFY2(text.contains(part), qPrintable(text));
        }
    }

    void costlyHtmlIsPlainText_data()
    {
        columns<QString, QString>("html", "text");

        const auto nested = [](int depth) {
            return QString("<table><tr><td>").repeated(depth) + "in it" +
                   QString("</td></tr></table>").repeated(depth);
        };
        row("tables in tables", nested(20), "in it");
        row("one table too many", nested(8), "in it");
        const auto unread = [](const char *name, const QString &html) { row(name, html, html); };
        unread("wide cell", "<table><tr><td colspan=2000>a</td></tr></table>");
        unread("high cell", "<table><tr><td ROWSPAN = '500'>a</td></tr></table>");
        unread("wide cell by entities", "<table><tr><td colspan=\"&#57;&#57;\">a</td></tr></table>");
        unread("many cells", "<table><tr>" + QString("<td>x</td>").repeated(99) + "</tr></table>");
        unread("many tags", QString("<b>x</b>").repeated(1001));
        const QString tags = QString("<b>x").repeated(29);
        const QString rules = QString("p,").repeated(1250);
        unread("long style sheet", "<STYLE>" + rules + "b { color: red }</STYLE>" + tags);
        unread("long style sheet without end", "<style></style><style>" + rules + tags);
        const QString tooLong = "<b>" + QString("long ").repeated(14000) + "</b>";
        row("long", tooLong, tooLong.left(65536));
    }

    void costlyHtmlIsPlainText()
    {
        QFETCH(QString, html);
        QFETCH(QString, text);
        const Shown<MessageDialog> dialog(html);
        const auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        QCOMPARE(browser->toPlainText().trimmed(), text.trimmed());
        QVERIFY(browser->document()->rootFrame()->childFrames().isEmpty());
    }

    void vastLengthsAreLimited_data()
    {
        columns<QString>("html");

        // Without a limit Qt would lay out these forever.
        row("padding of a table", "<table cellpadding=99999999><tr><td>in it</td></tr></table>");
        row("padding of a cell", "<table><tr><td style='padding: 99999999px'>in it</td></tr></table>");
        row("padding by a style sheet",
            "<style>td { padding-left: 99999999px }</style><table><tr><td>in it</td></tr></table>");
        row("spacing of cells", "<table cellspacing=99999999><tr><td>in it</td></tr></table>");
        row("spacing that leaves some lines",
            "<table cellspacing=4194000><tr><td>in it" + QString("<br>").repeated(60) + "</td></tr></table>");
        row("border of a table", "<table border=2097000><tr><td>in it</td></tr></table>");
        row("border of a cell",
            "<table><tr><td style='border: 9000000px solid red'>in it</td></tr></table>in it");
        row("margin of a table", "<table style='margin: 2097000px'><tr><td>in it</td></tr></table>");
        row("height of a table", "<table height=9000000><tr><td>in it</td></tr></table><p>in it</p>");
        row("margin above", "<p>in it</p><p style='margin-top: 9000000px'>in it</p>");
        row("margin below", "<p style='margin-bottom: 9000000px'>in it</p><p>in it</p>");
        row("negative margin", "<p>in it</p><p style='margin-top: -9000000px'>in it</p><p>in it</p>");
        row("line height", "<p style='line-height: 5000000px'>in it<br>in it<br>in it</p>");
        row("relative line height", "<p style='line-height: 50000000%'>in it<br>in it<br>in it</p>");
        row("font", "<span style='font-size: 3000000px'>in it<br>in it<br>in it</span>");
        row("font in points", "<span style='font-size: 3000000pt'>in it<br>in it<br>in it</span>");
        row("many large lines",
            "<pre style='font-size: 100px'>in it" + QString("\n").repeated(40000) + "</pre>");
    }

    void vastLengthsAreLimited()
    {
        QFETCH(QString, html);
        InertDocument document(html, QFont());
        QVERIFY(document.toPlainText().contains("in it"));
        QVERIFY2(document.size().height() < 4000000, qPrintable(QString::number(document.size().height())));
        const auto *table = qobject_cast<QTextTable *>(document.rootFrame()->childFrames().value(0));
        if (table != nullptr) {
            const QTextTableCellFormat cell = table->cellAt(0, 0).format().toTableCellFormat();
            for (const double length :
                 {table->format().cellPadding(), table->format().cellSpacing(), table->format().border(),
                  cell.topPadding(), cell.bottomPadding(), cell.leftPadding(), cell.rightPadding()}) {
                QVERIFY2(length >= 0 && length <= 100, qPrintable(QString::number(length)));
            }
        }
    }

    void manyLinesOfPlainText()
    {
        InertDocument document(QString("<b>") + QString("\n").repeated(600000), QFont());
        QVERIFY(document.size().height() < 4000000);
    }

    void htmlAtTheLimitIsRead_data()
    {
        columns<QString, QString>("longest", "tooLong");

        const auto text = [](int length) { return "<b>" + QString("x").repeated(length); };
        row("length", text(65533), text(65534));
        const auto tags = [](int count) { return QString("<b>").repeated(count) + "x"; };
        row("tags", tags(1000), tags(1001));
        const auto tableTags = [](int count) { return "<b>x" + QString("<tr>").repeated(count); };
        row("tags of tables", tableTags(100), tableTags(101));
        // Of 60,000 and 60,001 characters, counted for each tag, begin of the style sheet included.
        const auto styles = [](int count, int length) {
            return "<style>" + QString("b").repeated(length - 7) + "</style>" +
                   QString("<b>").repeated(count - 2) + "x";
        };
        row("style sheet", styles(30, 2000), styles(29, 2069));
    }

    void htmlAtTheLimitIsRead()
    {
        QFETCH(QString, longest);
        QFETCH(QString, tooLong);
        QVERIFY(!InertDocument(longest, QFont()).toPlainText().contains("<b>"));
        QVERIFY(InertDocument(tooLong, QFont()).toPlainText().contains("<b>"));
    }

    void htmlThatQtWroteIsRead()
    {
        QTextDocument message;
        message.setHtml(QString("<p><b>word</b> word</p>").repeated(150));
        const InertDocument document(message.toHtml(), message.defaultFont());
        QCOMPARE(document.toPlainText(), message.toPlainText());
    }

    void formIsKept()
    {
        const QString html = "<h3>News</h3><p style='color: #00aa00'>green <u>and <b>more</b></u>, see "
                             "<a href='http://x.example/'>here</a></p><ul><li>one</li></ul>"
                             "<table border=1 bgcolor='#ffff00'><tr><td>two</td></tr></table>";
        const MessageDialog dialog(html);
        const auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        QTextDocument plain;
        plain.setDefaultFont(browser->font());
        plain.setHtml(html);
        QCOMPARE(browser->toHtml(), plain.toHtml());
    }

    void links_data()
    {
        columns<QString, bool>("target", "opens");

        const auto row = [](const QString &target, bool opens) {
            QTest::newRow(qPrintable(target)) << target << opens;
        };
        row("http://x.example/a?b=1#c", true);
        row("https://x.example/", true);
        row("HTTP://x.example/", true);
        row("mailto:someone@x.example", true);
        row("www.x.example/news", false);
        row("news.html", false);
        row("#anchor", false);
        row("//" + mark + "/dir/page.html", false);
        row("file://" + mark + "/dir/page.html", false);
        row("file:///" + mark + "/page.html", false);
        row("/" + mark + "/page.html", false);
        row("qrc:/help.png", false);
        row(":/help.png", false);
        row("ftp://x.example/", false);
        row("javascript:alert(1)", false);
        row("ms-settings:privacy", false);
        row("foo:bar", false);
    }

    void links()
    {
        const Desktop desktop(schemes);
        QFETCH(QString, target);
        QFETCH(bool, opens);
        const Shown<MessageDialog> dialog("<a href=\"" + target + "\">x</a><a name=\"anchor\"></a>");
        auto *browser = dialog.findChild<QTextBrowser *>("textBrowser");
        QTest::mouseClick(browser->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(*browser, 0));
        QCOMPARE(desktop.opened, opens ? QList<QUrl>{QUrl(target)} : QList<QUrl>());
        QCOMPARE(browser->toPlainText(), QString("x"));
        QCOMPARE(browser->source(), QUrl());
        QVERIFY(dialog.isVisible());
    }
};

QTEST_MAIN(ForeignHtmlTest)
#include "ForeignHtmlTest.moc"
