#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/PlainStudio.h"
#include "tests/fuzz/QtFuzzing.h"

#include <QDir>
#include <QFile>
#include <QMap>

#include <algorithm>
#include <tuple>

namespace {

/// The product directory of each edition of each version; a null string for a key without one.
using Studios = QMap<QString, QMap<QString, QString>>;

/// Files that installations may have. On this machine a backslash is part of a name.
bool makeFiles()
{
    const QDir directory(temporaryDirectory());
    bool made = directory.mkpath("vs");
    for (const char *name :
         {"studio\\Common7\\IDE\\devenv.exe", "studio\\VC\\bin\\amd64\\vcvars64.bat",
          "studio\\VC\\bin\\vcvars32.bat", "old\\VC\\bin\\vcvars32.bat", "vs\\Common7\\IDE\\wdexpress.exe",
          "vs\\Common7\\IDE\\devenv.exe", "vs/VC\\bin\\vcvars32.bat"}) {
        made = QFile(name).open(QIODevice::WriteOnly) && made;
    }
    return made;
}

/// A slash separates keys; in the name of one it does not occur.
QString keyName(const QByteArray &bytes)
{
    return textOf(bytes).replace('/', '\\');
}

/// On this machine half a surrogate pair in a path becomes another character.
QString directoryOf(const QByteArray &bytes)
{
    return QString::fromUtf8("" + textOf(bytes).toUtf8());
}

/// Reads lines such as "14.0|Professional|C:\VS". One without a directory is a key without a value for it.
Studios studiosIn(const QList<QByteArray> &lines)
{
    Studios studios;
    for (const QByteArray &line : lines) {
        const QString version = keyName(line.split('|').value(0));
        const QString edition = keyName(line.split('|').value(1));
        const QByteArray rest = line.mid(line.indexOf('|', line.indexOf('|') + 1) + 1);
        if (!version.isEmpty() && !edition.isEmpty()) {
            studios[version][edition] = line.count('|') > 1 ? directoryOf(rest) : QString();
        }
    }
    return studios;
}

QByteArray encoded(const QString &text, const char *form)
{
    QByteArray result;
    for (const QChar each : text) {
        result += QString::asprintf(form, each.unicode()).toLatin1();
    }
    return result;
}

/// On this machine Qt takes a file of settings for the registry. This one has the keys below "S/V".
void writeKeys(const QString &path, const Studios &studios, bool express)
{
    QByteArray settings = "[S]\n";
    for (auto version = studios.begin(); version != studios.end(); ++version) {
        for (auto edition = version->begin(); edition != version->end(); ++edition) {
            const QByteArray key = "V\\" + encoded(version.key(), "%%U%04X") + "\\Setup\\" +
                                   (express ? QByteArray("VC") : "VS\\" + encoded(edition.key(), "%%U%04X"));
            const QString text = edition->startsWith('@') ? '@' + *edition : *edition;
            settings += key + (edition->isNull() ? QByteArray("\\Other=1\n")
                                                 : "\\ProductDir=\"" + encoded(text, "\\x%04x") + "\"\n");
        }
    }
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(settings) == settings.size(),
            "the keys are written");
}

bool isDigit(uint character)
{
    return character >= '0' && character <= '9';
}

/// Whether a name has two digits with any one character between.
bool isVersion(const QString &name)
{
    const QVector<uint> characters = name.toUcs4();
    for (int i = 0; name.isValidUtf16() && i + 2 < characters.size(); ++i) {
        if (isDigit(characters[i]) && characters[i + 1] != '\n' && isDigit(characters[i + 2])) {
            return true;
        }
    }
    return false;
}

void addPlainly(const QString &version, const QString &edition, const QString &directory, bool express,
                QStringList *records, QStringList *log)
{
    PlainStudio studio;
    studio.version = version;
    studio.express = express;
    studio.edition = express ? "Express Edition" : edition;
    studio.productDir = directory;
    studio.vcDir = directory + "\\VC";
    if (express) {
        studio.vcDir = directory;
        const QString parent = QDir::cleanPath(QDir::current().absoluteFilePath(directory + "/.."));
        studio.productDir = directory.isEmpty() ? QString() : parent;
    }
    studio.script64 = studio.vcDir + "\\bin\\amd64\\vcvars64.bat";
    studio.script32 = studio.vcDir + "\\bin\\vcvars32.bat";
    studio.add(records, log);
}

QStringList namesOf(const QList<VisualStudioVersion> &records)
{
    QStringList names;
    for (const VisualStudioVersion &record : records) {
        names.append("Visual Studio " + record.version + " (" + record.edition + ')' +
                     (record.architecture.isEmpty() ? QString() : " (" + record.architecture + ')'));
        require(displayName(record) == names.last(), "a display name is that of a plain reading");
        for (const QString &arch : {"x86-win32", "x86sse2-win32", "x64-win64"}) {
            require(matchesArchitecture(record, arch) ==
                        (record.architecture == (arch == "x64-win64" ? "amd64" : "x86")),
                    "a record is for the installations of its architecture");
        }
    }
    return names;
}

void checkOrder(QList<VisualStudioVersion> records)
{
    QStringList names = namesOf(records);
    names.removeDuplicates();
    QList<VisualStudioVersion> reversed = records;
    std::reverse(reversed.begin(), reversed.end());

    orderVisualStudioVersions(records);
    orderVisualStudioVersions(reversed);

    QStringList ordered = namesOf(records);
    requireSame(ordered, namesOf(reversed), "the order does not depend on that of the keys");
    const auto rank = [&](int index) {
        const VisualStudioVersion &each = records[index];
        return std::tuple(-each.version.toDouble(), each.architecture != "x86", ordered[index]);
    };
    for (int i = 1; i < records.size(); ++i) {
        require(rank(i - 1) < rank(i), "records are ordered, and none occurs twice");
    }
    std::sort(names.begin(), names.end());
    std::sort(ordered.begin(), ordered.end());
    requireSame(ordered, names, "ordering loses and adds none");
}

} // namespace

/// Lines such as "14.0|Professional|C:\VS" are the keys of Visual Studio, those of the Express editions
/// after a first line "express". The records and log lines are those of a plain reading.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool filesMade = makeFiles();
    require(filesMade, "there are files to be found");
    QList<QByteArray> lines = inputOf(data, size).split('\n');
    const bool express = lines.first() == "express";
    const Studios studios = studiosIn(lines);
    // Qt keeps files that it has read, by their names.
    static int count = 0;
    const QString path = temporaryDirectory() + "/keys" + QString::number(++count);
    writeKeys(path, studios, express);

    QStringList plain;
    QStringList log{"Try to detect Visual Studio (pre-VS2017) in registry at " + path + "\\S\\V"};
    for (auto version = studios.begin(); version != studios.end(); ++version) {
        if (!isVersion(version.key())) {
            continue;
        }
        // An Express edition has one key, of which the last line in the file is valid.
        QString last;
        for (auto edition = version->begin(); edition != version->end(); ++edition) {
            last = edition->isNull() ? last : *edition;
            if (!express && !edition->isNull()) {
                addPlainly(version.key(), edition.key(), *edition, false, &plain, &log);
            }
        }
        if (express && !last.isNull()) {
            addPlainly(version.key(), QString(), last, true, &plain, &log);
        }
    }
    const QList<VisualStudioVersion> records = detectVisualStudioInRegistry(path + "\\S\\V", express);
    QFile::remove(path);

    requireSame(takeLog(), log, "the log is that of a plain reading");
    requireSame(fieldsOf(records), plain, "the records are those of a plain reading");
    checkOrder(records);
    return 0;
}
