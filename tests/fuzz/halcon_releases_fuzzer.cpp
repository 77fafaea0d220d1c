#include "update/HalconReleases.h"

#include "tests/fuzz/PlainNumbers.h"
#include "tests/fuzz/QtFuzzing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <array>

namespace {

using Numbers = std::array<int, 4>;

Numbers numbersOf(const HalconInstallation &record)
{
    return {record.major, record.minor, record.revision, record.build};
}

bool isSpace(QChar character)
{
    return character.category() == QChar::Separator_Space || character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph ||
           QStringLiteral("\t\n\v\f\r\u0085\u180e").contains(character);
}

/// What a plain reading makes of the file: "edition version: numbers", sorted, and the log.
struct PlainReleases {
    QMap<QString, Numbers> releases;
    QStringList log;
};

/// Both parts of a version, which may have spaces around it; both empty when it is none.
std::pair<QString, QString> partsOf(const QString &version)
{
    int position = 0;
    while (position < version.size() && isSpace(version[position])) {
        ++position;
    }
    const QString major = version.mid(position, digitsFrom(version, position));
    position += major.size();
    const QString point = version.mid(position, 1);
    const QString minor = version.mid(position + 1, digitsFrom(version, position + 1));
    bool ended = true;
    for (const QChar character : version.mid(position + 1 + minor.size())) {
        ended = ended && isSpace(character);
    }
    const bool whole =
        version.isValidUtf16() && !major.isEmpty() && point == "." && !minor.isEmpty() && ended;
    return whole ? std::pair(major, minor) : std::pair<QString, QString>();
}

void readRelease(const QJsonObject &object, PlainReleases *result)
{
    const QString version = object["version"].toString();
    const QString revision = object["revision"].toString();
    const QString build = object["build"].toString();
    const QString edition = object["edition"].toString();
    QStringList &log = result->log;
    log << "update check found remotely available HALCON version" << "  version: " + version
        << "  revision: " + revision << "  buildStr: " + build << "  edition: " + edition;
    const auto [major, minor] = partsOf(version);
    if (major.isEmpty()) {
        log += "Could not parse major/minor version in string \"" + version +
               "\". Ignored update information for version \"\".";
        return;
    }
    for (const auto &[what, text] :
         {std::pair<QString, QString>("major", major), {"minor", minor}, {"revision", revision}}) {
        if (!plainNumber(text)) {
            log += "Could not parse " + what + " version in string \"" + text +
                   "\". Ignored update information for version \"" + version + "\".";
            return;
        }
    }
    if (!plainNumber(build)) {
        log += "Could not parse build version in string \"" + build + "\". Assume build = 0 for version \"" +
               version + "\".";
    }
    result->releases[(edition == "progress" ? "progress " : "regular ") + version] = {
        *plainNumber(major), *plainNumber(minor), *plainNumber(revision), plainNumber(build).value_or(0)};
}

PlainReleases readPlainly(const QByteArray &file)
{
    PlainReleases result;
    if (file.isEmpty()) {
        result.log += "Could not fetch HALCON versions update information file";
        return result;
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file, &error);
    if (document.isNull()) {
        result.log << "Could not parse HALCON versions update information file:"
                   << "  " + error.errorString() + "( offset: " + QString::number(error.offset) + ")";
    }
    const QJsonArray array = document["halcon"].toArray();
    for (const QJsonValue &value : array) {
        readRelease(value.toObject(), &result);
    }
    return result;
}

QMap<QString, Numbers> tablesOf(const HalconReleases &releases)
{
    QMap<QString, Numbers> result;
    for (const auto &[edition, table] :
         {std::pair("progress ", releases.progress), {"regular ", releases.regular}}) {
        for (auto each = table.begin(); each != table.end(); ++each) {
            result[edition + each.key()] = numbersOf(*each);
        }
    }
    return result;
}

/// A file with just these releases.
QByteArray written(const QMap<QString, Numbers> &releases)
{
    QJsonArray array;
    for (auto each = releases.begin(); each != releases.end(); ++each) {
        array.append(QJsonObject{{"edition", each.key().section(' ', 0, 0)},
                                 {"version", each.key().section(' ', 1)},
                                 {"revision", QString::number((*each)[2])},
                                 {"build", QString::number((*each)[3])}});
    }
    return QJsonDocument(QJsonObject{{"halcon", array}}).toJson();
}

void checkUpdate(const HalconInstallation &latest, const QMap<QString, Numbers> &tables,
                 const HalconReleases &releases)
{
    const Numbers numbers = numbersOf(latest);
    for (const QString &suffix : {"Progress", "Steady"}) {
        HalconInstallation installed(numbers[0], numbers[1], -1, numbers[3]);
        installed.setSuffix(suffix);
        const QString key = (suffix == "Progress" ? "progress " : "regular ") + QString::number(numbers[0]) +
                            '.' + QString::number(numbers[1]);
        const std::optional<HalconInstallation> found = publishedRelease(releases, installed);
        require(found.has_value() == tables.contains(key) && (!found || numbersOf(*found) == tables[key]),
                "the release of an installation's version and edition is found");
        require(isNewer(latest, installed) == (numbers > numbersOf(installed)) &&
                    isNewer(installed, latest) == (numbersOf(installed) > numbers),
                "versions are compared number by number");
    }
    HalconInstallation first = latest;
    first.build = 0;
    require(isNewer(latest, first) == (numbers[3] > 0), "the build counts when all else is equal");
    QString version = QString::number(numbers[0]) + '.' + QString::number(numbers[1]);
    if (numbers[2] != -1) {
        version += '.' + QString::number(numbers[2]);
        version += numbers[3] == -1 || numbers[3] == 0 ? QString() : '.' + QString::number(numbers[3]);
    }
    require(updateLine(latest, QString()) == "Latest version: " + version + "<br>",
            "the line without a link");
    const QString line = updateLine(latest, "http://x.example/%2");
    require(line == "Latest version: " + version +
                        " <a href=\"http://x.example/%2\"><span style=\"text-decoration: underline; "
                        "color:#ff0000; font-size:12pt;\"><b>Update available!</b></span></a><br>",
            "the line with a link");
    require(withLastLine("<body>x</body>", line) == "<body>x" + line + "</body>", "the line comes last");
}

} // namespace

/// A file gives the releases and log lines of a plain reading of its strings; which strings are in it is left
/// to Qt.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray file = inputOf(data, size);
    QStringList log;
    const HalconReleases releases = parseHalconReleases(file, &log);
    const QMap<QString, Numbers> tables = tablesOf(releases);

    const PlainReleases plain = readPlainly(file);
    if (knowsAllCharacters(plain.log.join(QString()))) {
        requireSame(log, plain.log, "the log is that of a plain reading");
        require(tables == plain.releases, "the releases are those of a plain reading");
    }

    QStringList noComplaints;
    require(tablesOf(parseHalconReleases(written(tables), &noComplaints)) == tables,
            "releases that are written to a file are read back");
    require(noComplaints.filter("Could not").isEmpty(), "nothing is wrong with such a file");
    for (const auto &table : {releases.progress, releases.regular}) {
        for (const HalconInstallation &latest : table) {
            checkUpdate(latest, tables, releases);
        }
    }
    return 0;
}
