#include "update/OwnRelease.h"

#include "base/MakerAddresses.h"
#include "update/ReadNumber.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <tuple>

namespace {

/// Translates in the main window's context.
struct Window {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

struct VersionNumbers {
    int major;
    int minor;
};

/// Both numbers, each from @p read, or nothing when one of them cannot be read.
template <typename Read>
std::optional<VersionNumbers> readNumbers(const Read &read)
{
    const std::optional<int> major = read(QStringLiteral("major"));
    const std::optional<int> minor = major ? read(QStringLiteral("minor")) : std::nullopt;
    return minor ? std::optional<VersionNumbers>({*major, *minor}) : std::nullopt;
}

std::optional<VersionNumbers> publishedNumbers(const QJsonObject &release, QStringList *log)
{
    return readNumbers([&](const QString &name) {
        const QString text = release.value(name).toString();
        const std::optional<int> number = readNumber(text);
        if (!number) {
            log->append(
                QStringLiteral("Could not parse %1 version in string \"%2\". Ignored update information.")
                    .arg(name, text));
        }
        return number;
    });
}

std::optional<VersionNumbers> ownNumbers(const QString &ownVersion, QStringList *log)
{
    static const QRegularExpression pattern(QStringLiteral("(?<major>\\d+)\\.(?<minor>\\d+)"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = pattern.match(ownVersion);
    if (!match.hasMatch()) {
        log->append(QStringLiteral("could not parse our own major.minor version"));
        return std::nullopt;
    }
    return readNumbers([&](const QString &name) {
        const std::optional<int> number = readNumber(match.captured(name));
        if (!number) {
            log->append(QStringLiteral("Could not parse %1 version of current Corvanta for HALCON "
                                       "instance from string \"%2\". Ignored update information.")
                            .arg(name, ownVersion));
        }
        return number;
    });
}

} // namespace

std::optional<OwnRelease> newerOwnRelease(const QByteArray &file, const QString &ownVersion, QStringList *log)
{
    if (file.isEmpty()) {
        log->append(QStringLiteral("Could not fetch Corvanta for HALCON version update information file"));
        return std::nullopt;
    }
    const QJsonDocument document = QJsonDocument::fromJson(file);
    if (document.isNull()) {
        log->append(QStringLiteral("Could not parse Corvanta for HALCON version update information file"));
        return std::nullopt;
    }
    const QJsonObject root = document.object();
    const std::optional<VersionNumbers> published =
        publishedNumbers(root.value(QLatin1String("corvanta-for-halcon")).toObject(), log);
    if (!published) {
        return std::nullopt;
    }
    const std::optional<VersionNumbers> own = ownNumbers(ownVersion, log);
    if (!own || std::tie(published->major, published->minor) <= std::tie(own->major, own->minor)) {
        return std::nullopt;
    }
    return OwnRelease{published->major, published->minor,
                      root.value(QLatin1String("updateMessage")).toString()};
}

QString ownReleaseHtml(const OwnRelease &release, const QString &ownVersion)
{
    // In one call, because the message may contain what looks like a placeholder.
    return Window::tr(
               "An updated version of Corvanta for HALCON is available for download at<br><br>"
               "<a href=\"%5\">%5</a><br><br>Your current version: %1<br>Latest version: %2.%3<br><br>%4"
               "<br><br>Note: This check can be disabled with the checkbox \"Enable Corvanta for HALCON "
               "Update Checks\" near the bottom of the main screen.")
        .arg(ownVersion, QString::number(release.major), QString::number(release.minor), release.message,
             MakerAddresses::homePage());
}
