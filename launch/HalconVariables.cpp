#include "launch/HalconVariables.h"

QList<HalconVariable> halconVariables(const HalconInstallation &installation)
{
    const auto belowExampleRoot = [&](const QString &directory) {
        return installation.exampleRoot.isEmpty() ? std::nullopt
                                                  : std::optional(installation.exampleRoot + directory);
    };
    return {
        {QStringLiteral("HALCONROOT"), installation.installDir},
        {QStringLiteral("HALCONARCH"), installation.arch},
        {QStringLiteral("HALCONIMAGES"), belowExampleRoot(QStringLiteral("\\examples\\images"))},
        {QStringLiteral("HALCONEXAMPLES"), belowExampleRoot(QStringLiteral("\\examples"))},
    };
}
