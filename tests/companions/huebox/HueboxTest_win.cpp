#include "tests/companions/TestConsole.h"
#include "tests/support/ProgramResult.h"
#include "tests/support/Rows.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Runs huebox with exactly this command line. Forwarded channels go to the console of the test program.
ProgramResult runHuebox(const QString &arguments,
                        QProcess::ProcessChannelMode channels = QProcess::SeparateChannels,
                        const QString &directory = QString())
{
    QProcess process;
    process.setProcessChannelMode(channels);
    process.setWorkingDirectory(directory);
    return runProgram(process, HUEBOX_EXECUTABLE, arguments);
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
        row("long", "--fgred " + QString(30000, 'x'), QByteArray(30000, 'x') + "\r\n");
    }

    void redirected()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, output);

        QCOMPARE(runHuebox(arguments), (ProgramResult{0, output, ""}));
    }

    /// Even if they match a file in the current directory.
    void wildcardsAreWords()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath("a.txt"));
        QVERIFY(file.open(QFile::WriteOnly));

        QCOMPARE(runHuebox("--fgred * ? *.* a.??? \"*.txt\"", QProcess::SeparateChannels, directory.path()),
                 (ProgramResult{0, "* ? *.* a.??? *.txt\r\n", ""}));
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
        QFETCH(QByteArray, errors);

        QCOMPARE(runHuebox(arguments), (ProgramResult{2, "", errors}));
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

        QCOMPARE(runHuebox(options + ' ' + text, QProcess::ForwardedChannels).exitCode, 0);

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

        QCOMPARE(runHuebox(arguments, QProcess::ForwardedChannels).exitCode, 0);

        QTEST(console.lines(), "lines");
    }

    void longLineOnConsole()
    {
        const QString word(30000, 'x');
        const TestConsole console;

        QCOMPARE(runHuebox("--fgred " + word, QProcess::ForwardedChannels).exitCode, 0);

        QCOMPARE(console.lines().join(QString()), word);
    }

    void unknownOptionOnConsole()
    {
        TestConsole console;
        console.setAttributes(green | onBlue);

        QCOMPARE(runHuebox("--fgred --größe寸 a", QProcess::ForwardedChannels).exitCode, 2);

        QCOMPARE(console.lines(), (QStringList{"huebox: unknown option --größe寸", ""}));
        QCOMPARE(console.attributes(0, 6), QVector<quint16>(6, green | onBlue));
        QCOMPARE(console.attributes(), quint16(green | onBlue));
    }

    void redirectedBesideConsole()
    {
        const TestConsole console;
        const quint16 before = console.attributes();

        QCOMPARE(runHuebox("--fgred --fgint Größe"), (ProgramResult{0, "Gr\xC3\xB6\xC3\x9F\x65\r\n", ""}));

        QCOMPARE(console.lines(), QStringList{""});
        QCOMPARE(console.attributes(), before);
    }
};

QTEST_GUILESS_MAIN(HueboxTest)

#include "HueboxTest_win.moc"
