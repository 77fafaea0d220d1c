#include "companions/helper/HelperLine.h"

#include "tests/companions/helper/HostileLines.h"
#include "tests/companions/helper/RequestTexts.h"
#include "tests/support/Rows.h"

#include <QtTest>

class HelperLineTest : public QObject {
    Q_OBJECT

private slots:
    void programName_data()
    {
        columns<QString, QString>("commandLine", "arguments");

        row("nothing", "", "");
        row("name alone", "helper.exe", "");
        row("name in quotes alone", "\"C:\\a b\\helper.exe\"", "");
        row("name in quotes", "\"C:\\a b\\helper.exe\" --help", "--help");
        row("name without quotes", "C:\\a\\helper.exe --help", "--help");
        row("tab after the quotes", "\"helper.exe\"\t--help", "--help");
        row("several spaces after the quotes", "\"helper.exe\"   --help", "--help");
        row("tab at the end", "helper.exe --help\t", "--help\t");
        row("spaces inside stay", "helper.exe a  \"b  c \" d", "a  \"b  c \" d");
        row("empty name in quotes", "\"\" --help", "--help");
        row("space before the name, which then is empty", " helper.exe --help", "helper.exe --help");
        row("a backslash does not escape the name's quote", "\"C:\\a\\\" --help", "--help");
        row("a quote within a name without quotes", "a\"b c\" --help", "c\" --help");
        row("name's quote not closed", "\"C:\\a b\\helper.exe --help", "");
        row("no space after the quotes", "\"helper\"--help", "\"--help");
        row("name goes on after the quotes", "\"helper\".exe --help", "\".exe --help");
        row("second pair of quotes", "\"helper\"\"x\" --help", "\"\"x\" --help");
    }

    void programName()
    {
        QFETCH(QString, commandLine);

        QTEST(fromWide(argumentsOf(toWide(commandLine))), "arguments");
    }

    void values_data()
    {
        columns<QString>("value");

        row("empty", "");
        row("spaces around", "  C:\\H  ");
        row("backslashes at the end", "C:\\H\\\\");
        row("only a backslash", "\\");
        row("equals sign first", "=");
        row("bar and angle brackets", "a|b<c>d");
        row("architecture", "C:\\H --x64");
        row("assignment", "C:\\H --env HALCONARCH=x");
        row("umlauts", "C:\\Prüfstände\\Größe");
        row("beyond the basic plane", "C:\\😀");
        row("very long", "C:\\" + QString(4093, 'x'));
    }

    /// As each of the four values.
    void values()
    {
        QFETCH(QString, value);

        for (int place = 0; place < 4; ++place) {
            QStringList values{"C:\\H", "x64-win64", "", ""};
            values[place] = value;
            const QString line = QString("--env HALCONROOT=\"") + values[0] + "\" --env HALCONARCH=\"" +
                                 values[1] + "\" --env HALCONIMAGES=\"" + values[2] +
                                 "\" --env HALCONEXAMPLES=\"" + values[3] + "\" ";

            const HelperReading reading = readByHelper(line);

            QCOMPARE(printed(reading), line);
            for (std::size_t i = 0; i < 4; ++i) {
                QCOMPARE(fromWide(reading.request->environment[i].value), values[int(i)]);
            }
        }
    }

    void accepted_data()
    {
        columns<QString>("line");

        row("one variable", "--env HALCONROOT=\"C:\\H\" ");
        row("another order", "--env HALCONEXAMPLES=\"e\" --env HALCONARCH=\"a\" --env HALCONROOT=\"r\" ");

        const QString variables = "--env HALCONROOT=\"C:\\H\\\" --env HALCONIMAGES=\"\" ";
        row("32-bit without libraries", variables + "--x86");
        row("64-bit without libraries", variables + "--x64");
        row("all libraries", variables + R"(--x86 "C:\a b\halconx.dll" "C:\a b\halconxxl.dll" )"
                                         R"("C:\a b\hdevenginex.dll" "C:\a b\hdevenginexxl.dll")");
        // One character more is too much.
        row("longest library", variables + "--x64 \"C:\\" + QString(244, 'x') + "\\halconx.dll\"");
        for (const char *directory : {"R&D 100% (a=b)^;,'!", "Größe 寸法 😀", "a --x86 --env",
                                      "NUL\\com1.x\\CON \u00b9x\\aux", ".a\\..b\\c.d"}) {
            row(directory, variables + "--x64 \"C:\\" + directory + "\\halconx.dll\"");
        }

        const auto copy = [](const char *name, const QString &destination, const QString &source) {
            row(name, "--copy=\"" + destination + "\" \"" + source + '"');
        };
        copy("spaces", "C:\\Program Files\\H\\license\\my license.dat", "C:\\a b\\new file.dat");
        copy("source on a share", "C:\\H\\license\\l", "\\\\nas.example.com\\my licences$\\n.dat");
        copy("source on a share with slashes", "C:\\H\\license\\l", "//nas//share/a/n.dat");
        copy("source on a share named as a pipe's", "C:\\H\\license\\l", "\\\\pipe\\pipes\\pipe");
        copy("License in capitals", "C:\\H\\LICENSE\\license.dat", "C:\\new.dat");
        copy("doubled backslashes", "C:\\H\\\\license\\\\license.dat", "C:\\\\new.dat");
        copy("slashes and backslashes", "C:/H\\license/license.dat", "C:\\a//b.dat");
        copy("signs", "C:\\R&D 100% (a=b)^;,'!\\license\\l&m.dat", "C:\\100%\\a & b.dat");
        copy("not ASCII", "C:\\Prüfstand\\license\\寸法.dat", "C:\\Размер\\😀.dat");
        copy("options in the paths", "C:\\--env\\license\\--x64", "C:\\--copy=x\\--help");
        // In literal paths these are names like all others.
        copy("names of devices", "C:\\NUL\\license\\com1.dat", "C:\\aux\\CON");
        copy("longest", "C:\\" + QString(4083, 'x') + "\\license\\y", "C:\\" + QString(4093, 'y'));
    }

    /// The values, which could hold a quote, have a test of their own.
    void accepted()
    {
        QFETCH(QString, line);
        QCOMPARE(printed(readByHelper(line)), line);
    }

    void spacesAround_data()
    {
        columns<QString>("line");

        row("variables without the last space", "--env HALCONROOT=\"C:\\H\"");
        row("variables with several spaces at the end", "--env HALCONROOT=\"C:\\H\"   ");
        row("space before", "  --env HALCONROOT=\"C:\\H\" ");
    }

    /// The shell that starts the helper may add spaces at the ends of the arguments.
    void spacesAround()
    {
        QFETCH(QString, line);

        QCOMPARE(printed(readByHelper(line)), QString("--env HALCONROOT=\"C:\\H\" "));
    }

    void helpAndVersion()
    {
        QCOMPARE(readByHelper("--help").request->action, HelperAction::showHelp);
        QCOMPARE(readByHelper("--help ").request->action, HelperAction::showHelp);
        QCOMPARE(readByHelper("--version").request->action, HelperAction::showVersion);
    }

    void hostile_data()
    {
        HostileLines::addRows(hostileLines());
        QVERIFY(hostileLines().size() >= 290);
    }

    void hostile()
    {
        QFETCH(QString, arguments);

        const HelperReading reading = readByHelper(arguments);

        QVERIFY(!reading.request);
        QTEST(fromWide(reading.refusal), "refusal");
    }

    /// A real command line ends at a 0; a string need not.
    void nullCharacter()
    {
        const QChar null;
        QVERIFY(!readByHelper(QString("--help") + null).request);
        QVERIFY(!readByHelper("--env HALCONROOT=\"C:\\H" + QString(null) + "\" ").request);
        QVERIFY(!readByHelper("--copy=\"C:\\H\\license\\a" + QString(null) + "\" \"C:\\s\"").request);
    }
};

QTEST_APPLESS_MAIN(HelperLineTest)

#include "HelperLineTest.moc"
