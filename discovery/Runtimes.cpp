#include "discovery/Runtimes.h"

#include "base/DebugLogger.h"

#include <algorithm>
#include <array>

namespace {

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
