#include "recent/RecentPrograms.h"

#include "tests/fuzz/QtFuzzing.h"

#include <QDir>
#include <QFile>
#include <QTextCodec>

namespace {

const char *const opening = "<b><font color='red'>";
const char *const closing = "</font></b>";

/// Where a settings file is to be; Windows' usual code page is the system's.
QString settingsFile()
{
    const QString directory = temporaryDirectory();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("windows-1252"));
    require(QDir(directory).mkpath("MVTec"), "there is a directory for the settings");
    qputenv("APPDATA", QFile::encodeName(directory));
    return directory + "/MVTec/HDevelop.ini";
}

QStringList programsIn(const QByteArray &settings)
{
    static const QString path = settingsFile();
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(settings) == settings.size(),
            "the file is written");
    file.close();
    return readRecentPrograms();
}

void skip(const QString &line, int *position)
{
    while (line.mid(*position, 1) == " ") {
        ++*position;
    }
}

/// The value in a line that sets the recent programs; a null string in any other line.
QString valueIn(const QString &line)
{
    const QString name = "RecentPrograms";
    int position = 0;
    skip(line, &position);
    if (line.mid(position, name.size()) != name || !line.isValidUtf16()) {
        return {};
    }
    position += name.size();
    skip(line, &position);
    if (line.mid(position, 1) != "=") {
        return {};
    }
    ++position;
    skip(line, &position);
    return "" + line.mid(position);
}

/// The value of the setting: of the first line that has one.
QString plainValue(const QByteArray &settings)
{
    // As in a stream: half a character at the end counts for nothing.
    const QTextCodec *const codec = QTextCodec::codecForUtfText(settings, QTextCodec::codecForLocale());
    const QString text = QTextDecoder(codec).toUnicode(settings);
    const QStringList lines = text.split('\n');
    for (QString line : lines) {
        if (line.endsWith('\r')) {
            line.chop(1);
        }
        QString value = valueIn(line);
        if (!value.isNull()) {
            return value;
        }
    }
    return "";
}

/// The paths in a value: the pieces between commas with an even number of quotes before them.
QStringList plainPaths(const QString &value)
{
    QStringList paths;
    int begin = 0;
    const QString terminated = value + ',';
    for (int comma = terminated.indexOf(','); comma >= 0; comma = terminated.indexOf(',', comma + 1)) {
        if (terminated.leftRef(comma).count('"') % 2 != 0) {
            continue;
        }
        QString path = terminated.mid(begin, comma - begin);
        while (begin > 0 && path.startsWith(' ')) {
            path.remove(0, 1);
        }
        paths.append(path.remove('"'));
        begin = comma + 1;
    }
    return paths;
}

QString written(const QStringList &paths)
{
    return paths.isEmpty() ? QString("\"") : '"' + paths.join("\",   \"") + '"';
}

QString escaped(const QString &text)
{
    QString html;
    for (const QChar each : text) {
        html += each == '&'   ? QString("&amp;")
                : each == '<' ? QString("&lt;")
                : each == '>' ? QString("&gt;")
                : each == '"' ? QString("&quot;")
                              : QString(each);
    }
    return html;
}

bool isAt(const QString &html, int position, const QString &needle)
{
    bool same = position + needle.size() <= html.size();
    for (int i = 0; same && i < needle.size(); ++i) {
        same = html[position + i].toCaseFolded() == needle[i].toCaseFolded();
    }
    return same;
}

HighlightedPath plainHighlight(const QString &path, const QString &searchText)
{
    const QString html = escaped(QString(path).replace('/', '\\'));
    const QString needle = escaped(searchText);
    HighlightedPath result{QString(), 0};
    int marked = 0; // where the last match ends
    for (int position = 0; position < html.size(); ++position) {
        const bool match = !needle.isEmpty() && isAt(html, position, needle);
        result.score += match ? 1 : 0;
        if (match && position >= marked) {
            result.html += opening + needle + closing;
            marked = position + needle.size();
        } else if (position >= marked) {
            result.html += html[position];
        }
    }
    return result;
}

void checkHighlight(const QString &path, const QString &searchText)
{
    const HighlightedPath highlighted = highlightPath(path, searchText);
    require(highlighted.score >= 0 && highlighted.score <= escaped(path).size(),
            "a score is no higher than the path is long");
    require((highlighted.score > 0) == highlighted.html.contains(opening), "a path with a score has marks");
    // Case in the upper planes is left to Qt.
    const QString both = path + searchText;
    if (std::none_of(both.begin(), both.end(), [](QChar each) { return each.isSurrogate(); })) {
        const HighlightedPath plain = plainHighlight(path, searchText);
        requireSame({highlighted.html}, {plain.html}, "the marks are those of a plain search");
        require(highlighted.score == plain.score, "the score is that of a plain search");
    }
    require(highlightPath(path, QString()).html == escaped(QString(path).replace('/', '\\')),
            "a path that nothing is searched in has no marks");
}

} // namespace

/// What precedes the first byte 0 is a search text, the rest a settings file; without one all is the file.
/// The paths and their marks are those of a plain reading.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = inputOf(data, size);
    const int separator = input.indexOf('\0');
    const QString searchText = textOf(input.left(qMax(separator, 0)));
    const QByteArray settings = input.mid(separator + 1);

    const QStringList paths = programsIn(settings);

    requireSame(paths, plainPaths(plainValue(settings)), "the paths are those of a plain reading");
    requireSame(splitRecentPrograms(written(paths)), paths,
                "paths that are written as a value are read back");
    for (const QString &path : paths.mid(0, 4)) {
        require(!path.contains('"'), "no quotes are left in a path");
        checkHighlight(path, searchText);
    }
    return 0;
}
