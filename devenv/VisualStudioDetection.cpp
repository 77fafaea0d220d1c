#include "devenv/VisualStudioDetection.h"

#include "base/DebugLogger.h"
#include "base/RegistryReader.h"
#include "devenv/BuildScripts.h"
#include "devenv/IdeSearch.h"
#include "devenv/Vswhere.h"

#include <QDebug>
#include <QDir>
#include <QRegularExpression>

#include <array>

namespace {

/// The record of one product found in the registry, still without architecture.
VisualStudioVersion recordFor(const QString &productDir, const QString &edition, const QString &version,
                              bool express)
{
    VisualStudioVersion record;
    record.express = express;
    // Searched before and after the product directory is known: the log shows both.
    findIdeExecutable(record);
    if (express) {
        record.edition = QStringLiteral("Express Edition");
        record.vcDir = productDir;
        // The parent of an empty path would be the root of the current drive.
        record.productDir =
            productDir.isEmpty() ? QString() : QDir(productDir + QStringLiteral("/..")).absolutePath();
    } else {
        record.edition = edition;
        record.vcDir = productDir + QStringLiteral("\\VC");
        record.productDir = productDir;
    }
    findIdeExecutable(record);
    record.version = version;
    return record;
}

} // namespace

QList<VisualStudioVersion> detectVisualStudioInRegistry(const QString &rootKey, bool express)
{
    qDebug() << "detectVisualStudioInRegistry in" << rootKey;
    DebugLogger::instance().log(QStringLiteral("Try to detect Visual Studio (pre-VS2017) in registry at ") +
                                rootKey);

    // The dot matches any character, so that 14.0_Config and 1400 pass as well.
    static const QRegularExpression versionPattern(QStringLiteral(R"(\d+.\d)"));
    const RegistryReader root(rootKey);
    const QStringList versions = root.childGroups().filter(versionPattern);

    QList<VisualStudioVersion> records;
    for (const QString &version : versions) {
        qDebug() << "vs_version" << version;
        const RegistryReader setup = root.below(version + QStringLiteral("/Setup"));
        const QStringList editions =
            express ? QStringList{QString()} : setup.below(QStringLiteral("VS")).childGroups();
        for (const QString &edition : editions) {
            qDebug() << "ed" << edition;
            const RegistryReader product =
                setup.below(express ? QStringLiteral("VC") : QStringLiteral("VS/") + edition);
            const QString productDir = QStringLiteral("ProductDir");
            if (!product.contains(productDir)) {
                continue;
            }
            const VisualStudioVersion record =
                recordFor(product.value(productDir).toString(), edition, version, express);
            records +=
                recordsPerArchitecture(record, record.vcDir + QStringLiteral("\\bin\\amd64\\vcvars64.bat"),
                                       record.vcDir + QStringLiteral("\\bin\\vcvars32.bat"));
        }
    }
    return records;
}

QList<VisualStudioVersion> detectVisualStudioViaVswhere()
{
    qDebug() << "detectVisualStudioViaVswhere with vswhere.exe";
    DebugLogger::instance().log(
        QStringLiteral("Trying to detect Visual Studio via vswhere.exe utility (VS2017+)"));
    const QString executable = vswhereExecutable();
    if (executable.isEmpty()) {
        return {};
    }
    const std::optional<QByteArray> report = runVswhere(executable);
    return report ? parseVswhereReport(*report) : QList<VisualStudioVersion>();
}

QList<VisualStudioVersion> parseVswhereReport(const QByteArray &report)
{
    const auto logAll = [](const QStringList &lines) {
        for (const QString &line : lines) {
            DebugLogger::instance().log(line);
        }
    };
    const VswhereReport read = readVswhereReport(report);
    QList<VisualStudioVersion> records;
    for (const VswhereInstallation &installation : read.installations) {
        logAll(installation.log);
        VisualStudioVersion record;
        // Searched before and after the product directory is known: the log shows both.
        findIdeExecutable(record);
        record.edition = installation.displayName;
        record.productDir = installation.path;
        findIdeExecutable(record);
        record.version = installation.version;
        record.vcDir = installation.path + QStringLiteral("\\VC");
        const QString scripts = record.vcDir + QStringLiteral("\\Auxiliary\\Build\\");
        records += recordsPerArchitecture(record, scripts + QStringLiteral("vcvars64.bat"),
                                          scripts + QStringLiteral("vcvars32.bat"));
    }
    logAll(read.log);
    return records;
}

QList<VisualStudioVersion> detectVisualStudioVersions()
{
    DebugLogger::instance().log(
        QStringLiteral("Try to detect Visual Studio version in Windows Registry (pre-VS2017)"));

    struct Root {
        const char *key;
        bool express;
    };
    static constexpr std::array<Root, 4> roots{{
        {R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Microsoft\VisualStudio)", false},
        {R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VisualStudio)", false},
        {R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Microsoft\VCExpress)", true},
        {R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VCExpress)", true},
    }};
    QList<VisualStudioVersion> versions;
    for (const Root &root : roots) {
        versions += detectVisualStudioInRegistry(QLatin1String(root.key), root.express);
    }
    versions += detectVisualStudioViaVswhere();
    orderVisualStudioVersions(versions);
    return versions;
}

QList<VisualStudioVersion> visualStudioVersions()
{
    static const QList<VisualStudioVersion> versions = detectVisualStudioVersions();
    return versions;
}
