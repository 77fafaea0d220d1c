#include "recent/RecentPrograms.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Rows.h"

#include <QtTest>

class HighlightPathTest : public QObject {
    Q_OBJECT

private slots:
    void withoutSearch_data();
    void withoutSearch();
    void matches_data();
    void matches();
};

void HighlightPathTest::withoutSearch_data()
{
    columns<QString, QString>("path", "html");

    row("both kinds of separators", R"(C:/Programs\b/a.hdev)", R"(C:\Programs\b\a.hdev)");
    row("ampersand", R"(C:\R&D\a.hdev)", R"(C:\R&amp;D\a.hdev)");
    row("what looks like an entity", R"(C:\&lt;\a.hdev)", R"(C:\&amp;lt;\a.hdev)");
    row("double quote", R"(C:\"a".hdev)", R"(C:\&quot;a&quot;.hdev)");
}

void HighlightPathTest::withoutSearch()
{
    QFETCH(QString, path);
    const HighlightedPath highlighted = highlightPath(path, "");
    QTEST(highlighted.html, "html");
    QCOMPARE(highlighted.score, 0);
}

void HighlightPathTest::matches_data()
{
    columns<QString, QString, QString, int>("path", "search", "html", "score");

    const QString path = R"(C:\Programs\gauge.hdev)";
    row("none", path, "xyz", path, 0);
    row("two", R"(C:\hdev\a.hdev)", "hdev", R"(C:\)" + marked("hdev") + R"(\a.)" + marked("hdev"), 2);

    // As typed, not as in the path.
    row("upper case typed", path, "PROG", R"(C:\)" + marked("PROG") + R"(rams\gauge.hdev)", 1);
    row("mixed case typed, several matches", "a/A/a", "A",
        marked("A") + "\\" + marked("A") + "\\" + marked("A"), 3);
    row("without its accent", "C:\\\u00dcbung.hdev", "ub", "C:\\\u00dcbung.hdev", 0);

    // Overlapping matches count, though only those that do not can be marked.
    row("overlapping", "aaa", "aa", marked("aa") + "a", 2);

    row("backslash typed", "C:/a/b", R"(\)", "C:" + marked(R"(\)") + "a" + marked(R"(\)") + "b", 2);
    row("forward slash typed", "C:/a/b", "/", R"(C:\a\b)", 0);

    // Escaped like the path.
    row("ampersand", R"(C:\R&D\&.hdev)", "&",
        R"(C:\R)" + marked("&amp;") + R"(D\)" + marked("&amp;") + ".hdev", 2);
    row("less than", "a<b.hdev", "<", "a" + marked("&lt;") + "b.hdev", 1);
    row("ampersand typed, none in the path", R"(C:\a<.hdev)", "&", R"(C:\a&lt;.hdev)", 0);
    row("an entity typed", R"(C:\a&b.hdev)", "&amp;", R"(C:\a&amp;b.hdev)", 0);
    // Deliberate: the escaped path is searched.
    row("part of an entity", R"(C:\a&b.hdev)", "amp", R"(C:\a&)" + marked("amp") + ";b.hdev", 1);

    // The search text is no pattern, and inserted markup is not searched again.
    row("point", "a.hdev", ".", "a" + marked(".") + "hdev", 1);
    row("word of the markup", "b/red/font", "RED", R"(b\)" + marked("RED") + R"(\font)", 1);
    row("reference to a group", R"(C:\1\a.hdev)", R"(\1)", "C:" + marked(R"(\1)") + R"(\a.hdev)", 1);
}

void HighlightPathTest::matches()
{
    QFETCH(QString, path);
    QFETCH(QString, search);
    const HighlightedPath highlighted = highlightPath(path, search);
    QTEST(highlighted.html, "html");
    QTEST(highlighted.score, "score");
}

QTEST_MAIN(HighlightPathTest)
#include "HighlightPathTest.moc"
