#include "discovery/RegistryRecords.h"
#include "discovery/VersionNames.h"
#include "tests/fuzz/HalconKey.h"
#include "tests/fuzz/PlainNumbers.h"
#include "tests/fuzz/QtFuzzing.h"

#include <algorithm>
#include <tuple>

namespace {

bool isAsciiDigit(QChar each)
{
    return each >= QLatin1Char('0') && each <= QLatin1Char('9');
}

bool isWord(QChar each)
{
    return each == QLatin1Char('_') || (each.unicode() < 0x80 && each.isLetterOrNumber());
}

/// What a plain reading makes of the name of a key.
struct PlainName {
    bool matches = false;
    bool fits = false;
    int major = 0;
    int minor = 0;
    QString suffix;
};

QString runFrom(const QString &text, int position, bool (*belongs)(QChar))
{
    int end = position;
    while (end < text.size() && belongs(text[end])) {
        ++end;
    }
    return text.mid(position, end - position);
}

/// The numbers at @p position of @p name, and how many characters they take.
int takeNumbers(const QString &name, int position, PlainName *result)
{
    const QString major = runFrom(name, position, isAsciiDigit);
    const QString minor = runFrom(name, position + major.size() + 1, isAsciiDigit);
    const bool both = !major.isEmpty() && !minor.isEmpty() && name[position + major.size()] == '.';
    if (!both || !name.isValidUtf16()) {
        return 0;
    }
    result->matches = true;
    result->fits = plainNumber(major) && plainNumber(minor);
    result->major = plainNumber(major).value_or(0);
    result->minor = plainNumber(minor).value_or(0);
    return major.size() + 1 + minor.size();
}

PlainName plainProductName(const QString &name)
{
    PlainName result;
    for (int begin = 0; begin < name.size(); ++begin) {
        if (const int size = takeNumbers(name, begin, &result)) {
            const int end = begin + size;
            result.suffix = runFrom(name, name.mid(end, 1) == "-" ? end + 1 : end, isWord);
            break;
        }
    }
    return result;
}

PlainName plainUninstallName(const QString &name)
{
    const QString product = "MVTec HALCON ";
    for (int begin = name.indexOf(product); begin >= 0; begin = name.indexOf(product, begin + 1)) {
        PlainName result;
        const int numbers = begin + product.size();
        const int end = numbers + takeNumbers(name, numbers, &result);
        const QString separator = name.mid(end, 1);
        if (result.matches && (separator == " " || separator == "-")) {
            result.suffix = runFrom(name, end + 1, isWord);
            return result;
        }
    }
    return {};
}

void checkName(const VersionName &read, const PlainName &plain)
{
    require(read.matches == plain.matches, "a name matches as in a plain reading");
    require(read.installation.has_value() == plain.fits, "a version is one when its numbers fit");
    if (read.installation) {
        require(read.installation->major == plain.major && read.installation->minor == plain.minor &&
                    read.installation->suffix == plain.suffix && read.installation->revision == -1 &&
                    read.installation->build == -1,
                "a version is that of a plain reading");
    }
}

QString lineOf(const HalconInstallation &record)
{
    return QStringList{record.versionArchText(), record.installDir, record.exampleRoot,
                       record.components.join(',')}
        .join('|');
}

QStringList linesOf(const QList<HalconInstallation> &records)
{
    QStringList lines;
    for (const HalconInstallation &record : records) {
        lines.append(lineOf(record));
    }
    return lines;
}

QString plainVersion(const HalconKey &key, const PlainName &name)
{
    QString version = QString::number(name.major) + '.' + QString::number(name.minor);
    if (key.revision != -1) {
        version += '.' + QString::number(key.revision);
        version += key.build != -1 && key.build != 0 ? '.' + QString::number(key.build) : QString();
    }
    return name.suffix.isEmpty() ? version : version + ' ' + name.suffix;
}

/// The records that a key must give, and the log.
QStringList plainRecords(const HalconKey &key, const PlainName &name, QStringList *log)
{
    struct Runtime {
        QString component;
        QString log;
        QString arch;
        QStringList others;
    };
    static const QList<Runtime> runtimes{{"RuntimeX86", "hasX86", "x86-win32", {"X64", "SSE2"}},
                                         {"RuntimeSSE2", "hasX86SSE2", "x86sse2-win32", {"X64", "X86"}},
                                         {"RuntimeX64", "hasX64", "x64-win64", {"SSE2", "X86"}}};
    QStringList components = key.components;
    std::sort(components.begin(), components.end());
    QStringList lines;
    for (const Runtime &runtime : runtimes) {
        if (components.contains(runtime.component)) {
            QStringList kept;
            for (const QString &each : components) {
                if (!each.endsWith(runtime.others[0]) && !each.endsWith(runtime.others[1])) {
                    kept.append(each);
                }
            }
            log->append(runtime.log);
            lines.append(QStringList{plainVersion(key, name) + " (" + runtime.arch + ')',
                                     key.values.installDir.toString(), key.values.exampleRoot.toString(),
                                     kept.join(',')}
                             .join('|'));
        }
    }
    return lines;
}

void checkUninstallKey(const HalconInstallation &version, const QVariant &location)
{
    const QString directory = location.toString().split('"').join(QString());
    requireSame(linesOf(uninstallKeyInstallations(version, location)),
                {version.versionText() + " (x64-win64)|" + directory + '|' + directory + "|RuntimeX64"},
                "an uninstall key gives one 64-bit installation");
    requireSame(takeLog(), {"hasX64"}, "its runtime is logged");
}

void checkOrder(QList<HalconInstallation> records)
{
    QStringList texts;
    for (const HalconInstallation &record : records) {
        texts.append(record.versionArchText());
    }
    texts.removeDuplicates();
    QList<HalconInstallation> reversed = records;
    std::reverse(reversed.begin(), reversed.end());

    orderInstallations(records);
    orderInstallations(reversed);

    QStringList ordered;
    for (int i = 0; i < records.size(); ++i) {
        ordered.append(records[i].versionArchText());
        require(reversed[i].versionArchText() == ordered[i], "the order does not depend on that of the keys");
        const auto rank = [&](int index) {
            const HalconInstallation &each = records[index];
            return std::tuple(each.major, each.minor, archRank(each.arch), each.versionArchText());
        };
        require(i == 0 || rank(i - 1) < rank(i), "installations are ordered, and none occurs twice");
    }
    std::sort(texts.begin(), texts.end());
    std::sort(ordered.begin(), ordered.end());
    requireSame(ordered, texts, "ordering loses and adds none");
}

} // namespace

/// Lines such as "[20.11-Progress]" name keys, the lines below them their values: names, types and values.
/// The installations are those of a plain reading, and are ordered.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QList<HalconKey> keys;
    const QList<QByteArray> lines = inputOf(data, size).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith('[')) {
            keys.append(HalconKey());
            keys.last().name = textOf(line.mid(1, line.lastIndexOf(']') - 1));
        } else if (!keys.isEmpty() && !line.isEmpty()) {
            keys.last().add(line);
        }
    }
    QList<HalconInstallation> all;
    for (const HalconKey &key : keys) {
        const VersionName uninstall = parseUninstallKeyName(key.name);
        checkName(uninstall, plainUninstallName(key.name));
        if (uninstall.installation) {
            checkUninstallKey(*uninstall.installation, key.values.installDir);
            all += uninstallKeyInstallations(*uninstall.installation, key.values.installDir);
            takeLog();
        }
        const PlainName name = plainProductName(key.name);
        const VersionName product = parseProductKeyName(key.name);
        checkName(product, name);
        if (product.installation) {
            const QList<HalconInstallation> records =
                productKeyInstallations(*product.installation, key.values);
            QStringList log;
            requireSame(linesOf(records), plainRecords(key, name, &log),
                        "the records are those of a plain reading");
            requireSame(takeLog(), log, "each runtime is logged");
            all += records;
        }
    }
    checkOrder(all);
    return 0;
}
