#include "discovery/VersionNames.h"

#include <QRegularExpression>

namespace {

VersionName parseName(const QString &name, const QRegularExpression &pattern)
{
    const QRegularExpressionMatch match = pattern.match(name);
    VersionName result;
    result.matches = match.hasMatch();
    bool majorFits = false;
    bool minorFits = false;
    HalconInstallation installation(match.captured(1).toInt(&majorFits), match.captured(2).toInt(&minorFits),
                                    -1, -1);
    if (majorFits && minorFits) {
        installation.setSuffix(match.captured(3));
        result.installation = installation;
    }
    return result;
}

} // namespace

VersionName parseProductKeyName(const QString &name)
{
    static const QRegularExpression pattern(QStringLiteral(R"((\d+)\.(\d+)-?([A-Za-z0-9_]+)?)"));
    return parseName(name, pattern);
}

VersionName parseUninstallKeyName(const QString &name)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(MVTec HALCON (\d+)\.(\d+)[ -]([A-Za-z0-9_]+)?)"));
    return parseName(name, pattern);
}

QString invalidVersionText(const QString &name)
{
    // The missing space before "is" is deliberate.
    return name + QStringLiteral("is not a valid HALCON version containing major.minor(-optionalstring)");
}
