#include "recent/RecentPrograms.h"

#include <QtTest>

namespace {

/// How a match is shown.
QString marked(const QString &text)
{
    return "<b><font color='red'>" + text + "</font></b>";
}

} // namespace

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
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("html");

    QTest::newRow("plain") << R"(C:\Programs\a.hdev)"
                           << R"(C:\Programs\a.hdev)";
    QTest::newRow("forward slashes") << "C:/Programs/a.hdev"
                                     << R"(C:\Programs\a.hdev)";
    QTest::newRow("both kinds of separators") << R"(C:/Programs\b/a.hdev)"
                                              << R"(C:\Programs\b\a.hdev)";
    QTest::newRow("network") << "//server/share/a.hdev"
                             << R"(\\server\share\a.hdev)";
    QTest::newRow("ampersand") << R"(C:\R&D\a.hdev)"
                               << R"(C:\R&amp;D\a.hdev)";
    QTest::newRow("what looks like an entity") << R"(C:\&lt;\a.hdev)"
                                               << R"(C:\&amp;lt;\a.hdev)";
    QTest::newRow("what looks like a tag") << "C:\\<b>a.hdev"
                                           << R"(C:\&lt;b&gt;a.hdev)";
    QTest::newRow("double quote") << R"(C:\"a".hdev)"
                                  << R"(C:\&quot;a&quot;.hdev)";
    QTest::newRow("apostrophe") << R"(C:\a's.hdev)"
                                << R"(C:\a's.hdev)";
    QTest::newRow("spaces") << R"(C:\My  Programs\ a.hdev )"
                            << R"(C:\My  Programs\ a.hdev )";
    QTest::newRow("not ASCII") << "C:/Gr\u00f6\u00dfe/\u691c\u67fb.hdev"
                               << "C:\\Gr\u00f6\u00dfe\\\u691c\u67fb.hdev";
    QTest::newRow("nothing") << ""
                             << "";
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
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("score");

    const QString path = R"(C:\Programs\gauge.hdev)";
    QTest::newRow("none") << path << "xyz" << path << 0;
    QTest::newRow("one") << path << "gauge"
                         << R"(C:\Programs\)" + marked("gauge") + ".hdev" << 1;
    QTest::newRow("two") << R"(C:\hdev\a.hdev)"
                         << "hdev"
                         << R"(C:\)" + marked("hdev") + R"(\a.)" + marked("hdev") << 2;
    QTest::newRow("at the beginning") << path << "C:" << marked("C:") + R"(\Programs\gauge.hdev)" << 1;
    QTest::newRow("the whole path") << path << path << marked(path) << 1;
    QTest::newRow("longer than the path") << "a.hdev"
                                          << "a.hdev2"
                                          << "a.hdev" << 0;
    QTest::newRow("path is empty") << ""
                                   << "a"
                                   << "" << 0;
    QTest::newRow("side by side") << "abab"
                                  << "ab" << marked("ab") + marked("ab") << 2;

    // As typed, not as in the path.
    QTest::newRow("upper case typed") << path << "PROG"
                                      << R"(C:\)" + marked("PROG") + R"(rams\gauge.hdev)" << 1;
    QTest::newRow("lower case typed") << path << "prog"
                                      << R"(C:\)" + marked("prog") + R"(rams\gauge.hdev)" << 1;
    QTest::newRow("mixed case typed, several matches")
        << "a/A/a"
        << "A" << marked("A") + "\\" + marked("A") + "\\" + marked("A") << 3;
    QTest::newRow("umlaut in the other case") << "C:\\\u00dcbung.hdev"
                                              << "\u00fcb"
                                              << "C:\\" + marked("\u00fcb") + "ung.hdev" << 1;
    QTest::newRow("without its accent") << "C:\\\u00dcbung.hdev"
                                        << "ub"
                                        << "C:\\\u00dcbung.hdev" << 0;
    QTest::newRow("not in the code page") << "C:\\\u691c\u67fb.hdev"
                                          << "\u67fb"
                                          << "C:\\\u691c" + marked("\u67fb") + ".hdev" << 1;

    // Overlapping matches count, though only those that do not can be marked.
    QTest::newRow("overlapping") << "aaa"
                                 << "aa" << marked("aa") + "a" << 2;
    QTest::newRow("overlapping, in either case") << "aAaA"
                                                 << "Aa" << marked("Aa") + marked("Aa") << 3;
    QTest::newRow("overlapping by more") << "x.ababab"
                                         << "abab"
                                         << "x." + marked("abab") + "ab" << 2;

    QTest::newRow("backslash typed") << "C:/a/b"
                                     << R"(\)"
                                     << "C:" + marked(R"(\)") + "a" + marked(R"(\)") + "b" << 2;
    QTest::newRow("forward slash typed") << "C:/a/b"
                                         << "/"
                                         << R"(C:\a\b)" << 0;
    QTest::newRow("space") << "my a.hdev"
                           << " "
                           << "my" + marked(" ") + "a.hdev" << 1;
    QTest::newRow("space at the end typed") << "a.hdev"
                                            << "hdev "
                                            << "a.hdev" << 0;

    // Escaped like the path.
    QTest::newRow("ampersand") << R"(C:\R&D\&.hdev)"
                               << "&"
                               << R"(C:\R)" + marked("&amp;") + R"(D\)" + marked("&amp;") + ".hdev" << 2;
    QTest::newRow("less than") << R"(C:\<a>.hdev)"
                               << "<"
                               << R"(C:\)" + marked("&lt;") + "a&gt;.hdev" << 1;
    QTest::newRow("greater than, among letters") << R"(C:\<a>.hdev)"
                                                 << "A>."
                                                 << R"(C:\&lt;)" + marked("A&gt;.") + "hdev" << 1;
    QTest::newRow("double quote") << R"(C:\"a.hdev)"
                                  << "\""
                                  << R"(C:\)" + marked("&quot;") + "a.hdev" << 1;
    QTest::newRow("ampersand typed, none in the path") << R"(C:\a<.hdev)"
                                                       << "&"
                                                       << R"(C:\a&lt;.hdev)" << 0;
    QTest::newRow("an entity typed") << R"(C:\a&b.hdev)"
                                     << "&amp;"
                                     << R"(C:\a&amp;b.hdev)" << 0;
    // Deliberate: the escaped path is searched.
    QTest::newRow("part of an entity") << R"(C:\a&b.hdev)"
                                       << "amp"
                                       << R"(C:\a&)" + marked("amp") + ";b.hdev" << 1;
    QTest::newRow("end of an entity") << R"(C:\a<b.hdev)"
                                      << ";"
                                      << R"(C:\a&lt)" + marked(";") + "b.hdev" << 1;

    // The search text is no pattern, and inserted markup is not searched again.
    QTest::newRow("point") << "a.hdev"
                           << "."
                           << "a" + marked(".") + "hdev" << 1;
    QTest::newRow("asterisk") << "a.hdev"
                              << "*"
                              << "a.hdev" << 0;
    QTest::newRow("letters of the markup") << "b/red/font"
                                           << "b" << marked("b") + R"(\red\font)" << 1;
    QTest::newRow("word of the markup") << "b/red/font"
                                        << "RED"
                                        << R"(b\)" + marked("RED") + R"(\font)" << 1;
    QTest::newRow("reference to a group") << R"(C:\1\a.hdev)"
                                          << R"(\1)"
                                          << "C:" + marked(R"(\1)") + R"(\a.hdev)" << 1;
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
