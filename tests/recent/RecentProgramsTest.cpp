#include "recent/RecentPrograms.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

class RecentProgramsTest : public QObject {
    Q_OBJECT

private slots:
    void split_data()
    {
        const auto row = columns<QString, QStringList>("value", "paths");

        row("quoted comma and space, three spaces", R"(C:\a.hdev,"C:\My Programs\b, c.hdev",   C:\d.hdev)",
            {R"(C:\a.hdev)", R"(C:\My Programs\b, c.hdev)", R"(C:\d.hdev)"});

        // Commas.
        row("empty", "", {""});
        row("lone comma", ",", {"", ""});
        row("comma at the end", "a,", {"a", ""});
        row("two commas", "a,,b", {"a", "", "b"});

        // Spaces.
        row("space after a comma", "a, b", {"a", "b"});
        row("spaces between commas", "a,  ,b", {"a", "", "b"});
        row("tab after a comma", "a,\tb", {"a", "\tb"});

        // Quotes.
        row("quoted", R"("a b","c")", {"a b", "c"});
        row("quoted spaces after a comma", R"(a,"  b")", {"a", "  b"});
        row("spaces after quotes", R"("a"  ,b)", {"a  ", "b"});
        row("quotes in the middle", R"(C:\x"y, z"w,b)", {R"(C:\xy, zw)", "b"});
        row("quotes side by side, comma between", R"("a"",b")", {"a,b"});
        row("spaces after empty quotes", R"(a,""  b)", {"a", "  b"});
        row("backslash before a quote", R"("C:\a\",b)", {R"(C:\a\)", "b"});

        // An unclosed quote drops what follows it, and its own entry as well.
        row("lone quote", "\"", {});
        row("unterminated first entry", R"("a,b,c)", {});
        row("unterminated within an entry", R"(a,b"c,d)", {"a"});

        row("not ASCII", "C:\\Gr\u00f6\u00dfe\\\u691c\u67fb.hdev, \U0001f600",
            {"C:\\Gr\u00f6\u00dfe\\\u691c\u67fb.hdev", "\U0001f600"});
    }

    void split()
    {
        QFETCH(QString, value);
        QTEST(splitRecentPrograms(value), "paths");
    }

    void read_data()
    {
        const auto row = columns<QByteArray, QStringList>("contents", "paths");

        const QStringList two{R"(C:\a.hdev)", R"(D:\b.hdev)"};
        const QStringList emptyRow{""};
        row("among other settings",
            "[General]\r\nFont=Courier\r\n"
            "RecentPrograms=C:\\a.hdev,D:\\b.hdev\r\nWindow=1,2\r\n",
            two);

        // Line ends.
        row("LF", "[General]\nRecentPrograms=C:\\a.hdev,D:\\b.hdev\nWindow=1\n", two);
        row("last line, not ended", "[General]\r\nRecentPrograms=C:\\a.hdev,D:\\b.hdev", two);

        // Spaces around the key.
        row("spaces in front", "   RecentPrograms=a,b\r\n", {"a", "b"});
        row("spaces everywhere", " RecentPrograms = a, b \r\n", {"a", "b "});
        row("quoted spaces in front of the value", "RecentPrograms= \"  a\"\r\n", {"  a"});
        row("tab in front", "\tRecentPrograms=a\r\n", emptyRow);
        row("tab after the equals sign", "RecentPrograms=\t a\r\n", {"\t a"});
        row("space within the key", "Recent Programs=a\r\n", emptyRow);
        row("several equals signs", "RecentPrograms==a=b\r\n", {"=a=b"});

        // Which line.
        row("several lines", "RecentPrograms=a\r\nRecentPrograms=b\r\n", {"a"});
        row("first of several is empty", "RecentPrograms=\r\nRecentPrograms=b\r\n", emptyRow);
        row("key in lower case", "recentprograms=a\r\n", emptyRow);
        row("something before the key", "MyRecentPrograms=a\r\nRecentPrograms=b\r\n", {"b"});
        row("something after the key", "RecentProgramsMax=10\r\nRecentPrograms=b\r\n", {"b"});
        row("key in a value", "Other=RecentPrograms=a\r\nRecentPrograms=b\r\n", {"b"});

        // No value: a single empty row.
        row("empty value", "RecentPrograms=\r\n", emptyRow);
        row("value of spaces", "RecentPrograms=     \r\n", emptyRow);
        row("no such line", "[General]\r\nFont=Courier\r\n", emptyRow);
        row("empty file", "", emptyRow);

        row("unterminated quote", "RecentPrograms=a,\"b,c\r\nOther=\"\r\n", {"a"});
        row("unterminated quote in the first entry", "RecentPrograms=\"a,b\r\nRecentPrograms=c\r\n", {});
    }

    void read()
    {
        QFETCH(QByteArray, contents);
        const HDevelopSettings settings;
        settings.write(contents);
        QTEST(readRecentPrograms(), "paths");
    }

    void noFile()
    {
        HDevelopSettings settings;
        QCOMPARE(readRecentPrograms(), QStringList());
        // A directory in its place.
        QVERIFY(QDir().mkpath(settings.file()));
        QCOMPARE(readRecentPrograms(), QStringList());
        settings.moveTo(settings.path("missing"));
        QCOMPARE(readRecentPrograms(), QStringList());
    }

    void noVariable_data()
    {
        columns<bool>("isSet");

        row("missing", false);
        row("empty", true);
    }

    void noVariable()
    {
        QFETCH(bool, isSet);
        const HDevelopSettings settings;
        settings.writePrograms({"a"});
        QCOMPARE(readRecentPrograms(), QStringList{"a"});
        // No file may be read from the current directory instead.
        const CurrentDirectory current(settings.path(""));
        isSet ? qputenv("APPDATA", "") : qunsetenv("APPDATA");

        QCOMPARE(readRecentPrograms(), QStringList());
    }

    void failuresAreSilent()
    {
        const HDevelopSettings settings;
        const LogLines log;
        const CaughtMessages messages;

        QCOMPARE(readRecentPrograms(), QStringList());
        settings.write("no such line");
        QCOMPARE(readRecentPrograms(), QStringList{""});
        qunsetenv("APPDATA");
        QCOMPARE(readRecentPrograms(), QStringList());

        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(messages.warnings(), QStringList());
    }
};

QTEST_MAIN(RecentProgramsTest)
#include "RecentProgramsTest.moc"
