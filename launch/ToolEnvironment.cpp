#include "launch/ToolEnvironment.h"

#include "launch/Environment.h"
#include "launch/HalconVariables.h"

#include <QProcessEnvironment>

namespace {

Environment ownEnvironment()
{
    // QProcess has such a list, too, but on Windows it comes from 8-bit strings.
    return Environment(QProcessEnvironment::systemEnvironment().toStringList());
}

} // namespace

QMap<QString, QString> variableOverrides(const HalconInstallation &installation)
{
    QMap<QString, QString> overrides;
    for (const HalconVariable &variable : halconVariables(installation)) {
        if (variable.value) {
            overrides.insert(variable.name, *variable.value);
        }
    }
    overrides.insert(QStringLiteral("PATH"), binaryDirectory(installation) + QLatin1Char(';') +
                                                 ownEnvironment().value(QStringLiteral("PATH")));
    return overrides;
}

std::shared_ptr<char16_t[]> buildEnvironmentBlock(const QMap<QString, QString> &overrides)
{
    Environment environment = ownEnvironment();
    for (auto variable = overrides.begin(); variable != overrides.end(); ++variable) {
        environment.set(variable.key(), variable.value());
    }
    return environment.block();
}
