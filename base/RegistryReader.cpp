#include "base/RegistryReader.h"

namespace {

/// The name of a group for the path of a key below its hive: slashes and backslashes are swapped.
QString groupOf(QString path)
{
    for (QChar &each : path) {
        if (each == QLatin1Char('\\')) {
            each = QLatin1Char('/');
        } else if (each == QLatin1Char('/')) {
            each = QLatin1Char('\\');
        }
    }
    return path;
}

} // namespace

RegistryReader::RegistryReader(const QString &keyPath)
    : RegistryReader(keyPath.section(QLatin1Char('\\'), 0, 0), groupOf(keyPath.section(QLatin1Char('\\'), 1)))
{
}

RegistryReader::RegistryReader(const QString &hive, const QString &group)
    : hive(hive), settings(hive, QSettings::NativeFormat)
{
    settings.beginGroup(group);
}

RegistryReader RegistryReader::below(const QString &group) const
{
    return RegistryReader(hive, settings.group() + QLatin1Char('/') + group);
}
