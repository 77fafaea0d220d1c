#include "launch/ProcessStart.h"

#include <QProcessEnvironment>

#include <algorithm>
#include <numeric>

QMap<QString, QString> variableOverrides(const HalconInstallation &installation)
{
    QMap<QString, QString> overrides{
        {QStringLiteral("HALCONROOT"), installation.installDir},
        {QStringLiteral("HALCONARCH"), installation.arch},
    };
    if (!installation.exampleRoot.isEmpty()) {
        overrides.insert(QStringLiteral("HALCONIMAGES"),
                         installation.exampleRoot + QStringLiteral("\\examples\\images"));
        overrides.insert(QStringLiteral("HALCONEXAMPLES"),
                         installation.exampleRoot + QStringLiteral("\\examples"));
    }
    overrides.insert(QStringLiteral("PATH"),
                     binaryDirectory(installation) + QLatin1Char(';') +
                         QProcessEnvironment::systemEnvironment().value(QStringLiteral("PATH")));
    return overrides;
}

std::shared_ptr<char16_t[]> buildEnvironmentBlock(const QMap<QString, QString> &overrides)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto variable = overrides.begin(); variable != overrides.end(); ++variable) {
        environment.insert(variable.key(), variable.value());
    }
    const QStringList entries = environment.toStringList();
    const std::size_t size = std::accumulate(
        entries.begin(), entries.end(), std::size_t{1},
        [](std::size_t sum, const QString &entry) { return sum + std::size_t(entry.size()) + 1; });

    // Zeroed, so only the strings themselves have to be written.
    std::shared_ptr<char16_t[]> block(new char16_t[size]());
    char16_t *position = block.get();
    for (const QString &entry : entries) {
        position = std::copy_n(entry.utf16(), entry.size(), position) + 1;
    }
    return block;
}
