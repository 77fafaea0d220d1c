#include "companions/helper/HelperLine.h"

#include "tests/companions/helper/HostileLines.h"
#include "tests/companions/helper/PrintedRequest.h"
#include "tests/companions/helper/WideText.h"

#include <QtTest>

namespace {

using Pairs = QVector<QPair<QString, QString>>;

HelperReading read(const QString &arguments)
{
    return readHelperArguments(
        argumentsOf(L"\"C:\\Program Files\\x\\qz_com_helper.exe\" " + toWide(arguments)));
}

QString printed(const HelperReading &reading)
{
    return reading.request ? fromWide(printedRequest(*reading.request)) : "refused";
}

Pairs assignmentsOf(const HelperRequest &request)
{
    Pairs pairs;
    for (const EnvironmentAssignment &assignment : request.environment) {
        pairs.append({fromWide(assignment.name), fromWide(assignment.value)});
    }
    return pairs;
}

QStringList librariesOf(const HelperRequest &request)
{
    QStringList libraries;
    for (const std::wstring &library : request.libraries) {
        libraries.append(fromWide(library));
    }
    return libraries;
}

} // namespace

class HelperLineTest : public QObject {
    Q_OBJECT

private slots:
    void programName_data();
    void programName();
    void values_data();
    void values();
    void someVariables_data();
    void someVariables();
    void libraries_data();
    void libraries();
    void copy_data();
    void copy();
    void blanksAround_data();
    void blanksAround();
    void helpAndVersion();
    void limits();
    void hostile_data();
    void hostile();
    void nullCharacter();
};

void HelperLineTest::programName_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("arguments");

    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("name alone") << "helper.exe"
                                << "";
    QTest::newRow("name in quotes alone") << "\"C:\\a b\\helper.exe\""
                                          << "";
    QTest::newRow("name in quotes and a space") << "\"C:\\a b\\helper.exe\" "
                                                << "";
    QTest::newRow("name in quotes") << "\"C:\\a b\\helper.exe\" --help"
                                    << "--help";
    QTest::newRow("name without quotes") << "C:\\a\\helper.exe --help"
                                         << "--help";
    QTest::newRow("tab after the name") << "helper.exe\t--help"
                                        << "--help";
    QTest::newRow("tab after the quotes") << "\"helper.exe\"\t--help"
                                          << "--help";
    QTest::newRow("several spaces") << "helper.exe  \t --help"
                                    << "--help";
    QTest::newRow("several spaces after the quotes") << "\"helper.exe\"   --help"
                                                     << "--help";
    QTest::newRow("space at the end") << "helper.exe --help "
                                      << "--help";
    QTest::newRow("tab at the end") << "helper.exe --help\t"
                                    << "--help\t";
    QTest::newRow("spaces inside stay") << "helper.exe a  \"b  c \" d"
                                        << "a  \"b  c \" d";
    QTest::newRow("empty name in quotes") << "\"\" --help"
                                          << "--help";
    QTest::newRow("space before the name, which then is empty") << " helper.exe --help"
                                                                << "helper.exe --help";
    QTest::newRow("a backslash does not escape the name's quote") << "\"C:\\a\\\" --help"
                                                                  << "--help";
    QTest::newRow("a quote within a name without quotes") << "a\"b c\" --help"
                                                          << "c\" --help";
    QTest::newRow("name's quote not closed") << "\"C:\\a b\\helper.exe --help"
                                             << "";
    QTest::newRow("no space after the quotes") << "\"helper\"--help"
                                               << "\"--help";
    QTest::newRow("name goes on after the quotes") << "\"helper\".exe --help"
                                                   << "\".exe --help";
    QTest::newRow("second pair of quotes") << "\"helper\"\"x\" --help"
                                           << "\"\"x\" --help";
}

void HelperLineTest::programName()
{
    QFETCH(QString, commandLine);

    QTEST(fromWide(argumentsOf(toWide(commandLine))), "arguments");
}

void HelperLineTest::values_data()
{
    QTest::addColumn<QString>("value");

    QTest::newRow("empty") << "";
    QTest::newRow("directory") << "C:\\H";
    QTest::newRow("spaces") << "C:\\Program Files\\MVTec\\HALCON 20.11";
    QTest::newRow("only a space") << " ";
    QTest::newRow("spaces around") << "  C:\\H  ";
    QTest::newRow("backslash at the end") << "C:\\Program Files\\H\\";
    QTest::newRow("backslashes at the end") << "C:\\H\\\\";
    QTest::newRow("three backslashes at the end") << "C:\\H\\\\\\";
    QTest::newRow("only a backslash") << "\\";
    QTest::newRow("drive") << "C:\\";
    QTest::newRow("ampersand") << "C:\\R&D";
    QTest::newRow("percent") << "%ProgramFiles%\\H 100%";
    QTest::newRow("caret") << "C:\\H^2";
    QTest::newRow("equals signs") << "C:\\a=b==c";
    QTest::newRow("equals sign first") << "=";
    QTest::newRow("parentheses") << "C:\\Program Files (x86)\\H";
    QTest::newRow("exclamation marks") << "C:\\!H!";
    QTest::newRow("semicolon and comma") << "C:\\a;b,c";
    QTest::newRow("apostrophes") << "C:\\'H'";
    QTest::newRow("bar and angle brackets") << "a|b<c>d";
    QTest::newRow("architecture") << "C:\\H --x64";
    QTest::newRow("architecture alone") << "--x64";
    QTest::newRow("assignment") << "C:\\H --env HALCONARCH=x";
    QTest::newRow("copy") << "--copy=C:\\a C:\\b";
    QTest::newRow("help") << "--help";
    QTest::newRow("share") << "\\\\server\\HALCON";
    QTest::newRow("slashes") << "C:/T/H/";
    QTest::newRow("umlauts") << "C:\\Prüfstände\\Größe";
    QTest::newRow("Chinese") << "C:\\寸法\\测量";
    QTest::newRow("Cyrillic") << "C:\\Размер";
    QTest::newRow("beyond the basic plane") << "C:\\😀";
    QTest::newRow("combining characters") << "C:\\u\u0308";
    QTest::newRow("very long") << "C:\\" + QString(4093, 'x');
}

/// As each of the four values.
void HelperLineTest::values()
{
    QFETCH(QString, value);

    for (int place = 0; place < 4; ++place) {
        QStringList values{"C:\\H", "x64-win64", "", ""};
        values[place] = value;
        const QString line = QString("--env HALCONROOT=\"") + values[0] + "\" --env HALCONARCH=\"" +
                             values[1] + "\" --env HALCONIMAGES=\"" + values[2] +
                             "\" --env HALCONEXAMPLES=\"" + values[3] + "\" ";

        const HelperReading reading = read(line);

        QVERIFY2(reading.request, qPrintable(line));
        QCOMPARE(reading.request->action, HelperAction::setMachine);
        QCOMPARE(assignmentsOf(*reading.request), (Pairs{{"HALCONROOT", values[0]},
                                                         {"HALCONARCH", values[1]},
                                                         {"HALCONIMAGES", values[2]},
                                                         {"HALCONEXAMPLES", values[3]}}));
        QVERIFY(!reading.request->architecture);
        QCOMPARE(librariesOf(*reading.request), QStringList());
        QCOMPARE(printed(reading), line);
    }
}

void HelperLineTest::someVariables_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<Pairs>("assignments");

    QTest::newRow("one") << "--env HALCONROOT=\"C:\\H\" " << Pairs{{"HALCONROOT", "C:\\H"}};
    QTest::newRow("two") << "--env HALCONROOT=\"C:\\H\\\" --env HALCONIMAGES=\"\" "
                         << Pairs{{"HALCONROOT", "C:\\H\\"}, {"HALCONIMAGES", ""}};
    QTest::newRow("another order")
        << "--env HALCONEXAMPLES=\"e\" --env HALCONARCH=\"a\" --env HALCONROOT=\"r\" "
        << Pairs{{"HALCONEXAMPLES", "e"}, {"HALCONARCH", "a"}, {"HALCONROOT", "r"}};
}

void HelperLineTest::someVariables()
{
    QFETCH(QString, line);

    const HelperReading reading = read(line);

    QVERIFY(reading.request);
    QTEST(assignmentsOf(*reading.request), "assignments");
    QCOMPARE(printed(reading), line);
}

void HelperLineTest::libraries_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<bool>("is64Bit");
    QTest::addColumn<QStringList>("libraries");

    const QString directory = "C:\\Program Files\\H\\bin\\x64-win64\\";
    QTest::newRow("none, 64-bit") << "--x64" << true << QStringList{};
    QTest::newRow("none, 32-bit") << "--x86" << false << QStringList{};
    QTest::newRow("one, 64-bit") << "--x64" << true << QStringList{directory + "halconx.dll"};
    QTest::newRow("one, 32-bit") << "--x86" << false << QStringList{"C:\\H\\bin\\x86-win32\\halconx.dll"};
    QTest::newRow("all") << "--x64" << true
                         << QStringList{directory + "halconx.dll", directory + "halconxxl.dll",
                                        directory + "hdevenginex.dll", directory + "hdevenginexxl.dll"};
    QTest::newRow("the engine's") << "--x64" << true
                                  << QStringList{directory + "hdevenginex.dll",
                                                 directory + "hdevenginexxl.dll"};
    QTest::newRow("capitals") << "--x64" << true << QStringList{"d:\\H\\HALCONX.DLL"};
    QTest::newRow("doubled backslash")
        << "--x64" << true << QStringList{"C:\\H\\\\bin\\x64-win64\\halconx.dll"};
    QTest::newRow("slashes") << "--x64" << true << QStringList{"C:/T/H/bin/x64-win64/halconx.dll"};
    // As the program writes it for a directory registered with slashes.
    QTest::newRow("slashes and backslashes")
        << "--x64" << true
        << QStringList{"C:/T/H\\bin\\x64-win64\\halconx.dll", "C:/T/H/\\bin\\x64-win64\\hdevenginex.dll"};
    QTest::newRow("signs") << "--x64" << true << QStringList{"C:\\R&D 100% (a=b)^;,'!\\halconx.dll"};
    QTest::newRow("not ASCII") << "--x64" << true << QStringList{"C:\\Größe 寸法 😀\\halconx.dll"};
    QTest::newRow("options in the path") << "--x64" << true << QStringList{"C:\\a --x86 --env\\halconx.dll"};
    QTest::newRow("longest") << "--x64" << true << QStringList{"C:\\" + QString(244, 'x') + "\\halconx.dll"};
    QTest::newRow("names of devices")
        << "--x64" << true << QStringList{"C:\\NUL\\com1.x\\CON \u00b9x\\aux\\halconx.dll"};
    QTest::newRow("dots within names") << "--x64" << true << QStringList{"C:\\.a\\..b\\c.d\\halconx.dll"};
}

void HelperLineTest::libraries()
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

    const HelperReading reading = read(line);

    QVERIFY2(reading.request, qPrintable(fromWide(reading.refusal)));
    QVERIFY(reading.request->architecture);
    QCOMPARE(*reading.request->architecture, is64Bit ? LibraryArchitecture::x64 : LibraryArchitecture::x86);
    QCOMPARE(librariesOf(*reading.request), libraries);
    QCOMPARE(reading.request->environment.size(), std::size_t(4));
    QCOMPARE(printed(reading), line);
}

void HelperLineTest::copy_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("source");

    QTest::newRow("plain") << "C:\\H\\license\\license.dat"
                           << "C:\\new.dat";
    QTest::newRow("spaces") << "C:\\Program Files\\H\\license\\my license.dat"
                            << "C:\\a b\\new file.dat";
    QTest::newRow("other drives") << "D:\\license\\l"
                                  << "z:\\n";
    QTest::newRow("source on a share") << "C:\\H\\license\\l"
                                       << "\\\\nas.example.com\\my licences$\\n.dat";
    QTest::newRow("source on a share with slashes") << "C:\\H\\license\\l"
                                                    << "//nas//share/a/n.dat";
    QTest::newRow("source on an administrator's share") << "C:\\H\\license\\l"
                                                        << "\\\\nas\\C$\\n";
    QTest::newRow("source on a share named as a pipe's") << "C:\\H\\license\\l"
                                                         << "\\\\pipe\\pipes\\pipe";
    QTest::newRow("License in capitals") << "C:\\H\\LICENSE\\license.dat"
                                         << "C:\\new.dat";
    QTest::newRow("doubled backslashes") << "C:\\H\\\\license\\\\license.dat"
                                         << "C:\\\\new.dat";
    QTest::newRow("slashes") << "C:/H/license/license.dat"
                             << "C:/new.dat";
    QTest::newRow("slashes and backslashes") << "C:/H\\license/license.dat"
                                             << "C:\\a//b.dat";
    QTest::newRow("signs") << "C:\\R&D 100% (a=b)^;,'!\\license\\l&m.dat"
                           << "C:\\100%\\a & b.dat";
    QTest::newRow("not ASCII") << "C:\\Prüfstand\\license\\寸法.dat"
                               << "C:\\Размер\\😀.dat";
    QTest::newRow("options in the paths") << "C:\\--env\\license\\--x64"
                                          << "C:\\--copy=x\\--help";
    // In literal paths these are names like all others.
    QTest::newRow("names of devices") << "C:\\NUL\\license\\com1.dat"
                                      << "C:\\aux\\CON";
    QTest::newRow("no ending") << "C:\\H\\license\\license"
                               << "C:\\new";
    QTest::newRow("long") << "C:\\" + QString(300, 'x') + "\\license\\license.dat"
                          << "C:\\" + QString(300, 'y');
}

void HelperLineTest::copy()
{
    QFETCH(QString, destination);
    QFETCH(QString, source);
    const QString line = "--copy=\"" + destination + "\" \"" + source + '"';

    const HelperReading reading = read(line);

    QVERIFY2(reading.request, qPrintable(fromWide(reading.refusal)));
    QCOMPARE(reading.request->action, HelperAction::copyLicense);
    QCOMPARE(fromWide(reading.request->destination), destination);
    QCOMPARE(fromWide(reading.request->source), source);
    QVERIFY(reading.request->environment.empty());
    QCOMPARE(printed(reading), line);
}

void HelperLineTest::blanksAround_data()
{
    QTest::addColumn<QString>("line");

    QTest::newRow("variables without the last space") << "--env HALCONROOT=\"C:\\H\"";
    QTest::newRow("variables with several spaces at the end") << "--env HALCONROOT=\"C:\\H\"   ";
    QTest::newRow("space before") << "  --env HALCONROOT=\"C:\\H\" ";
}

/// The shell that starts the helper may add spaces at the ends of the arguments.
void HelperLineTest::blanksAround()
{
    QFETCH(QString, line);

    QCOMPARE(printed(read(line)), QString("--env HALCONROOT=\"C:\\H\" "));
}

void HelperLineTest::helpAndVersion()
{
    QCOMPARE(read("--help").request->action, HelperAction::showHelp);
    QCOMPARE(read("--help ").request->action, HelperAction::showHelp);
    QCOMPARE(read("--version").request->action, HelperAction::showVersion);
}

/// The longest accepted ones; the hostile lines have one character more.
void HelperLineTest::limits()
{
    QVERIFY(read("--env HALCONROOT=\"" + QString(4096, 'x') + '"').request);
    const QString library = "C:\\" + QString(244, 'x') + "\\halconx.dll";
    QCOMPARE(library.size(), 259);
    QVERIFY(read("--env HALCONROOT=\"\" --x64 \"" + library + '"').request);
    const QString destination = "C:\\" + QString(4084, 'x') + "\\license\\";
    QCOMPARE((destination + 'y').size(), 4097);
    QVERIFY(!read("--copy=\"" + destination + "y\" \"C:\\s\"").request);
    QVERIFY(read("--copy=\"" + destination.mid(0, 3) + destination.mid(4) + "y\" \"C:\\s\"").request);
}

void HelperLineTest::hostile_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("refusal");

    for (const HostileLine &line : hostileLines()) {
        QTest::newRow(line.name) << line.arguments << line.refusal;
    }
    QVERIFY(hostileLines().size() >= 100);
}

void HelperLineTest::hostile()
{
    QFETCH(QString, arguments);

    const HelperReading reading = read(arguments);

    QVERIFY(!reading.request);
    QTEST(fromWide(reading.refusal), "refusal");
}

/// A real command line ends at a 0; a string need not.
void HelperLineTest::nullCharacter()
{
    const QChar null;
    QVERIFY(!read(QString("--help") + null).request);
    QVERIFY(!read("--env HALCONROOT=\"C:\\H" + QString(null) + "\" ").request);
    QVERIFY(!read("--copy=\"C:\\H\\license\\a" + QString(null) + "\" \"C:\\s\"").request);
}

QTEST_APPLESS_MAIN(HelperLineTest)

#include "HelperLineTest.moc"
