#include "devenv/VisualStudioDetection.h"
#include "devenv/Vswhere.h"
#include "tests/devenv/PlainStudio.h"
#include "tests/fuzz/QtFuzzing.h"

#include <QFile>

namespace {

bool isAsciiDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

QString withoutSpace(QString text)
{
    while (!text.isEmpty() && text.front().isSpace()) {
        text.remove(0, 1);
    }
    while (!text.isEmpty() && text.back().isSpace()) {
        text.chop(1);
    }
    return text;
}

/// The number at @p position, digit by digit.
QString digitsAt(const QString &text, int position)
{
    QString digits;
    while (position < text.size() && isAsciiDigit(text[position])) {
        digits += text[position++];
    }
    return digits;
}

/// The first two numbers of a version, with a point between; nothing when it does not begin with them.
QString firstNumbers(const QString &text)
{
    int begin = 0;
    while (begin < text.size() && QStringLiteral(" \t\v\f\r").contains(text[begin])) {
        ++begin;
    }
    const QString major = digitsAt(text, begin);
    const int point = begin + major.size();
    const QString minor = digitsAt(text, point + 1);
    const bool complete = !major.isEmpty() && !minor.isEmpty() && text[point] == QLatin1Char('.');
    return complete ? major + QLatin1Char('.') + minor : QString();
}

/// What a plain reading makes of a report.
struct PlainReport {
    QStringList installations; ///< path, name and version of each, in a report's own form
    QStringList records;
    QStringList log;
    bool open = false; ///< the last installation is not complete
};

PlainReport readPlainly(const QByteArray &report)
{
    PlainReport result;
    QString path;
    QString display;
    QString version;
    const QString text = QString::fromUtf8(report);
    for (int begin = 0; begin <= text.size();) {
        const int feed = text.indexOf(QLatin1Char('\n'), begin);
        const int end = feed < 0 ? text.size() : feed;
        const QString line = text.mid(begin, end - begin);
        begin = end + 1;

        const QString key = line.left(line.indexOf(QLatin1Char(':')));
        const QString rest = line.mid(key.size() + 1);
        if (!line.contains(QLatin1Char(':'))) {
            continue;
        }
        if (key == "installationPath") {
            path = withoutSpace(rest);
            result.log += "installationPath: " + path;
        } else if (key == "displayName") {
            display = withoutSpace(rest);
            result.log += "displayName: " + display;
        } else if (key == "installationVersion" && !firstNumbers(rest).isEmpty()) {
            version = firstNumbers(rest);
            result.log += "installationVersion: " + version;
        }
        result.open = !path.isEmpty() || !display.isEmpty() || !version.isEmpty();
        if (!path.isEmpty() && !display.isEmpty() && !version.isEmpty()) {
            result.installations += "displayName:" + display + "\ninstallationVersion: " + version +
                                    ".7\ninstallationPath: " + path + '\n';
            const QString scripts = path + "\\VC\\Auxiliary\\Build\\";
            PlainStudio{
                display, version, path, path + "\\VC", scripts + "vcvars64.bat", scripts + "vcvars32.bat"}
                .add(&result.records, &result.log);
            path = display = version = QString();
            result.open = false;
        }
    }
    return result;
}

QStringList recordsOf(const QByteArray &report)
{
    QStringList records = fieldsOf(parseVswhereReport(report));
    takeLog();
    return records;
}

/// Files of which reports can speak. On this machine a backslash is part of a name.
bool makeFiles()
{
    temporaryDirectory();
    bool made = true;
    for (const char *name :
         {"studio\\Common7\\IDE\\devenv.exe", "studio\\VC\\Auxiliary\\Build\\vcvars64.bat",
          "studio\\VC\\Auxiliary\\Build\\vcvars32.bat", "old\\VC\\Auxiliary\\Build\\vcvars32.bat"}) {
        made = QFile(name).open(QIODevice::WriteOnly) && made;
    }
    return made;
}

} // namespace

/// A report gives the records and log lines of a plain reading, however its lines end and are ordered.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool filesMade = makeFiles();
    require(filesMade, "there are files to be found");
    const QByteArray report = inputOf(data, size);
    const PlainReport plain = readPlainly(report);

    const QStringList records = fieldsOf(parseVswhereReport(report));
    requireSame(takeLog(), plain.log, "the log is that of a plain reading");
    requireSame(records, plain.records, "the records are those of a plain reading");
    for (const VswhereInstallation &each : readVswhereReport(report).installations) {
        require(!each.path.isEmpty() && !each.displayName.isEmpty() && !each.version.isEmpty(),
                "an installation is complete");
    }

    requireSame(recordsOf(QByteArray(report).replace("\n", "\r\n")), records,
                "the kind of line breaks does not matter");
    requireSame(recordsOf(plain.installations.join(QString()).toUtf8()), records,
                "installations that are written as a report are read back");
    // A byte order mark is one at the beginning only.
    const QByteArray text = QString::fromUtf8(report).toUtf8();
    if (!plain.open && !text.startsWith("\xEF\xBB\xBF")) {
        requireSame(recordsOf(text + '\n' + text), records + records,
                    "reports one after the other give the records of both");
    }
    return 0;
}
