#include "discovery/RegistryRecords.h"

#include "discovery/Runtimes.h"

#include <limits>

namespace {

/// The number in @p value; 0 when it is not a number or does not fit into 32 bits.
int number(const QVariant &value)
{
    // Numeric registry values have no sign: one that is negative here was too large for the type.
    const bool isText = value.type() == QVariant::String;
    const qint64 lowest = isText ? std::numeric_limits<int>::min() : 0;
    const qint64 number = value.toLongLong();
    return number >= lowest && number <= std::numeric_limits<int>::max() ? static_cast<int>(number) : 0;
}

} // namespace

QList<HalconInstallation> productKeyInstallations(const HalconInstallation &version,
                                                  const ProductKeyValues &values)
{
    HalconInstallation base = version;
    base.setComponents(values.components.keys(QStringLiteral("1")));
    base.installDir = values.installDir.toString();
    base.setExampleRoot(values.exampleRoot.toString());
    base.revision = number(values.installedRevision);
    base.build = number(values.installedBuild);
    return installationsPerRuntime(base);
}

QList<HalconInstallation> uninstallKeyInstallations(const HalconInstallation &version,
                                                    const QVariant &installLocation)
{
    HalconInstallation base = version;
    base.setComponents({QStringLiteral("RuntimeX64")});
    base.installDir = installLocation.toString().remove(QLatin1Char('"'));
    base.setExampleRoot(base.installDir);
    return installationsPerRuntime(base);
}
