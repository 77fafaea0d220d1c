#include "update/OwnRelease.h"

#include "base/MakerAddresses.h"
#include "tests/fuzz/PlainNumbers.h"
#include "tests/fuzz/QtFuzzing.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

/// A newer release, if a plain reading finds one, and the log.
struct PlainRelease {
    bool newer = false;
    int major = 0;
    int minor = 0;
    QStringList log;
};

/// The first two numbers with a point between in @p version; both empty without them.
std::pair<QString, QString> ownNumbers(const QString &version)
{
    for (int begin = 0; begin < version.size() && version.isValidUtf16(); ++begin) {
        const int major = digitsFrom(version, begin);
        const int point = begin + major;
        const int minor = version.mid(point, 1) == "." ? digitsFrom(version, point + 1) : 0;
        if (major > 0 && minor > 0) {
            return {version.mid(begin, major), version.mid(point + 1, minor)};
        }
    }
    return {};
}

PlainRelease readPlainly(const QByteArray &file, const QString &ownVersion)
{
    PlainRelease result;
    QStringList &log = result.log;
    const QJsonDocument document = QJsonDocument::fromJson(file);
    if (document.isNull()) {
        log += QStringLiteral("Could not ") + (file.isEmpty() ? "fetch" : "parse") +
               " Corvanta for HALCON version update information file";
        return result;
    }
    const QJsonObject published = document["corvanta-for-halcon"].toObject();
    for (const char *name : {"major", "minor"}) {
        const QString text = published[name].toString();
        if (!plainNumber(text)) {
            log += QStringLiteral("Could not parse ") + name + " version in string \"" + text +
                   "\". Ignored update information.";
            return result;
        }
    }
    const auto [major, minor] = ownNumbers(ownVersion);
    if (major.isEmpty()) {
        log += "could not parse our own major.minor version";
        return result;
    }
    for (const auto &[name, text] : {std::pair("major", major), {"minor", minor}}) {
        if (!plainNumber(text)) {
            log += QStringLiteral("Could not parse ") + name +
                   " version of current Corvanta for HALCON instance from string \"" + ownVersion +
                   "\". Ignored update information.";
            return result;
        }
    }
    result.major = *plainNumber(published["major"].toString());
    result.minor = *plainNumber(published["minor"].toString());
    const int ownMajor = *plainNumber(major);
    result.newer =
        result.major > ownMajor || (result.major == ownMajor && result.minor > *plainNumber(minor));
    return result;
}

/// A file about just this release.
QByteArray written(const OwnRelease &release)
{
    const QJsonObject numbers{{"major", QString::number(release.major)},
                              {"minor", QString::number(release.minor)}};
    return QJsonDocument(QJsonObject{{"corvanta-for-halcon", numbers}, {"updateMessage", release.message}})
        .toJson();
}

} // namespace

/// The first line is the program's own version, the rest a file: it gives the release and log lines of a
/// plain reading of its strings; which strings are in it is left to Qt.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = inputOf(data, size);
    const int feed = input.indexOf('\n');
    const QString ownVersion = textOf(input.left(feed));
    const QByteArray file = feed < 0 ? QByteArray() : input.mid(feed + 1);

    QStringList log;
    const std::optional<OwnRelease> release = newerOwnRelease(file, ownVersion, &log);

    const PlainRelease plain = readPlainly(file, ownVersion);
    if (knowsAllCharacters(ownVersion)) {
        requireSame(log, plain.log, "the log is that of a plain reading");
        require(release.has_value() == plain.newer, "only a newer release is one");
    }
    if (!release) {
        return 0;
    }
    require(release->major == plain.major && release->minor == plain.minor,
            "the numbers are those of the file");
    const QString message = QJsonDocument::fromJson(file)["updateMessage"].toString();
    require(release->message == message, "the message is that of the file");
    const QString page = MakerAddresses::homePage();
    requireSame({ownReleaseHtml(*release, ownVersion)},
                {"An updated version of Corvanta for HALCON is available for download at<br><br><a href=\"" +
                 page + "\">" + page + "</a><br><br>Your current version: " + ownVersion +
                 "<br>Latest version: " + QString::number(plain.major) + '.' + QString::number(plain.minor) +
                 "<br><br>" + message +
                 "<br><br>Note: This check can be disabled with the checkbox \"Enable Corvanta for HALCON "
                 "Update Checks\" near the bottom of the main screen."},
                "the message stands in the text as it is");
    if (message.isValidUtf16()) {
        const std::optional<OwnRelease> again = newerOwnRelease(written(*release), ownVersion, &log);
        require(again && again->major == release->major && again->minor == release->minor &&
                    again->message == message,
                "a release that is written to a file is read back");
    }
    return 0;
}
