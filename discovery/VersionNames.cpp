#include "discovery/VersionNames.h"

#include "base/DebugLogger.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

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

struct Runtime {
    const char *component;
    const char *logLine;
    const char *arch;
    std::array<const char *, 2> foreignEndings; ///< of components that belong to other architectures
};

constexpr std::array<Runtime, 3> runtimes{{
    {"RuntimeX86", "hasX86", "x86-win32", {"X64", "SSE2"}},
    {"RuntimeSSE2", "hasX86SSE2", "x86sse2-win32", {"X64", "X86"}},
    {"RuntimeX64", "hasX64", "x64-win64", {"SSE2", "X86"}},
}};

QStringList withoutForeign(const QStringList &components, const Runtime &runtime)
{
    QStringList kept;
    std::copy_if(components.begin(), components.end(), std::back_inserter(kept),
                 [&](const QString &component) {
                     return std::none_of(
                         runtime.foreignEndings.begin(), runtime.foreignEndings.end(),
                         [&](const char *ending) { return component.endsWith(QLatin1String(ending)); });
                 });
    return kept;
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

QList<HalconInstallation> installationsPerRuntime(const HalconInstallation &base)
{
    QList<HalconInstallation> installations;
    for (const Runtime &runtime : runtimes) {
        if (!base.components.contains(QLatin1String(runtime.component))) {
            continue;
        }
        DebugLogger::instance().log(QLatin1String(runtime.logLine));
        HalconInstallation installation = base;
        installation.arch = QLatin1String(runtime.arch);
        installation.setComponents(withoutForeign(base.components, runtime));
        installations.append(installation);
    }
    return installations;
}
