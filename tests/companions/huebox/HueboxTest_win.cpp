#include "tests/companions/TestConsole.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

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
    void redirected_data()
    {
        const auto row = columns<QString, QByteArray>("arguments", "output");

        row("no arguments", "", "\r\n");
        row("words after options", "--fgred --fgint HALCON 20.11.1 (x64-win64)",
            "HALCON 20.11.1 (x64-win64)\r\n");
        row("quoted empty word", R"(a "" b)", "a  b\r\n");
        row("quoted option", R"("--fgred" a)", "a\r\n");
        row("escaped quotes", R"(say \"a\")", "say \"a\"\r\n");
        row("characters of the command interpreter", "100% %PATH% ^ a&b | c > d",
            "100% %PATH% ^ a&b | c > d\r\n");
        row("beyond the basic plane", "😀", "\xF0\x9F\x98\x80\r\n");
    }

    void redirected()
    {
        QFETCH(QString, arguments);

        const Result result = runHuebox(arguments);

        QTEST(result.output, "output");
        QCOMPARE(result.errors, QByteArray());
        QCOMPARE(result.exitCode, 0);
    }

    /// Even if they match a file in the current directory.
    void wildcardsAreWords()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath("a.txt"));
        QVERIFY(file.open(QFile::WriteOnly));

        const Result result =
            runHuebox("--fgred * ? *.* a.??? \"*.txt\"", QProcess::SeparateChannels, directory.path());

        QCOMPARE(result.output, QByteArray("* ? *.* a.??? *.txt\r\n"));
        QCOMPARE(result.exitCode, 0);
    }

    void longLine()
    {
        const QString word(30000, 'x');

        const Result result = runHuebox("--fgred " + word);

        QCOMPARE(result.output, word.toLatin1() + "\r\n");
        QCOMPARE(result.errors, QByteArray());
        QCOMPARE(result.exitCode, 0);
    }

    void unknownOption_data()
    {
        const auto row = columns<QString, QByteArray>("arguments", "errors");

        row("quoted together with a word", "\"--fgred a\"", "huebox: unknown option --fgred a\r\n");
        row("not ASCII", "--ö寸😀 a",
            "huebox: unknown option --"
            "\xC3\xB6\xE5\xAF\xB8\xF0\x9F\x98\x80\r\n");
    }

    void unknownOption()
    {
        QFETCH(QString, arguments);

        const Result result = runHuebox(arguments);

        QTEST(result.errors, "errors");
        QCOMPARE(result.output, QByteArray());
        QCOMPARE(result.exitCode, 2);
    }

    void coloursOnConsole_data()
    {
        columns<QString, int, int>("options", "before", "expected");

        row("none", "", (green | onBlue), (green | onBlue));
        row("red", "--fgred", grey, red);
        row("green", "--fggreen", grey, green);
        row("blue", "--fgblue", grey, blue);
        row("intense alone", "--fgint", grey, intense);
        row("a console that is intense itself", "--fgred", (grey | intense), red);
        row("background is kept", "--fgred --fgint", (grey | onBlue), (red | intense | onBlue));
        row("intense background is kept", "--fgblue", (grey | intense | onIntenseGreen),
            (blue | onIntenseGreen));
    }

    void coloursOnConsole()
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

    void textOnConsole_data()
    {
        const auto row = columns<QString, QStringList>("arguments", "lines");

        row("only options", "--fgred", {"", ""});
        row("Cyrillic, which the console's code page lacks", "Размер", {"Размер", ""});
        row("beyond the basic plane", "--fgred 😀 a", {"😀 a", ""});
    }

    void textOnConsole()
    {
        QFETCH(QString, arguments);
        const TestConsole console;

        const Result result = runHuebox(arguments, QProcess::ForwardedChannels);

        QCOMPARE(result.exitCode, 0);
        QTEST(console.lines(), "lines");
    }

    void longLineOnConsole()
    {
        const QString word(30000, 'x');
        const TestConsole console;

        const Result result = runHuebox("--fgred " + word, QProcess::ForwardedChannels);

        QCOMPARE(result.exitCode, 0);
        QCOMPARE(console.lines().join(QString()), word);
    }

    void unknownOptionOnConsole()
    {
        TestConsole console;
        console.setAttributes(green | onBlue);

        const Result result = runHuebox("--fgred --größe寸 a", QProcess::ForwardedChannels);

        QCOMPARE(result.exitCode, 2);
        QCOMPARE(console.lines(), (QStringList{"huebox: unknown option --größe寸", ""}));
        QCOMPARE(console.attributes(0, 6), QVector<quint16>(6, green | onBlue));
        QCOMPARE(console.attributes(), quint16(green | onBlue));
    }

    void redirectedBesideConsole()
    {
        const TestConsole console;
        const quint16 before = console.attributes();

        const Result result = runHuebox("--fgred --fgint Größe");

        QCOMPARE(result.output, QByteArray("Gr\xC3\xB6\xC3\x9F\x65\r\n"));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(console.lines(), QStringList{""});
        QCOMPARE(console.attributes(), before);
    }
};

QTEST_GUILESS_MAIN(HueboxTest)

#include "HueboxTest_win.moc"
