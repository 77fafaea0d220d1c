#include "update/HalconReleases.h"

#include "update/ReadNumber.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <tuple>

namespace {

/// Translates in the main window's context.
struct Window {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

/// A release as published: strings that may hold anything.
struct PublishedRelease {
    QString version;
    QString revision;
    QString build;
    QString edition;
};

PublishedRelease readRelease(const QJsonObject &object)
{
    const auto text = [&object](const char *key) { return object.value(QLatin1String(key)).toString(); };
    return {text("version"), text("revision"), text("build"), text("edition")};
}

QStringList foundLines(const PublishedRelease &release)
{
    return {QStringLiteral("update check found remotely available HALCON version"),
            QStringLiteral("  version: ") + release.version,
            QStringLiteral("  revision: ") + release.revision, QStringLiteral("  buildStr: ") + release.build,
            QStringLiteral("  edition: ") + release.edition};
}

/// The version numbers of @p release, or nothing when one that counts cannot be read.
std::optional<HalconInstallation> toInstallation(const PublishedRelease &release, QStringList *log)
{
    // Digits and spaces of every script; other digits than 0 to 9 are rejected when they are read.
    static const QRegularExpression pattern(QStringLiteral("^\\s*(\\d+)\\.(\\d+)\\s*$"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = pattern.match(release.version);
    if (!match.hasMatch()) {
        // Deliberate: the ignored version is not named.
        log->append(QStringLiteral("Could not parse major/minor version in string \"%1\". Ignored update "
                                   "information for version \"\".")
                        .arg(release.version));
        return std::nullopt;
    }
    const auto read = [&](const char *what, const QString &text) {
        const std::optional<int> number = readNumber(text);
        if (!number) {
            log->append(
                QStringLiteral("Could not parse %1 version in string \"%2\". Ignored update information for "
                               "version \"%3\".")
                    .arg(QLatin1String(what), text, release.version));
        }
        return number;
    };
    const std::optional<int> major = read("major", match.captured(1));
    const std::optional<int> minor = major ? read("minor", match.captured(2)) : std::nullopt;
    const std::optional<int> revision = minor ? read("revision", release.revision) : std::nullopt;
    if (!revision) {
        return std::nullopt;
    }
    const std::optional<int> build = readNumber(release.build);
    if (!build) {
        log->append(
            QStringLiteral(
                "Could not parse build version in string \"%1\". Assume build = 0 for version \"%2\".")
                .arg(release.build, release.version));
    }
    return HalconInstallation(*major, *minor, *revision, build.value_or(0));
}

} // namespace

HalconReleases parseHalconReleases(const QByteArray &file, QStringList *log)
{
    HalconReleases releases;
    if (file.isEmpty()) {
        log->append(QStringLiteral("Could not fetch HALCON versions update information file"));
        return releases;
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file, &error);
    if (document.isNull()) {
        log->append(QStringLiteral("Could not parse HALCON versions update information file:"));
        // Deliberate: no space before the parenthesis.
        log->append(QStringLiteral("  ") + error.errorString() +
                    QStringLiteral("( offset: %1)").arg(error.offset));
        return releases;
    }
    const QJsonArray published = document.object().value(QLatin1String("halcon")).toArray();
    for (const QJsonValue &value : published) {
        const PublishedRelease release = readRelease(value.toObject());
        log->append(foundLines(release));
        if (const std::optional<HalconInstallation> numbers = toInstallation(release, log)) {
            auto &table = release.edition == QLatin1String("progress") ? releases.progress : releases.regular;
            table.insert(release.version, *numbers);
        }
    }
    return releases;
}

std::optional<HalconInstallation> publishedRelease(const HalconReleases &releases,
                                                   const HalconInstallation &installation)
{
    const auto &table =
        installation.suffix == QLatin1String("Progress") ? releases.progress : releases.regular;
    const auto found =
        table.constFind(QStringLiteral("%1.%2").arg(installation.major).arg(installation.minor));
    return found == table.constEnd() ? std::nullopt : std::optional<HalconInstallation>(*found);
}

bool isNewer(const HalconInstallation &release, const HalconInstallation &installation)
{
    const auto numbers = [](const HalconInstallation &record) {
        return std::tie(record.major, record.minor, record.revision, record.build);
    };
    return numbers(release) > numbers(installation);
}

QString updateLine(const HalconInstallation &latest, const QString &downloadPage)
{
    if (downloadPage.isEmpty()) {
        return QStringLiteral("Latest version: %1<br>").arg(latest.versionText());
    }
    return QStringLiteral(
               "Latest version: %2 <a href=\"%1\"><span style=\"text-decoration: underline; color:#ff0000; "
               "font-size:12pt;\"><b>%3</b></span></a><br>")
        .arg(downloadPage, latest.versionText(), Window::tr("Update available!"));
}

QString withLastLine(const QString &html, const QString &line)
{
    const QString end = QStringLiteral("</body>");
    return QString(html).replace(end, line + end);
}
