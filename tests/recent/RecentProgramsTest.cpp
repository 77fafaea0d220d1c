#include "recent/RecentPrograms.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/support/Messages.h"

#include <QTextCodec>
#include <QtTest>

namespace {

/// While it lives, changes the system's code page, to prove that the code page is used; Windows has a test of
/// its own.
class SystemCodePage {
public:
    explicit SystemCodePage(const QByteArray &name) : before(QTextCodec::codecForLocale())
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
    }
    SystemCodePage(const SystemCodePage &) = delete;
    SystemCodePage &operator=(const SystemCodePage &) = delete;
    ~SystemCodePage() { QTextCodec::setCodecForLocale(before); }

private:
    QTextCodec *before;
};

} // namespace

class RecentProgramsTest : public QObject {
    Q_OBJECT

private slots:
    void split_data();
    void split();
    void read_data();
    void read();
    void manyPrograms();
    void codePage_data();
    void codePage();
    void directoryOfTheSettings_data();
    void directoryOfTheSettings();
    void noFile();
    void directoryInPlaceOfTheFile();
    void noVariable_data();
    void noVariable();
    void readAnewEachTime();
    void failuresAreSilent();
};

void RecentProgramsTest::split_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("paths");

    QTest::newRow("quoted comma and space, three spaces")
        << R"(C:\a.hdev,"C:\My Programs\b, c.hdev",   C:\d.hdev)"
        << QStringList{R"(C:\a.hdev)", R"(C:\My Programs\b, c.hdev)", R"(C:\d.hdev)"};
    QTest::newRow("one") << R"(C:\a.hdev)" << QStringList{R"(C:\a.hdev)"};
    QTest::newRow("forward slashes") << "C:/a.hdev,//s/b.hdev" << QStringList{"C:/a.hdev", "//s/b.hdev"};
    QTest::newRow("the same twice") << "a,a" << QStringList{"a", "a"};

    // Commas.
    QTest::newRow("empty") << "" << QStringList{""};
    QTest::newRow("lone comma") << "," << QStringList{"", ""};
    QTest::newRow("comma in front") << ",a" << QStringList{"", "a"};
    QTest::newRow("comma at the end") << "a," << QStringList{"a", ""};
    QTest::newRow("two commas") << "a,,b" << QStringList{"a", "", "b"};
    QTest::newRow("semicolon") << "a;b" << QStringList{"a;b"};

    // Spaces.
    QTest::newRow("space after a comma") << "a, b" << QStringList{"a", "b"};
    QTest::newRow("many spaces after a comma") << "a,        b" << QStringList{"a", "b"};
    QTest::newRow("spaces in front") << "  a,b" << QStringList{"  a", "b"};
    QTest::newRow("only spaces") << "   " << QStringList{"   "};
    QTest::newRow("spaces within") << "a  b,c d  e" << QStringList{"a  b", "c d  e"};
    QTest::newRow("spaces before a comma") << "a  ,b " << QStringList{"a  ", "b "};
    QTest::newRow("spaces between commas") << "a,  ,b" << QStringList{"a", "", "b"};
    QTest::newRow("spaces at the end") << "a,  " << QStringList{"a", ""};
    QTest::newRow("tab after a comma") << "a,\tb" << QStringList{"a", "\tb"};
    QTest::newRow("space after a tab") << "a, \t b" << QStringList{"a", "\t b"};
    QTest::newRow("no-break space") << "a,\u00a0b" << QStringList{"a", "\u00a0b"};

    // Quotes.
    QTest::newRow("quoted") << R"("a b","c")" << QStringList{"a b", "c"};
    QTest::newRow("quoted commas") << R"("a,b,,c",d)" << QStringList{"a,b,,c", "d"};
    QTest::newRow("quoted comma and spaces") << R"("a,   b")" << QStringList{"a,   b"};
    QTest::newRow("quoted spaces in front") << R"("  a",b)" << QStringList{"  a", "b"};
    QTest::newRow("quoted spaces after a comma") << R"(a,"  b")" << QStringList{"a", "  b"};
    QTest::newRow("spaces before and in quotes") << R"(a,  "  b")" << QStringList{"a", "  b"};
    QTest::newRow("spaces after quotes") << R"("a"  ,b)" << QStringList{"a  ", "b"};
    QTest::newRow("quotes in the middle") << R"(C:\x"y, z"w,b)" << QStringList{R"(C:\xy, zw)", "b"};
    QTest::newRow("quotes side by side") << R"("a""b")" << QStringList{"ab"};
    QTest::newRow("quotes side by side, comma between") << R"("a"",b")" << QStringList{"a,b"};
    QTest::newRow("empty quotes") << R"("")" << QStringList{""};
    QTest::newRow("empty quotes among others") << R"(a,"",b)" << QStringList{"a", "", "b"};
    QTest::newRow("spaces after empty quotes") << R"(a,""  b)" << QStringList{"a", "  b"};
    QTest::newRow("backslash before a quote") << R"("C:\a\",b)" << QStringList{R"(C:\a\)", "b"};
    QTest::newRow("apostrophes") << "'a,b'" << QStringList{"'a", "b'"};

    // An unclosed quote drops what follows it, and its own entry as well.
    QTest::newRow("lone quote") << "\"" << QStringList{};
    QTest::newRow("unterminated first entry") << R"("a,b,c)" << QStringList{};
    QTest::newRow("unterminated later entry") << R"(a, b,"c,d)" << QStringList{"a", "b"};
    QTest::newRow("unterminated within an entry") << R"(a,b"c,d)" << QStringList{"a"};
    QTest::newRow("quote at the end") << R"(a,b")" << QStringList{"a"};

    QTest::newRow("not ASCII") << "C:\\Gr\u00f6\u00dfe\\\u691c\u67fb.hdev, \U0001f600"
                               << QStringList{"C:\\Gr\u00f6\u00dfe\\\u691c\u67fb.hdev", "\U0001f600"};
    QTest::newRow("signs") << "a & <b>, %1 &amp; 100%" << QStringList{"a & <b>", "%1 &amp; 100%"};
}

void RecentProgramsTest::split()
{
    QFETCH(QString, value);
    QTEST(splitRecentPrograms(value), "paths");
}

void RecentProgramsTest::read_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("paths");

    const QStringList two{R"(C:\a.hdev)", R"(D:\b.hdev)"};
    const QStringList emptyRow{""};
    const auto row = [](const char *name, const QByteArray &contents, const QStringList &paths) {
        QTest::newRow(name) << contents << paths;
    };
    row("among other settings",
        "[General]\r\nFont=Courier\r\n"
        "RecentPrograms=C:\\a.hdev,D:\\b.hdev\r\nWindow=1,2\r\n",
        two);
    row("first line", "RecentPrograms=C:\\a.hdev,D:\\b.hdev\r\n[General]\r\n", two);
    row("quoted comma and space, three spaces",
        "RecentPrograms=C:\\a.hdev,\"C:\\My Programs\\b, c.hdev\",   C:\\d.hdev\r\n",
        {R"(C:\a.hdev)", R"(C:\My Programs\b, c.hdev)", R"(C:\d.hdev)"});
    row("an entry of the value is empty", "RecentPrograms=a,,b\r\n", {"a", "", "b"});

    // Line ends.
    row("LF", "[General]\nRecentPrograms=C:\\a.hdev,D:\\b.hdev\nWindow=1\n", two);
    row("LF and CR LF mixed", "[General]\nRecentPrograms=C:\\a.hdev,D:\\b.hdev\r\nWindow=1\n", two);
    row("last line, CR LF", "[General]\r\nRecentPrograms=C:\\a.hdev,D:\\b.hdev\r\n", two);
    row("last line, not ended", "[General]\r\nRecentPrograms=C:\\a.hdev,D:\\b.hdev", two);
    row("after empty lines", "\r\n\r\n\n\nRecentPrograms=C:\\a.hdev,D:\\b.hdev\r\n", two);
    row("after a long line",
        "Window=" + QByteArray(40000, 'x') + "\r\nRecentPrograms=C:\\a.hdev,D:\\b.hdev\r\n", two);

    // Spaces around the key.
    row("spaces in front", "   RecentPrograms=a,b\r\n", {"a", "b"});
    row("spaces around the equals sign", "RecentPrograms   =   a,b\r\n", {"a", "b"});
    row("spaces everywhere", " RecentPrograms = a, b \r\n", {"a", "b "});
    row("quoted spaces in front of the value", "RecentPrograms= \"  a\"\r\n", {"  a"});
    row("tab in front", "\tRecentPrograms=a\r\n", emptyRow);
    row("tab before the equals sign", "RecentPrograms\t=a\r\n", emptyRow);
    row("tab after the equals sign", "RecentPrograms=\t a\r\n", {"\t a"});
    row("space within the key", "Recent Programs=a\r\n", emptyRow);
    row("several equals signs", "RecentPrograms==a=b\r\n", {"=a=b"});

    // Which line.
    row("several lines", "RecentPrograms=a\r\nRecentPrograms=b\r\n", {"a"});
    row("first of several is empty", "RecentPrograms=\r\nRecentPrograms=b\r\n", emptyRow);
    row("key in lower case", "recentprograms=a\r\n", emptyRow);
    row("key in lower case, then as it should be", "recentPrograms=a\r\nRecentPrograms=b\r\n", {"b"});
    row("something before the key", "MyRecentPrograms=a\r\nRecentPrograms=b\r\n", {"b"});
    row("something after the key", "RecentProgramsMax=10\r\nRecentPrograms=b\r\n", {"b"});
    row("numbered key", "RecentPrograms\\1=a\r\nRecentPrograms=b\r\n", {"b"});
    row("comment", "#RecentPrograms=a\r\n;RecentPrograms=b\r\nRecentPrograms=c\r\n", {"c"});
    row("key without an equals sign", "RecentPrograms\r\nRecentPrograms a\r\nRecentPrograms=b\r\n", {"b"});
    row("key in a value", "Other=RecentPrograms=a\r\nRecentPrograms=b\r\n", {"b"});
    row("value not continued", "RecentPrograms=a,\\\r\nb\r\n", {"a", "\\"});

    // No value: a single empty row.
    row("empty value", "RecentPrograms=\r\n", emptyRow);
    row("value of spaces", "RecentPrograms=     \r\n", emptyRow);
    row("no such line", "[General]\r\nFont=Courier\r\n", emptyRow);
    row("empty file", "", emptyRow);
    row("empty lines only", "\r\n\r\n", emptyRow);

    row("unterminated quote", "RecentPrograms=a,\"b,c\r\nOther=\"\r\n", {"a"});
    row("unterminated quote in the first entry", "RecentPrograms=\"a,b\r\nRecentPrograms=c\r\n", {});
}

void RecentProgramsTest::read()
{
    QFETCH(QByteArray, contents);
    const HDevelopSettings settings;
    settings.write(contents);
    QTEST(readRecentPrograms(), "paths");
}

void RecentProgramsTest::manyPrograms()
{
    const HDevelopSettings settings;
    QStringList paths;
    for (int i = 0; i < 20000; ++i) {
        paths.append(QString("C:\\Programs\\%1\\inspection %2.hdev").arg(i % 100).arg(i));
    }
    settings.writePrograms(paths);
    QCOMPARE(readRecentPrograms(), paths);
}

void RecentProgramsTest::codePage_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("path");

    QTest::newRow("Western Europe") << QByteArray("ISO 8859-1")
                                    << QByteArray("C:\\Gr\xf6\xdf"
                                                  "e\\\xdc"
                                                  "bung.hdev")
                                    << "C:\\Gr\u00f6\u00dfe\\\u00dcbung.hdev";
    QTest::newRow("Cyrillic") << QByteArray("windows-1251") << QByteArray("C:\\\xef\xf0.hdev")
                              << "C:\\\u043f\u0440.hdev";
    QTest::newRow("UTF-8") << QByteArray("UTF-8")
                           << QByteArray("C:\\Gr\xc3\xb6\xc3\x9f"
                                         "e.hdev")
                           << "C:\\Gr\u00f6\u00dfe.hdev";
}

void RecentProgramsTest::codePage()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, path);
    const HDevelopSettings settings;
    settings.write("RecentPrograms=" + bytes + ", C:\\a.hdev\r\n");
    const SystemCodePage codePage(name);
    QCOMPARE(readRecentPrograms(), (QStringList{path, R"(C:\a.hdev)"}));
}

void RecentProgramsTest::directoryOfTheSettings_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << "Roaming";
    QTest::newRow("spaces") << "Application  Data";
    QTest::newRow("ampersand") << "R&D";
    QTest::newRow("what looks like an entity") << "&amp;";
    QTest::newRow("percent signs") << "%1%APPDATA%";
    QTest::newRow("umlauts") << "Gr\u00f6\u00dfe";
    QTest::newRow("all of them") << "M\u00fcller & S\u00f6hne";
}

void RecentProgramsTest::directoryOfTheSettings()
{
    QFETCH(QString, name);
    HDevelopSettings settings;
    settings.moveTo(settings.path(name));
    QCOMPARE(readRecentPrograms(), QStringList());

    settings.writePrograms({R"(C:\a.hdev)", R"(C:\b.hdev)"});
    QCOMPARE(readRecentPrograms(), (QStringList{R"(C:\a.hdev)", R"(C:\b.hdev)"}));
}

void RecentProgramsTest::noFile()
{
    HDevelopSettings settings;
    QCOMPARE(readRecentPrograms(), QStringList());

    QVERIFY(QDir().mkpath(settings.path("MVTec")));
    QCOMPARE(readRecentPrograms(), QStringList());

    settings.moveTo(settings.path("missing"));
    QCOMPARE(readRecentPrograms(), QStringList());
}

void RecentProgramsTest::directoryInPlaceOfTheFile()
{
    const HDevelopSettings settings;
    QVERIFY(QDir().mkpath(settings.file()));
    QCOMPARE(readRecentPrograms(), QStringList());
}

void RecentProgramsTest::noVariable_data()
{
    QTest::addColumn<bool>("isSet");

    QTest::newRow("missing") << false;
    QTest::newRow("empty") << true;
}

void RecentProgramsTest::noVariable()
{
    QFETCH(bool, isSet);
    const HDevelopSettings settings;
    settings.writePrograms({"a"});
    QCOMPARE(readRecentPrograms(), QStringList{"a"});
    // No file may be read from the current directory instead.
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(settings.path("")));
    qunsetenv("APPDATA");
    if (isSet) {
        qputenv("APPDATA", "");
    }

    const QStringList paths = readRecentPrograms();

    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(paths, QStringList());
}

void RecentProgramsTest::readAnewEachTime()
{
    const HDevelopSettings settings;
    settings.writePrograms({"a", "b"});
    QCOMPARE(readRecentPrograms(), (QStringList{"a", "b"}));
    settings.writePrograms({"c"});
    QCOMPARE(readRecentPrograms(), QStringList{"c"});
    QVERIFY(QFile::remove(settings.file()));
    QCOMPARE(readRecentPrograms(), QStringList());
}

void RecentProgramsTest::failuresAreSilent()
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

QTEST_MAIN(RecentProgramsTest)

#include "RecentProgramsTest.moc"
