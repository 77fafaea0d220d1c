#include "tests/companions/TestConsole.h"
#include "tests/support/Patience.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Result {
    int exitCode = -1; ///< unchanged when the program did not start or did not end by itself
    QByteArray output;
    QByteArray errors;
};

/// Runs huebox to its end with exactly this command line. Forwarded channels go to the console of the test
/// program.
Result runHuebox(const QString &arguments, QProcess::ProcessChannelMode channels = QProcess::SeparateChannels,
                 const QString &directory = QString())
{
    QProcess process;
    process.setProgram(HUEBOX_EXECUTABLE);
    process.setNativeArguments(arguments);
    process.setProcessChannelMode(channels);
    process.setWorkingDirectory(directory);
    process.start();
    Result result;
    if (process.waitForFinished(patienceMilliseconds) && process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
        result.output = process.readAllStandardOutput();
        result.errors = process.readAllStandardError();
    }
    return result;
}

/// A console's colours, as Windows numbers them.
constexpr int blue = 1;
constexpr int green = 2;
constexpr int red = 4;
constexpr int intense = 8;
constexpr int grey = red | green | blue;
constexpr int onBlue = 0x10;
constexpr int onIntenseGreen = 0xA0;

} // namespace

class HueboxTest : public QObject {
    Q_OBJECT

private slots:
    void redirected_data();
    void redirected();
    void wildcardsAreWords();
    void longLine();
    void unknownOption_data();
    void unknownOption();

    void coloursOnConsole_data();
    void coloursOnConsole();
    void textOnConsole_data();
    void textOnConsole();
    void longLineOnConsole();
    void unknownOptionOnConsole();
    void redirectedBesideConsole();
};

void HueboxTest::redirected_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("output");

    QTest::newRow("no arguments") << "" << QByteArray("\r\n");
    QTest::newRow("only options") << "--fgred --fgint" << QByteArray("\r\n");
    QTest::newRow("one word") << "HALCON" << QByteArray("HALCON\r\n");
    QTest::newRow("words after options")
        << "--fgred --fgint HALCON 20.11.1 (x64-win64)" << QByteArray("HALCON 20.11.1 (x64-win64)\r\n");
    QTest::newRow("spaces between words become one") << "  --fgred   a    b  c   " << QByteArray("a b c\r\n");
    QTest::newRow("spaces in a quoted word stay") << R"(--fgred "a  b" " c ")" << QByteArray("a  b  c \r\n");
    QTest::newRow("quoted empty word") << R"(a "" b)" << QByteArray("a  b\r\n");
    QTest::newRow("quoted option") << R"("--fgred" a)" << QByteArray("a\r\n");
    QTest::newRow("escaped quotes") << R"(say \"a\")" << QByteArray("say \"a\"\r\n");
    QTest::newRow("apostrophes, parentheses, backslashes")
        << R"(type 'devenv' (C:\a\b\))" << QByteArray("type 'devenv' (C:\\a\\b\\)\r\n");
    QTest::newRow("characters of the command interpreter")
        << "100% %PATH% ^ a&b | c > d" << QByteArray("100% %PATH% ^ a&b | c > d\r\n");
    QTest::newRow("option after a word") << "a --fgred --foo" << QByteArray("a --fgred --foo\r\n");
    QTest::newRow("one dash") << "-x --fgred" << QByteArray("-x --fgred\r\n");
    QTest::newRow("umlauts") << "Größe" << QByteArray("Gr\xC3\xB6\xC3\x9F\x65\r\n");
    QTest::newRow("Chinese") << "寸法" << QByteArray("\xE5\xAF\xB8\xE6\xB3\x95\r\n");
    QTest::newRow("beyond the basic plane") << "😀" << QByteArray("\xF0\x9F\x98\x80\r\n");
}

void HueboxTest::redirected()
{
    QFETCH(QString, arguments);

    const Result result = runHuebox(arguments);

    QTEST(result.output, "output");
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitCode, 0);
}

/// Even if they match a file in the current directory.
void HueboxTest::wildcardsAreWords()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath("a.txt"));
    QVERIFY(file.open(QFile::WriteOnly));

    const Result result =
        runHuebox("--fgred * ? *.* a.??? \"*.txt\"", QProcess::SeparateChannels, directory.path());

    QCOMPARE(result.output, QByteArray("* ? *.* a.??? *.txt\r\n"));
    QCOMPARE(result.exitCode, 0);
}

void HueboxTest::longLine()
{
    const QString word(30000, 'x');

    const Result result = runHuebox("--fgred " + word);

    QCOMPARE(result.output, word.toLatin1() + "\r\n");
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitCode, 0);
}

void HueboxTest::unknownOption_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("errors");

    QTest::newRow("first") << "--foo a" << QByteArray("huebox: unknown option --foo\r\n");
    QTest::newRow("after an option") << "--fgred --foo a" << QByteArray("huebox: unknown option --foo\r\n");
    QTest::newRow("the first of two") << "--foo --bar" << QByteArray("huebox: unknown option --foo\r\n");
    QTest::newRow("two dashes") << "-- a" << QByteArray("huebox: unknown option --\r\n");
    QTest::newRow("quoted together with a word")
        << "\"--fgred a\"" << QByteArray("huebox: unknown option --fgred a\r\n");
    QTest::newRow("upper case") << "--FGRED a" << QByteArray("huebox: unknown option --FGRED\r\n");
    QTest::newRow("not ASCII") << "--ö寸😀 a"
                               << QByteArray("huebox: unknown option --"
                                             "\xC3\xB6\xE5\xAF\xB8\xF0\x9F\x98\x80\r\n");
}

void HueboxTest::unknownOption()
{
    QFETCH(QString, arguments);

    const Result result = runHuebox(arguments);

    QTEST(result.errors, "errors");
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.exitCode, 2);
}

void HueboxTest::coloursOnConsole_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("expected");

    QTest::newRow("none") << "" << (green | onBlue) << (green | onBlue);
    QTest::newRow("red") << "--fgred" << grey << red;
    QTest::newRow("green") << "--fggreen" << grey << green;
    QTest::newRow("blue") << "--fgblue" << grey << blue;
    QTest::newRow("intense red") << "--fgred --fgint" << grey << (red | intense);
    QTest::newRow("intense green") << "--fggreen --fgint" << grey << (green | intense);
    QTest::newRow("intense blue") << "--fgblue --fgint" << grey << (blue | intense);
    QTest::newRow("intense alone") << "--fgint" << grey << intense;
    QTest::newRow("mixed") << "--fgred --fgblue" << grey << (red | blue);
    QTest::newRow("a console that is intense itself") << "--fgred" << (grey | intense) << red;
    QTest::newRow("background is kept") << "--fgred --fgint" << (grey | onBlue) << (red | intense | onBlue);
    QTest::newRow("intense background is kept")
        << "--fgblue" << (grey | intense | onIntenseGreen) << (blue | onIntenseGreen);
}

void HueboxTest::coloursOnConsole()
{
    QFETCH(QString, options);
    QFETCH(int, before);
    QFETCH(int, expected);
    TestConsole console;
    console.setAttributes(quint16(before));
    QVector<quint16> line = console.attributes(0, TestConsole::width);
    const QString text = "HALCON 20.11";
    std::fill_n(line.begin(), text.size(), quint16(expected));

    const Result result = runHuebox(options + ' ' + text, QProcess::ForwardedChannels);

    QCOMPARE(result.exitCode, 0);
    QCOMPARE(console.lines(), (QStringList{text, ""}));
    QCOMPARE(console.attributes(0, TestConsole::width), line);
    QCOMPARE(console.attributes(), quint16(before));
}

void HueboxTest::textOnConsole_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("no arguments") << "" << QStringList{"", ""};
    QTest::newRow("only options") << "--fgred" << QStringList{"", ""};
    QTest::newRow("umlauts") << "--fgred Größe" << QStringList{"Größe", ""};
    QTest::newRow("Cyrillic, which the console's code page lacks") << "Размер" << QStringList{"Размер", ""};
    QTest::newRow("Chinese") << "--fgred 寸法" << QStringList{"寸法", ""};
    QTest::newRow("beyond the basic plane") << "--fgred 😀 a" << QStringList{"😀 a", ""};
}

void HueboxTest::textOnConsole()
{
    QFETCH(QString, arguments);
    const TestConsole console;

    const Result result = runHuebox(arguments, QProcess::ForwardedChannels);

    QCOMPARE(result.exitCode, 0);
    QTEST(console.lines(), "lines");
}

void HueboxTest::longLineOnConsole()
{
    const QString word(30000, 'x');
    const TestConsole console;

    const Result result = runHuebox("--fgred " + word, QProcess::ForwardedChannels);

    QCOMPARE(result.exitCode, 0);
    QCOMPARE(console.lines().join(QString()), word);
}

void HueboxTest::unknownOptionOnConsole()
{
    TestConsole console;
    console.setAttributes(green | onBlue);

    const Result result = runHuebox("--fgred --größe寸 a", QProcess::ForwardedChannels);

    QCOMPARE(result.exitCode, 2);
    QCOMPARE(console.lines(), (QStringList{"huebox: unknown option --größe寸", ""}));
    QCOMPARE(console.attributes(0, 6), QVector<quint16>(6, green | onBlue));
    QCOMPARE(console.attributes(), quint16(green | onBlue));
}

void HueboxTest::redirectedBesideConsole()
{
    const TestConsole console;
    const quint16 before = console.attributes();

    const Result result = runHuebox("--fgred --fgint Größe");

    QCOMPARE(result.output, QByteArray("Gr\xC3\xB6\xC3\x9F\x65\r\n"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(console.lines(), QStringList{""});
    QCOMPARE(console.attributes(), before);
}

QTEST_GUILESS_MAIN(HueboxTest)

#include "HueboxTest_win.moc"
