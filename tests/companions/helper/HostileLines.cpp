#include "tests/companions/helper/HostileLines.h"

#include <QRegularExpression>

namespace {

const QString noArguments = "There are no arguments.";
const QString form = "The arguments are not of a known form.";
const QString unclean = " holds control characters or halves of surrogate pairs.";
const QString noDrive = " does not begin with a drive letter.";
const QString noDriveNorShare = " begins neither with a drive letter nor with a share.";
const QString noFile = " ends in a separator and names no file.";
const QString otherLibrary = " is none of HALCON's COM libraries.";
const QString sameLibrary = " is the second library of this name.";
const QString notInLicense = " does not lie in a directory named license.";
const QString noFileOnAShare = " names no file on a share.";

/// How the refusals quote a string: without characters that must not be shown.
QString shown(QString text)
{
    static const QRegularExpression unshown("[\\x{00}-\\x{1F}\"\\x{202E}]");
    return '"' + text.replace(unshown, "?").replace(QChar(0xDC00), '?') + '"';
}

QString otherVariable(const QString &name)
{
    return "The variable " + shown(name) + " is none of HALCON's.";
}

QString oddPart(const QString &part)
{
    return " has the part \"" + part + "\", which is no plain name.";
}

// The parts of good lines.
const QString root = R"(--env HALCONROOT="C:\Helper test\HALCON-20.11" )";
const QString rest = R"(--env HALCONARCH="x64-win64" --env HALCONIMAGES="" --env HALCONEXAMPLES="" )";
const QString allVariables = root + rest;
const QString library = R"( "C:\Helper test\HALCON-20.11\bin\x64-win64\halconx.dll")";
const QString secondLibrary = R"( "C:\Helper test\HALCON-20.11\bin\x64-win64\halconxxl.dll")";
const QString destination = R"("C:\Helper test\HALCON-20.11\license\license.dat")";
const QString source = R"("C:\Helper test\new.dat")";

/// The path in a part of a line.
QString unquoted(const QString &library)
{
    return library.mid(2).chopped(1);
}

QString registering(const QString &library)
{
    return allVariables + "--x64 \"" + library + '"';
}

QString copying(const QString &to)
{
    return "--copy=\"" + to + "\" " + source;
}

QString copyingFrom(const QString &from)
{
    return "--copy=" + destination + " \"" + from + '"';
}

HostileLine wrongLibrary(const QByteArray &name, const QString &path, const QString &why)
{
    return {name, registering(path), shown(path) + why};
}

HostileLine wrongDestination(const QByteArray &name, const QString &path, const QString &why = notInLicense)
{
    return {name, copying(path), shown(path) + why};
}

/// For a copy there are two lines: one with a wrong destination, one with a wrong source.
void addPaths(QVector<HostileLine> &lines, const QByteArray &how, const QString &directory,
              const QString &why, const QString &end = QString(), const QString &whyInSource = QString())
{
    const QString library = directory + "halconx.dll" + end;
    const QString to = directory + "license.dat" + end;
    const QString from = directory + "new.dat" + end;
    // The part that the reason names may be the file's name.
    const auto refusal = [&](const QString &path, const QString &name, QString reason) {
        reason.replace("FILE", name + end);
        return shown(path) + reason;
    };
    const QString inSourceToo =
        !whyInSource.isEmpty() ? whyInSource : (why == noDrive ? noDriveNorShare : why);
    lines.append({"library " + how, registering(library), refusal(library, "halconx.dll", why)});
    lines.append({"destination " + how, copying(to), refusal(to, "license.dat", why)});
    lines.append({"source " + how, copyingFrom(from), refusal(from, "new.dat", inSourceToo)});
}

/// The same where a path on a share would be acceptable.
void addShares(QVector<HostileLine> &lines, const QByteArray &how, const QString &directory)
{
    lines.append(wrongLibrary("library " + how, directory + "halconx.dll", noDrive));
    lines.append(wrongDestination("destination " + how, directory + "license.dat", noDrive));
}

/// Lines of no known form.
QVector<HostileLine> whole()
{
    return {
        {"no arguments", "", noArguments},
        {"spaces", "   ", noArguments},
        {"tab", "\t", noArguments},
        {"empty quotes", "\"\"", form},
        {"a quote", "\"", form},
        {"a word", "setup", form},
        {"two dashes", "--", form},
        {"unknown option", "--delete", form},
        {"unknown option before a good line", "--force " + allVariables, form},
        {"unknown option after a good line", allVariables + "--force", form},
        {"unknown option between", root + "--force " + rest, form},
        {"question mark", "/?", form},
        {"help with one dash", "-help", form},
        {"help short", "-h", form},
        {"help with a slash", "/help", form},
        {"help in capitals", "--HELP", form},
        {"help in quotes", "\"--help\"", form},
        {"help twice", "--help --help", form},
        {"help and version", "--help --version", form},
        {"help before a good line", "--help " + allVariables, form},
        {"help after a good line", allVariables + "--help", form},
        {"help with a value", "--help=\"x\"", form},
        {"help and a line break", "--help\n", form},
        {"version after a copy", "--copy=" + destination + ' ' + source + " --version", form},
        {"version and a number", "--version 2", form},
        {"response file", "@C:\\arguments.txt", form},
        {"a good line in quotes", "\"--copy=\" \"" + source + '"', form},
        {"a command after the line", allVariables + "& calc.exe", form},
        {"a pipe after the line", allVariables + "| calc.exe", form},
        {"a redirection", allVariables + "> C:\\x", form},
    };
}

QVector<HostileLine> variables()
{
    return {
        {"env alone", "--env", form},
        {"env without a name", "--env =\"x\"", otherVariable("")},
        {"env without an equals sign", "--env HALCONROOT", form},
        {"env without a value", "--env HALCONROOT=", form},
        {"value without quotes", "--env HALCONROOT=C:\\H", form},
        {"value in single quotes", "--env HALCONROOT='C:\\H'", form},
        {"value in typographic quotes", "--env HALCONROOT=“C:\\H”", form},
        {"quote not closed", "--env HALCONROOT=\"C:\\H", form},
        {"quote not opened", "--env HALCONROOT=C:\\H\"", form},
        {"last quote not closed", root + "--env HALCONARCH=\"x64-win64", form},
        {"quote too many", "--env HALCONROOT=\"C:\\H\"\"", form},
        {"quote in a value", "--env HALCONROOT=\"C:\\H\"x\" ", form},
        {"quote escaped as C does", "--env HALCONROOT=\"C:\\\"H\"", form},
        {"quote doubled as C does", "--env HALCONROOT=\"C:\"\"H\"", form},
        {"text after the quotes", "--env HALCONROOT=\"C:\\H\"x", form},
        {"next option without a space", "--env HALCONROOT=\"C:\\H\"--env HALCONARCH=\"x\"", form},
        {"next option after a tab", "--env HALCONROOT=\"C:\\H\"\t--env HALCONARCH=\"x\"", form},
        {"next option after two spaces", "--env HALCONROOT=\"C:\\H\"  --env HALCONARCH=\"x\"", form},
        {"next option after a line break", "--env HALCONROOT=\"C:\\H\"\n--env HALCONARCH=\"x\"", form},
        {"next option after a no-break space", "--env HALCONROOT=\"C:\\H\"\u00A0--env HALCONARCH=\"x\"",
         form},
        {"two spaces after env", "--env  HALCONROOT=\"C:\\H\"", otherVariable(" HALCONROOT")},
        {"tab after env", "--env\tHALCONROOT=\"C:\\H\"", form},
        {"equals sign after env", "--env=HALCONROOT=\"C:\\H\"", form},
        {"no space after env", "--envHALCONROOT=\"C:\\H\"", form},
        {"env in capitals", "--ENV HALCONROOT=\"C:\\H\"", form},
        {"env with one dash", "-env HALCONROOT=\"C:\\H\"", form},
        {"env with three dashes", "---env HALCONROOT=\"C:\\H\"", form},
        {"assignment in quotes", "--env \"HALCONROOT=C:\\H\"", form},
        {"name in quotes", "--env \"HALCONROOT\"=\"C:\\H\"", otherVariable("\"HALCONROOT\"")},
        {"space before the equals sign", "--env HALCONROOT =\"C:\\H\"", otherVariable("HALCONROOT ")},
        {"space after the equals sign", "--env HALCONROOT= \"C:\\H\"", form},
        {"two equals signs", "--env HALCONROOT==\"C:\\H\"", form},
        {"value twice", "--env HALCONROOT=\"C:\\H\" \"C:\\I\"", form},
        {"PATH", "--env PATH=\"C:\\H\"", otherVariable("PATH")},
        {"Path after a good one", allVariables + "--env Path=\"C:\\H\"", otherVariable("Path")},
        {"ComSpec", "--env ComSpec=\"C:\\H\\cmd.exe\"", otherVariable("ComSpec")},
        {"PATHEXT", "--env PATHEXT=\".TXT\"", otherVariable("PATHEXT")},
        {"TEMP", "--env TEMP=\"C:\\H\"", otherVariable("TEMP")},
        {"SystemRoot", "--env SystemRoot=\"C:\\H\"", otherVariable("SystemRoot")},
        {"PSModulePath", "--env PSModulePath=\"C:\\H\"", otherVariable("PSModulePath")},
        {"an unknown HALCON variable", "--env HALCONEXTENSIONS=\"C:\\H\"", otherVariable("HALCONEXTENSIONS")},
        {"name in small letters", "--env halconroot=\"C:\\H\"", otherVariable("halconroot")},
        {"name in mixed case", "--env HalconRoot=\"C:\\H\"", otherVariable("HalconRoot")},
        {"name cut short", "--env HALCONROO=\"C:\\H\"", otherVariable("HALCONROO")},
        {"name longer", "--env HALCONROOTS=\"C:\\H\"", otherVariable("HALCONROOTS")},
        {"name with a path", "--env ..\\HALCONROOT=\"C:\\H\"", otherVariable("..\\HALCONROOT")},
        {"name with a foreign letter", "--env HALC\u041ENROOT=\"C:\\H\"", otherVariable("HALC\u041ENROOT")},
        {"name with an invisible character", "--env HALCONROOT\u200B=\"C:\\H\"",
         otherVariable("HALCONROOT\u200B")},
        {"name with a direction mark", "--env HALCON\u202EROOT=\"C:\\H\"",
         "The variable \"HALCON?ROOT\" is none of HALCON's."},
        {"name twice", "--env HALCONROOT=\"C:\\H\" --env HALCONROOT=\"C:\\I\"",
         "The variable HALCONROOT is named twice."},
        {"name twice with the same value", root + root, "The variable HALCONROOT is named twice."},
        {"name twice with others between", allVariables + root, "The variable HALCONROOT is named twice."},
        {"all names twice", allVariables + allVariables, "The variable HALCONROOT is named twice."},
        {"line break in a value", "--env HALCONROOT=\"C:\\H\n\"", "The value of HALCONROOT" + unclean},
        {"tab in a value", "--env HALCONROOT=\"C:\\\tH\"", "The value of HALCONROOT" + unclean},
        {"escape character in a value", "--env HALCONROOT=\"\x1B[0m\"", "The value of HALCONROOT" + unclean},
        {"delete character in a value", "--env HALCONROOT=\"\x7F\"", "The value of HALCONROOT" + unclean},
        {"upper control character in a value", "--env HALCONROOT=\"\u0085\"",
         "The value of HALCONROOT" + unclean},
        {"lone surrogate in a value", "--env HALCONROOT=\"C:\\" + QString(QChar(0xD800)) + "\"",
         "The value of HALCONROOT" + unclean},
        {"surrogate pair the wrong way round",
         "--env HALCONROOT=\"" + QString(QChar(0xDE00)) + QString(QChar(0xD83D)) + "\"",
         "The value of HALCONROOT" + unclean},
        {"value too long", "--env HALCONROOT=\"" + QString(4097, 'x') + "\"",
         "The value of HALCONROOT is longer than 4096 characters."},
        {"second value too long", root + "--env HALCONARCH=\"" + QString(20000, 'x') + "\"",
         "The value of HALCONARCH is longer than 4096 characters."},
    };
}

QVector<HostileLine> libraries()
{
    const QString directory = R"(C:\Helper test\HALCON-20.11\bin\x64-win64\)";
    return {
        {"architecture alone", "--x64", form},
        {"libraries without variables", "--x64" + library, form},
        {"libraries without an architecture", allVariables + library.mid(1), form},
        {"variables after the libraries", "--x64" + library + ' ' + allVariables, form},
        {"variable after the libraries", root + "--x64" + library + ' ' + rest, form},
        {"both architectures", allVariables + "--x64 --x86", form},
        {"architecture twice", allVariables + "--x64 --x64", form},
        {"architecture twice with libraries", allVariables + "--x64" + library + " --x64" + secondLibrary,
         form},
        {"other architecture after a library", allVariables + "--x64" + library + " --x86" + secondLibrary,
         form},
        {"unknown architecture", allVariables + "--arm64" + library, form},
        {"architecture cut short", allVariables + "--x6" + library, form},
        {"architecture in capitals", allVariables + "--X64" + library, form},
        {"architecture with a value", allVariables + "--x64=" + library.mid(1), form},
        {"no space before the library", allVariables + "--x64" + library.mid(1), form},
        {"two spaces before the library", allVariables + "--x64 " + library, form},
        {"tab before the library", allVariables + "--x64\t" + library.mid(1), form},
        {"two spaces before the architecture", allVariables + " --x64" + library, form},
        {"no space before the architecture", allVariables.trimmed() + "--x64" + library, form},
        {"library without quotes", allVariables + "--x64 C:\\H\\bin\\x64-win64\\halconx.dll", form},
        {"library's quote not closed", allVariables + "--x64 \"C:\\H\\bin\\x64-win64\\halconx.dll", form},
        {"second library's quote not closed", allVariables + "--x64" + library + secondLibrary.chopped(1),
         form},
        {"no space between libraries", allVariables + "--x64" + library + secondLibrary.mid(1), form},
        {"comma between libraries", allVariables + "--x64" + library + ',' + secondLibrary, form},
        {"text after a library", allVariables + "--x64" + library + "x", form},
        {"option of regsvr32", allVariables + "--x64 /u" + library, form},
        {"option of regsvr32 in quotes", allVariables + "--x64 \"/u\"" + library, shown("/u") + noDrive},
        wrongLibrary("library with an option", "/i:x " + directory + "halconx.dll", noDrive),
        wrongLibrary("empty library", "", noDrive),
        wrongLibrary("library of one space", " ", noDrive),
        wrongLibrary("directory as library", directory, noFile),
        wrongLibrary("drive as library", "C:\\", noFile),
        wrongLibrary("drive as library after a slash", "C:/", noFile),
        wrongLibrary("library without its path", "halconx.dll", noDrive),
        {"library's path too long", registering("C:\\" + QString(246, 'x') + "\\halconx.dll"),
         "\"C:\\" + QString(246, 'x') + "\\halconx.dll\" is longer than 259 characters."},
        {"other library after a direction mark", registering("C:\\a\u202Ell\\evil.dll"),
         "\"C:\\a?ll\\evil.dll\"" + otherLibrary},
        wrongLibrary("other library", directory + "evil.dll", otherLibrary),
        wrongLibrary("HALCON's library that is no COM library", directory + "halcon.dll", otherLibrary),
        wrongLibrary("library with another ending", directory + "halconx.ocx", otherLibrary),
        wrongLibrary("library without its ending", directory + "halconx", otherLibrary),
        wrongLibrary("library with two endings", directory + "halconx.dll.exe", otherLibrary),
        wrongLibrary("library's name longer at the front", directory + "xhalconx.dll", otherLibrary),
        wrongLibrary("library's name with a foreign letter", directory + "halc\u043Enx.dll", otherLibrary),
        wrongLibrary("library's name with a dotless letter", directory + "hdevengınex.dll", otherLibrary),
        wrongLibrary("directory named as a library", directory + "halconx.dll\\evil.dll", otherLibrary),
        {"library twice", allVariables + "--x64" + library + library, shown(unquoted(library)) + sameLibrary},
        {"library twice in other case", allVariables + "--x64" + library + library.toUpper(),
         shown(unquoted(library.toUpper())) + sameLibrary},
        {"library twice, once with slashes",
         allVariables + "--x64" + library + QString(library).replace('\\', '/'),
         shown(unquoted(QString(library).replace('\\', '/'))) + sameLibrary},
        wrongLibrary("other library with slashes", "C:/Helper test/HALCON-20.11/bin/x64-win64/evil.dll",
                     otherLibrary),
        {"library twice with another between", allVariables + "--x64" + library + secondLibrary + library,
         shown(unquoted(library)) + sameLibrary},
        {"library's name twice in two directories", allVariables + "--x64" + library + " \"C:\\halconx.dll\"",
         shown("C:\\halconx.dll") + sameLibrary},
        {"bad library after a good one", allVariables + "--x64" + library + " \"" + directory + "evil.dll\"",
         shown(directory + "evil.dll") + otherLibrary},
    };
}

QVector<HostileLine> copies()
{
    const QString copy = "--copy=" + destination + ' ' + source;
    const QString tooLong = "\"C:\\" + QString(297, 'x') + "...\" is longer than 4096 characters.";
    return {
        {"copy alone", "--copy", form},
        {"copy without paths", "--copy=", form},
        {"copy without a source", "--copy=" + destination, form},
        {"copy with an empty source", "--copy=" + destination + " \"\"", shown("") + noDriveNorShare},
        wrongDestination("copy with an empty destination", "", noDrive),
        {"copy with nothing after the space", "--copy=" + destination + ' ', form},
        {"copy without an equals sign", "--copy " + destination + ' ' + source, form},
        {"space after the equals sign of copy", "--copy= " + destination + ' ' + source, form},
        {"copy in capitals", "--COPY=" + destination + ' ' + source, form},
        {"a move", "--move=" + destination + ' ' + source, form},
        {"destination without quotes", "--copy=C:\\H\\license\\license.dat " + source, form},
        {"source without quotes", "--copy=" + destination + " C:\\new.dat", form},
        {"source's quote not closed", "--copy=" + destination + " \"C:\\new.dat", form},
        {"destination's quote not closed", "--copy=\"C:\\H\\license\\license.dat " + source, form},
        {"no space before the source", "--copy=" + destination + source, form},
        {"two spaces before the source", "--copy=" + destination + "  " + source, form},
        {"tab before the source", "--copy=" + destination + '\t' + source, form},
        {"text after the source", copy + "x", form},
        {"third path", copy + ' ' + source, form},
        {"copy twice", copy + ' ' + copy, form},
        {"copy before variables", copy + ' ' + allVariables, form},
        {"copy after variables", allVariables + copy, form},
        {"copy after an architecture", allVariables + "--x64 " + copy, form},
        {"source as an option of its own", "--copy=" + destination + " --source=" + source, form},
        {"all in one pair of quotes", "--copy=\"C:\\H\\license\\license.dat C:\\new.dat\"", form},
        {"option in quotes", "\"--copy=C:\\H\\license\\license.dat\" " + source, form},
        wrongDestination("destination is a directory", "C:\\Helper test\\HALCON-20.11\\license\\", noFile),
        {"source is a directory", "--copy=" + destination + " \"C:\\Helper test\\\"",
         shown("C:\\Helper test\\") + noFile},
        wrongDestination("destination is the license directory", "C:\\Helper test\\HALCON-20.11\\license"),
        wrongDestination("destination in another directory", "C:\\Helper test\\HALCON-20.11\\license.dat"),
        wrongDestination("destination among the system's files", "C:\\windows\\system32\\license.dll"),
        wrongDestination("destination below the license directory",
                         "C:\\Helper test\\HALCON-20.11\\license\\sub\\license.dat"),
        wrongDestination("destination below the license directory with slashes",
                         "C:/Helper test/HALCON-20.11/license/sub/license.dat"),
        wrongDestination("directory named licence", "C:\\Helper test\\HALCON-20.11\\licence\\license.dat"),
        wrongDestination("directory named license and more",
                         "C:\\Helper test\\HALCON-20.11\\licenses\\license.dat"),
        {"directory named license with a foreign letter",
         "--copy=\"C:\\Helper test\\HALCON-20.11\\l\u0456cense\\license.dat\" " + source,
         shown("C:\\Helper test\\HALCON-20.11\\l\u0456cense\\license.dat") + notInLicense},
        wrongDestination("destination on the drive itself", "C:\\license"),
        {"destination too long", "--copy=\"C:\\" + QString(4096, 'x') + "\\license\\license.dat\" " + source,
         tooLong},
        {"source too long", "--copy=" + destination + " \"C:\\" + QString(4096, 'x') + '"', tooLong},
        {"source and destination on one relative path", "--copy=\"license\\a\" \"b\"",
         shown("license\\a") + noDrive},
    };
}

} // namespace

namespace HostileLines {

QVector<HostileLine> lines()
{
    return whole() + variables() + libraries();
}

QVector<HostileLine> paths()
{
    QVector<HostileLine> lines = copies();
    addShares(lines, "on a share", R"(\\server\share\license\)");
    addPaths(lines, "in a device path", R"(\\.\C:\Helper test\license\)", noDrive, QString(), oddPart("."));
    addPaths(lines, "in a literal path", R"(\\?\C:\Helper test\license\)", noDrive, QString(), oddPart("?"));
    addPaths(lines, "in an object path", R"(\??\C:\Helper test\license\)", noDrive);
    addPaths(lines, "through the drive's current directory", R"(C:license\)", noDrive);
    addPaths(lines, "without a drive", R"(\Helper test\license\)", noDrive);
    addPaths(lines, "on a relative path", R"(license\)", noDrive);
    addPaths(lines, "on a drive of two letters", R"(CC:\license\)", noDrive);
    addPaths(lines, "on a drive without letter", R"(1:\license\)", noDrive);
    addPaths(lines, "on a foreign drive letter", "Ç:\\license\\", noDrive);
    addShares(lines, "on a share with slashes", "//server/share/license/");
    addPaths(lines, "in a device path with slashes", "//./C:/Helper test/license/", noDrive, QString(),
             oddPart("."));
    addPaths(lines, "in a literal path with slashes", "//?/C:/Helper test/license/", noDrive, QString(),
             oddPart("?"));
    addPaths(lines, "without a drive after a slash", "/Helper test/license/", noDrive);
    addPaths(lines, "over a parent directory", R"(C:\Helper test\HALCON-20.11\license\..\license\)",
             oddPart(".."));
    addPaths(lines, "over a parent directory between slashes",
             "C:/Helper test/HALCON-20.11/license/../license/", oddPart(".."));
    addPaths(lines, "over a parent directory after a slash",
             R"(C:\Helper test\HALCON-20.11\license/..\license\)", oddPart(".."));
    addPaths(lines, "over the same directory", R"(C:\Helper test\HALCON-20.11\license\.\)", oddPart("."));
    addPaths(lines, "over three dots", R"(C:\Helper test\...\license\)", oddPart("..."));
    addPaths(lines, "over a directory with a dot at its end", R"(C:\Helper test.\license\)",
             oddPart("Helper test."));
    addPaths(lines, "over a directory with a space at its end", "C:\\Helper test \\license\\",
             oddPart("Helper test "));
    addPaths(lines, "with a stream", R"(C:\Helper test\HALCON-20.11\license\)", oddPart("FILE"), ":x");
    addPaths(lines, "with a data stream", R"(C:\Helper test\HALCON-20.11\license\)", oddPart("FILE"),
             "::$DATA");
    addPaths(lines, "with a stream after slashes", "C:/Helper test/HALCON-20.11/license/", oddPart("FILE"),
             ":x");
    addPaths(lines, "with a slash at its end", R"(C:\Helper test\HALCON-20.11\license\)", noFile, "/");
    addPaths(lines, "below a stream of a directory", R"(C:\Helper test\HALCON-20.11:x\license\)",
             oddPart("HALCON-20.11:x"));
    addPaths(lines, "with a space at its end", R"(C:\Helper test\HALCON-20.11\license\)", oddPart("FILE"),
             " ");
    addPaths(lines, "with a dot at its end", R"(C:\Helper test\HALCON-20.11\license\)", oddPart("FILE"), ".");
    addPaths(lines, "with an asterisk", R"(C:\Helper test\*\license\)", oddPart("*"));
    addPaths(lines, "with a question mark", R"(C:\Helper test\?\license\)", oddPart("?"));
    addPaths(lines, "with angle brackets", R"(C:\Helper test\<\license\)", oddPart("<"));
    addPaths(lines, "with a bar", R"(C:\Helper test|x\license\)", oddPart("Helper test|x"));
    addPaths(lines, "with a line break", "C:\\Helper\ntest\\license\\", unclean);
    addPaths(lines, "with a lone surrogate", "C:\\" + QString(QChar(0xDC00)) + "\\license\\", unclean);
    const auto source = [&lines](const char *name, const QString &path, const QString &why) {
        lines.append({name, copyingFrom(path), shown(path) + why});
    };
    source("source is a server", R"(\\server)", noFileOnAShare);
    source("source is a server of one letter", R"(\\s)", noFileOnAShare);
    source("source is a share", R"(\\server\share)", noFileOnAShare);
    source("source is a share with slashes", "//server//share", noFileOnAShare);
    source("source is a directory of a share", R"(\\server\share\license\)", noFile);
    source("source is nothing on a share", R"(\\)", noDriveNorShare);
    source("source below a directory of one letter", R"(x\share\new.dat)", noDriveNorShare);
    source("source after three separators", R"(\\\server\share\new.dat)", noDriveNorShare);
    source("source on a share over its parent", R"(\\server\share\..\other\new.dat)", oddPart(".."));
    source("source is a stream on a share", R"(\\server\share\new.dat:x)", oddPart("new.dat:x"));
    source("source on a share of a server with a port", R"(\\server:80\share\new.dat)", oddPart("server:80"));
    source("source is a pipe", R"(\\server\pipe\new.dat)", noFileOnAShare);
    source("source is a pipe after a redirector", R"(\\;LanmanRedirector\server\pipe\new.dat)",
           noFileOnAShare);
    source("source is a pipe in capitals", R"(\\server\PIPE\new.dat)", noFileOnAShare);
    source("source is a mailslot", R"(\\server\mailslot\new.dat)", noFileOnAShare);
    source("source is a pipe on its own share", R"(\\server\IPC$\pipe\new.dat)", noFileOnAShare);
    return lines;
}

} // namespace HostileLines

QVector<HostileLine> hostileLines()
{
    return HostileLines::lines() + HostileLines::paths();
}
