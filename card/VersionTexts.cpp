#include "card/VersionTexts.h"

#include <QRegularExpression>

QString majorText(const HalconInstallation &installation)
{
    constexpr int firstMajorWithMinor = 17;
    if (installation.suffix != QLatin1String("Progress") && installation.major < firstMajorWithMinor) {
        return QString::number(installation.major);
    }
    // From 17 on HALCON's own version names have two digits there: 17.12, 20.05.
    const int digits = installation.major < firstMajorWithMinor ? 1 : 2;
    return QStringLiteral("%1.%2")
        .arg(installation.major)
        .arg(installation.minor, digits, 10, QLatin1Char('0'));
}

QString architectureBadgeText(const QString &arch)
{
    static const QRegularExpression platform(QStringLiteral("-[a-zA-Z0-9_]*$"));
    return QString(arch).remove(platform);
}
