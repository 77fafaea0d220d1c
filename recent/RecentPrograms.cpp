#include "recent/RecentPrograms.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>

namespace {

constexpr const char *matchColour = "red";
// For a second kind of highlighting, which nothing uses yet.
[[maybe_unused]] constexpr const char *otherColour = "#3783CD";

/// Path of HDevelop's settings file, or nothing when Windows knows no directory for it.
QString settingsFile()
{
    const QString directory = qEnvironmentVariable("APPDATA");
    return directory.isEmpty() ? QString()
                               : QDir(directory).absoluteFilePath(QStringLiteral("MVTec/HDevelop.ini"));
}

/// The value of the first line that sets the recent programs, or an empty string.
QString settingValue(QIODevice *settings)
{
    static const QRegularExpression setting(
        QRegularExpression::anchoredPattern(QStringLiteral(" *RecentPrograms *= *(.*)")),
        QRegularExpression::DotMatchesEverythingOption);
    // HDevelop writes the system's 8-bit code page, which is the stream's default.
    QTextStream stream(settings);
    QString line;
    while (stream.readLineInto(&line)) {
        const QRegularExpressionMatch match = setting.match(line);
        if (match.hasMatch()) {
            return match.captured(1);
        }
    }
    return {};
}

} // namespace

QStringList readRecentPrograms()
{
    const QString path = settingsFile();
    if (!QFileInfo(path).isFile()) {
        return {};
    }
    QFile settings(path);
    return splitRecentPrograms(settings.open(QIODevice::ReadOnly) ? settingValue(&settings) : QString());
}

QStringList splitRecentPrograms(const QString &value)
{
    QStringList paths;
    QString path;
    bool inQuotes = false;
    bool afterComma = false;
    const QString terminated = value + QLatin1Char(',');
    for (const QChar character : terminated) {
        if (character == QLatin1Char(',') && !inQuotes) {
            paths.append(path);
            path.clear();
            afterComma = true;
        } else if (character == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            afterComma = false;
        } else if (character != QLatin1Char(' ') || !afterComma) {
            path.append(character);
            afterComma = false;
        }
    }
    return paths;
}

HighlightedPath highlightPath(const QString &path, const QString &searchText)
{
    const QString html = QString(path).replace(QLatin1Char('/'), QLatin1Char('\\')).toHtmlEscaped();
    if (searchText.isEmpty()) {
        return {html, 0};
    }
    const QString needle = searchText.toHtmlEscaped();
    const int score = html.count(needle, Qt::CaseInsensitive);
    const QString marked = QStringLiteral("<b><font color='") + QLatin1String(matchColour) +
                           QStringLiteral("'>") + needle + QStringLiteral("</font></b>");
    return {QString(html).replace(needle, marked, Qt::CaseInsensitive), score};
}
