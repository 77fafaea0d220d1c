#include "tests/companions/helper/HostileLines.h"

#include "tests/support/Rows.h"

#include <QRegularExpression>

namespace {

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

QString oddPart(const QString &part)
{
    return " has the part \"" + part + "\", which is no plain name.";
}

// The parts of good lines.
const QString root = R"(--env HALCONROOT="C:\Helper test\HALCON-20.11" )";
const QString rest = R"(--env HALCONARCH="x64-win64" --env HALCONIMAGES="" --env HALCONEXAMPLES="" )";
const QString allVariables = root + rest;
const QString binaries = R"(C:\Helper test\HALCON-20.11\bin\x64-win64\)";
const QString library = " \"" + binaries + "halconx.dll\"";
const QString secondLibrary = " \"" + binaries + "halconxxl.dll\"";
const QString license = R"(C:\Helper test\HALCON-20.11\license\)";
const QString destination = '"' + license + "license.dat\"";
const QString source = R"("C:\Helper test\new.dat")";

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

/// Lines that are all refused for the same reason.
QVector<HostileLine> refused(const QStringList &lines, const QString &refusal)
{
    QVector<HostileLine> result;
    for (const QString &line : lines) {
        result.append({line, refusal});
    }
    return result;
}

/// Paths that are refused for the same reason, in lines that @p write makes of them.
QVector<HostileLine> refusedPaths(QString (*write)(const QString &path), const QStringList &paths,
                                  const QString &why)
{
    QVector<HostileLine> result;
    for (const QString &path : paths) {
        result.append({write(path), shown(path) + why});
    }
    return result;
}

/// The file of this name in each directory, as a library, a destination and a source. In the reason FILE
/// stands for its name; the reason of the source may differ.
QVector<HostileLine> refusedDirectories(const QStringList &directories, const QString &why,
                                        const QString &end = QString(),
                                        const QString &whyInSource = QString())
{
    const auto refusedFile = [&](auto write, const QString &directory, const QString &name,
                                 const QString &reason) {
        return refusedPaths(write, {directory + name}, QString(reason).replace("FILE", name));
    };
    const QString same = why == noDrive ? noDriveNorShare : why;
    const QString ofSource = whyInSource.isEmpty() ? same : whyInSource;
    QVector<HostileLine> result;
    for (const QString &each : directories) {
        result += refusedFile(registering, each, "halconx.dll" + end, why);
        result += refusedFile(copying, each, "license.dat" + end, why);
        result += refusedFile(copyingFrom, each, "new.dat" + end, ofSource);
    }
    return result;
}

/// Lines of no known form.
QVector<HostileLine> whole()
{
    const QString good = allVariables;
    return refused({"", "   ", "\t"}, "There are no arguments.") +
           refused({"\"\"", "\"", "setup", "--", "--delete", "--force " + good, good + "--force",
                    root + "--force " + rest, "@C:\\arguments.txt", "\"--copy=\" \"" + source + '"',
                    good + "& calc.exe", good + "| calc.exe", good + "> C:\\x"},
                   form) +
           // Only the options for help and the version themselves count, and only alone.
           refused({"/?", "-help", "-h", "/help", "--HELP", "\"--help\"", "--help --help", "--help --version",
                    "--help " + good, good + "--help", "--help=\"x\"", "--help\n",
                    "--copy=" + destination + ' ' + source + " --version", "--version 2"},
                   form);
}

QVector<HostileLine> variables()
{
    QVector<HostileLine> lines = refused(
        {// Something is missing.
         R"(--env)", R"(--env HALCONROOT)", R"(--env HALCONROOT=)", R"(--env HALCONROOT=C:\H)",
         // Quotes: single, typographic, not closed, not opened, too many, escaped or doubled as C does.
         R"(--env HALCONROOT='C:\H')", R"(--env HALCONROOT=“C:\H”)", R"(--env HALCONROOT="C:\H)",
         R"(--env HALCONROOT=C:\H")", root + R"(--env HALCONARCH="x64-win64)", R"(--env HALCONROOT="C:\H"")",
         R"(--env HALCONROOT="C:\H"x" )", R"(--env HALCONROOT="C:\"H")", R"(--env HALCONROOT="C:""H")",
         R"(--env HALCONROOT="C:\H"x)",
         // The next option follows without a space, or after another character than one space.
         R"(--env HALCONROOT="C:\H"--env HALCONARCH="x")",
         "--env HALCONROOT=\"C:\\H\"\t--env HALCONARCH=\"x\"",
         R"(--env HALCONROOT="C:\H"  --env HALCONARCH="x")",
         "--env HALCONROOT=\"C:\\H\"\n--env HALCONARCH=\"x\"",
         "--env HALCONROOT=\"C:\\H\"\u00A0--env HALCONARCH=\"x\"",
         // Other spellings of the option and around the equals sign.
         "--env\tHALCONROOT=\"C:\\H\"", R"(--env=HALCONROOT="C:\H")", R"(--envHALCONROOT="C:\H")",
         R"(--ENV HALCONROOT="C:\H")", R"(-env HALCONROOT="C:\H")", R"(---env HALCONROOT="C:\H")",
         R"(--env "HALCONROOT=C:\H")", R"(--env HALCONROOT= "C:\H")", R"(--env HALCONROOT=="C:\H")",
         R"(--env HALCONROOT="C:\H" "C:\I")"},
        form);
    const QStringList names{
        // Other variables.
        "", "PATH", "ComSpec", "PATHEXT", "TEMP", "SystemRoot", "PSModulePath", "HALCONEXTENSIONS",
        // A good name in another case, cut short, longer, and with look-alike or invisible letters.
        "halconroot", "HalconRoot", "HALCONROO", "HALCONROOTS", " HALCONROOT", "HALCONROOT ",
        "\"HALCONROOT\"", "..\\HALCONROOT", "HALC\u041ENROOT", "HALCONROOT\u200B", "HALCON\u202EROOT"};
    const QString otherVariable = "The variable %1 is none of HALCON's.";
    for (const QString &name : names) {
        lines.append({"--env " + name + R"(="C:\H")", otherVariable.arg(shown(name))});
    }
    lines.append({allVariables + R"(--env Path="C:\H")", otherVariable.arg(shown("Path"))});
    lines += refused({R"(--env HALCONROOT="C:\H" --env HALCONROOT="C:\I")", root + root, allVariables + root,
                      allVariables + allVariables},
                     "The variable HALCONROOT is named twice.");
    // Control characters, a lone surrogate, and a pair the wrong way round.
    const QString wrongWayRound = QString(QChar(0xDE00)) + QChar(0xD83D);
    for (const QString &value : {QString("C:\\H\n"), QString("C:\\\tH"), QString("\x1B[0m"), QString("\x7F"),
                                 QString("\u0085"), "C:\\" + QString(QChar(0xD800)), wrongWayRound}) {
        lines.append({"--env HALCONROOT=\"" + value + '"', "The value of HALCONROOT" + unclean});
    }
    lines.append({"--env HALCONROOT=\"" + QString(4097, 'x') + '"',
                  "The value of HALCONROOT is longer than 4096 characters."});
    lines.append({root + "--env HALCONARCH=\"" + QString(20000, 'x') + '"',
                  "The value of HALCONARCH is longer than 4096 characters."});
    return lines;
}

QVector<HostileLine> libraries()
{
    const QString good = allVariables + "--x64" + library;
    const QString longDirectory = "C:\\" + QString(245, 'x') + "\\";
    return refused(
               {// The architecture: alone, in the wrong place, twice, unknown.
                "--x64", "--x64" + library, allVariables + library.mid(1),
                "--x64" + library + ' ' + allVariables, root + "--x64" + library + ' ' + rest,
                allVariables + "--x64 --x86", allVariables + "--x64 --x64", good + " --x64" + secondLibrary,
                good + " --x86" + secondLibrary, allVariables + "--arm64" + library,
                allVariables + "--x6" + library, allVariables + "--X64" + library,
                allVariables + "--x64=" + library.mid(1),
                // The spaces around it and between the libraries.
                allVariables + "--x64" + library.mid(1), allVariables + "--x64 " + library,
                allVariables + "--x64\t" + library.mid(1), allVariables + " --x64" + library,
                allVariables.trimmed() + "--x64" + library, good + secondLibrary.mid(1),
                good + ',' + secondLibrary, good + "x",
                // Quotes that are missing or not closed, and an option of regsvr32.
                allVariables + "--x64 C:\\H\\bin\\x64-win64\\halconx.dll", good.chopped(1),
                good + secondLibrary.chopped(1), allVariables + "--x64 /u" + library},
               form) +
           refused({allVariables + "--x64 \"/u\"" + library}, shown("/u") + noDrive) +
           refusedPaths(registering, {"/i:x " + binaries + "halconx.dll", "", " ", "halconx.dll"}, noDrive) +
           refusedPaths(registering, {binaries, "C:\\", "C:/"}, noFile) +
           refusedPaths(registering, {longDirectory + "halconx.dll"}, " is longer than 259 characters.") +
           // Other files, other endings, and look-alike letters.
           refusedPaths(registering,
                        {binaries + "evil.dll", "C:/Helper test/HALCON-20.11/bin/x64-win64/evil.dll",
                         "C:\\a\u202Ell\\evil.dll", binaries + "halcon.dll", binaries + "halconx.ocx",
                         binaries + "halconx", binaries + "halconx.dll.exe", binaries + "xhalconx.dll",
                         binaries + "halc\u043Enx.dll", binaries + "hdevengınex.dll",
                         binaries + "halconx.dll\\evil.dll"},
                        otherLibrary) +
           refused({good + " \"" + binaries + "evil.dll\""}, shown(binaries + "evil.dll") + otherLibrary) +
           refused({good + library, good + secondLibrary + library}, library.mid(1) + sameLibrary) +
           // The same name in other case, with slashes, or in another directory.
           refused({good + library.toUpper()}, library.toUpper().mid(1) + sameLibrary) +
           refused({good + QString(library).replace('\\', '/')},
                   QString(library).replace('\\', '/').mid(1) + sameLibrary) +
           refused({good + " \"C:\\halconx.dll\""}, shown("C:\\halconx.dll") + sameLibrary);
}

QVector<HostileLine> copies()
{
    const QString to = "--copy=" + destination;
    const QString good = to + ' ' + source;
    const QString tooLong = "\"C:\\" + QString(297, 'x') + "...\" is longer than 4096 characters.";
    return refused({"--copy", "--copy=", to, to + ' ', "--copy " + destination + ' ' + source,
                    "--copy= " + destination + ' ' + source, "--COPY=" + destination + ' ' + source,
                    "--move=" + destination + ' ' + source,
                    // Quotes that are missing, not closed, or around too much.
                    "--copy=C:\\H\\license\\license.dat " + source, to + " C:\\new.dat",
                    to + " \"C:\\new.dat", "--copy=\"C:\\H\\license\\license.dat " + source,
                    "--copy=\"C:\\H\\license\\license.dat C:\\new.dat\"",
                    "\"--copy=C:\\H\\license\\license.dat\" " + source,
                    // The space before the source, and what follows it.
                    to + source, to + "  " + source, to + '\t' + source, to + " --source=" + source,
                    good + "x", good + ' ' + source, good + ' ' + good, good + ' ' + allVariables,
                    allVariables + good, allVariables + "--x64 " + good},
                   form) +
           refusedPaths(copyingFrom, {""}, noDriveNorShare) + refusedPaths(copying, {""}, noDrive) +
           refused({"--copy=\"license\\a\" \"b\""}, shown("license\\a") + noDrive) +
           refusedPaths(copying, {license}, noFile) +
           refusedPaths(copyingFrom, {"C:\\Helper test\\"}, noFile) +
           refusedPaths(copying,
                        {"C:\\Helper test\\HALCON-20.11\\license",
                         "C:\\Helper test\\HALCON-20.11\\license.dat", "C:\\windows\\system32\\license.dll",
                         license + "sub\\license.dat", "C:/Helper test/HALCON-20.11/license/sub/license.dat",
                         "C:\\Helper test\\HALCON-20.11\\licence\\license.dat",
                         "C:\\Helper test\\HALCON-20.11\\licenses\\license.dat",
                         "C:\\Helper test\\HALCON-20.11\\l\u0456cense\\license.dat", "C:\\license"},
                        notInLicense) +
           refused({copying("C:\\" + QString(4074, 'x') + "\\license\\license.dat"),
                    copyingFrom("C:\\" + QString(4094, 'x'))},
                   tooLong);
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
    for (const QString share : {R"(\\server\share\license\)", "//server/share/license/"}) {
        // A source may lie there.
        lines += refusedPaths(registering, {share + "halconx.dll"}, noDrive);
        lines += refusedPaths(copying, {share + "license.dat"}, noDrive);
    }
    lines += refusedDirectories({R"(\\.\C:\Helper test\license\)", "//./C:/Helper test/license/"}, noDrive,
                                "", oddPart("."));
    lines += refusedDirectories({R"(\\?\C:\Helper test\license\)", "//?/C:/Helper test/license/"}, noDrive,
                                "", oddPart("?"));
    // An object path, the drive's current directory, no drive, a relative path, and no drives' names.
    lines += refusedDirectories({R"(\??\C:\Helper test\license\)", R"(C:license\)",
                                 R"(\Helper test\license\)", "/Helper test/license/", R"(license\)",
                                 R"(CC:\license\)", R"(1:\license\)", "Ç:\\license\\"},
                                noDrive);
    lines += refusedDirectories({license + R"(..\license\)", license.chopped(1) + R"(/..\license\)",
                                 "C:/Helper test/HALCON-20.11/license/../license/"},
                                oddPart(".."));
    lines += refusedDirectories({license + R"(.\)", R"(C:\.\license\)"}, oddPart("."));
    // Windows would shorten or extend some of them.
    for (const QString part :
         {"...", "HALCON-20.11.", "HALCON-20.11 ", "HALCON-20.11:x", "*", "?", "<", "HALCON-20.11|x"}) {
        lines += refusedDirectories({"C:\\Helper test\\" + part + "\\license\\"}, oddPart(part));
    }
    for (const char *end : {":x", "::$DATA", " ", "."}) {
        lines += refusedDirectories({license}, oddPart("FILE"), end);
    }
    lines += refusedDirectories({"C:/Helper test/HALCON-20.11/license/"}, oddPart("FILE"), ":x");
    lines += refusedDirectories({license}, noFile, "/");
    lines += refusedDirectories(
        {"C:\\Helper\ntest\\license\\", "C:\\" + QString(QChar(0xDC00)) + "\\license\\"}, unclean);
    // A server, a share, a pipe or a mailslot: nothing that is a file on a share.
    lines += refusedPaths(copyingFrom,
                          {R"(\\server)", R"(\\s)", R"(\\server\share)", "//server//share",
                           R"(\\server\pipe\new.dat)", R"(\\;LanmanRedirector\server\pipe\new.dat)",
                           R"(\\server\PIPE\new.dat)", R"(\\server\mailslot\new.dat)",
                           R"(\\server\IPC$\pipe\new.dat)"},
                          noFileOnAShare);
    lines += refusedPaths(copyingFrom, {R"(\\server\share\license\)"}, noFile);
    lines += refusedPaths(copyingFrom, {R"(\\)", R"(x\share\new.dat)", R"(\\\server\share\new.dat)"},
                          noDriveNorShare);
    lines += refusedPaths(copyingFrom, {R"(\\server\share\..\other\new.dat)"}, oddPart(".."));
    lines += refusedPaths(copyingFrom, {R"(\\server\share\new.dat:x)"}, oddPart("new.dat:x"));
    lines += refusedPaths(copyingFrom, {R"(\\server:80\share\new.dat)"}, oddPart("server:80"));
    return lines;
}

void addRows(const QVector<HostileLine> &lines)
{
    columns<QString, QString>("arguments", "refusal");
    for (int i = 0; i < lines.size(); ++i) {
        // Some are very long.
        row(qPrintable(QString("%1: %2").arg(i).arg(lines[i].arguments.simplified().left(150))),
            lines[i].arguments, lines[i].refusal);
    }
}

} // namespace HostileLines

QVector<HostileLine> hostileLines()
{
    return HostileLines::lines() + HostileLines::paths();
}
