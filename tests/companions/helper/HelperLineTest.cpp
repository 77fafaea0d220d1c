#include "companions/helper/HelperLine.h"

#include "tests/companions/helper/HostileLines.h"
#include "tests/companions/helper/PrintedRequest.h"
#include "tests/companions/helper/RequestTexts.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

QString printed(const HelperReading &reading)
{
    return reading.request ? fromWide(printedRequest(*reading.request)) : "refused";
}

} // namespace

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

            QVERIFY2(reading.request, qPrintable(line));
            QCOMPARE(reading.request->action, HelperAction::setMachine);
            QCOMPARE(assignmentsOf(*reading.request),
                     (QStringList{"HALCONROOT=" + values[0], "HALCONARCH=" + values[1],
                                  "HALCONIMAGES=" + values[2], "HALCONEXAMPLES=" + values[3]}));
            QVERIFY(!reading.request->architecture);
            QCOMPARE(librariesOf(*reading.request), QStringList());
            QCOMPARE(printed(reading), line);
        }
    }

    void someVariables_data()
    {
        const auto row = columns<QString, QStringList>("line", "assignments");

        row("one", "--env HALCONROOT=\"C:\\H\" ", {"HALCONROOT=C:\\H"});
        row("another order", "--env HALCONEXAMPLES=\"e\" --env HALCONARCH=\"a\" --env HALCONROOT=\"r\" ",
            {"HALCONEXAMPLES=e", "HALCONARCH=a", "HALCONROOT=r"});
    }

    void someVariables()
    {
        QFETCH(QString, line);

        const HelperReading reading = readByHelper(line);

        QVERIFY(reading.request);
        QTEST(assignmentsOf(*reading.request), "assignments");
        QCOMPARE(printed(reading), line);
    }

    void libraries_data()
    {
        const auto row = columns<QString, bool, QStringList>("option", "is64Bit", "libraries");

        const QString directory = "C:\\Program Files\\H\\bin\\x64-win64\\";
        row("none, 64-bit", "--x64", true, {});
        row("one, 64-bit", "--x64", true, {directory + "halconx.dll"});
        row("all", "--x64", true,
            {directory + "halconx.dll", directory + "halconxxl.dll", directory + "hdevenginex.dll",
             directory + "hdevenginexxl.dll"});
        // As the program writes it for a directory registered with slashes.
        row("signs", "--x64", true, {"C:\\R&D 100% (a=b)^;,'!\\halconx.dll"});
        row("not ASCII", "--x64", true, {"C:\\Größe 寸法 😀\\halconx.dll"});
        row("options in the path", "--x64", true, {"C:\\a --x86 --env\\halconx.dll"});
        row("longest", "--x64", true, {"C:\\" + QString(244, 'x') + "\\halconx.dll"});
        row("names of devices", "--x64", true, {"C:\\NUL\\com1.x\\CON \u00b9x\\aux\\halconx.dll"});
        row("dots within names", "--x64", true, {"C:\\.a\\..b\\c.d\\halconx.dll"});
    }

    void libraries()
    {
        QFETCH(QString, option);
        QFETCH(bool, is64Bit);
        QFETCH(QStringList, libraries);
        QString line = "--env HALCONROOT=\"C:\\H\\\" --env HALCONARCH=\"x64-win64\" --env HALCONIMAGES=\"\" "
                       "--env HALCONEXAMPLES=\"\" " +
                       option;
        for (const QString &library : libraries) {
            line += " \"" + library + '"';
        }

        const HelperReading reading = readByHelper(line);

        QVERIFY2(reading.request, qPrintable(fromWide(reading.refusal)));
        QVERIFY(reading.request->architecture);
        QCOMPARE(*reading.request->architecture,
                 is64Bit ? LibraryArchitecture::x64 : LibraryArchitecture::x86);
        QCOMPARE(librariesOf(*reading.request), libraries);
        QCOMPARE(reading.request->environment.size(), std::size_t(4));
        QCOMPARE(printed(reading), line);
    }

    void copy_data()
    {
        columns<QString, QString>("destination", "source");

        row("plain", "C:\\H\\license\\license.dat", "C:\\new.dat");
        row("spaces", "C:\\Program Files\\H\\license\\my license.dat", "C:\\a b\\new file.dat");
        row("source on a share", "C:\\H\\license\\l", "\\\\nas.example.com\\my licences$\\n.dat");
        row("source on a share with slashes", "C:\\H\\license\\l", "//nas//share/a/n.dat");
        row("source on a share named as a pipe's", "C:\\H\\license\\l", "\\\\pipe\\pipes\\pipe");
        row("License in capitals", "C:\\H\\LICENSE\\license.dat", "C:\\new.dat");
        row("doubled backslashes", "C:\\H\\\\license\\\\license.dat", "C:\\\\new.dat");
        row("slashes", "C:/H/license/license.dat", "C:/new.dat");
        row("slashes and backslashes", "C:/H\\license/license.dat", "C:\\a//b.dat");
        row("signs", "C:\\R&D 100% (a=b)^;,'!\\license\\l&m.dat", "C:\\100%\\a & b.dat");
        row("not ASCII", "C:\\Prüfstand\\license\\寸法.dat", "C:\\Размер\\😀.dat");
        row("options in the paths", "C:\\--env\\license\\--x64", "C:\\--copy=x\\--help");
        // In literal paths these are names like all others.
        row("names of devices", "C:\\NUL\\license\\com1.dat", "C:\\aux\\CON");
        row("long", "C:\\" + QString(300, 'x') + "\\license\\license.dat", "C:\\" + QString(300, 'y'));
    }

    void copy()
    {
        QFETCH(QString, destination);
        QFETCH(QString, source);
        const QString line = "--copy=\"" + destination + "\" \"" + source + '"';

        const HelperReading reading = readByHelper(line);

        QVERIFY2(reading.request, qPrintable(fromWide(reading.refusal)));
        QCOMPARE(reading.request->action, HelperAction::copyLicense);
        QCOMPARE(fromWide(reading.request->destination), destination);
        QCOMPARE(fromWide(reading.request->source), source);
        QVERIFY(reading.request->environment.empty());
        QCOMPARE(printed(reading), line);
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

    /// The longest accepted ones; the hostile lines have one character more.
    void limits()
    {
        QVERIFY(readByHelper("--env HALCONROOT=\"" + QString(4096, 'x') + '"').request);
        const QString library = "C:\\" + QString(244, 'x') + "\\halconx.dll";
        QCOMPARE(library.size(), 259);
        QVERIFY(readByHelper("--env HALCONROOT=\"\" --x64 \"" + library + '"').request);
        const QString destination = "C:\\" + QString(4084, 'x') + "\\license\\";
        QCOMPARE((destination + 'y').size(), 4097);
        QVERIFY(!readByHelper("--copy=\"" + destination + "y\" \"C:\\s\"").request);
        QVERIFY(
            readByHelper("--copy=\"" + destination.mid(0, 3) + destination.mid(4) + "y\" \"C:\\s\"").request);
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
