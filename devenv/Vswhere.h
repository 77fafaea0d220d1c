#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// One complete installation in the report of vswhere.exe.
struct VswhereInstallation {
    QString path;        ///< value of installationPath
    QString displayName; ///< value of displayName
    QString version;     ///< first two numbers of installationVersion, such as "17.4"
    QStringList log; ///< lines for the debug log, for each value that was read up to and including this block
};

/// What vswhere.exe reported.
struct VswhereReport {
    QList<VswhereInstallation> installations;
    QStringList log; ///< lines for the debug log about values after the last complete installation
};

/// Where vswhere.exe is expected: beside the program. Empty when there is no such file.
QString vswhereExecutable();

/// How long vswhere.exe may take.
constexpr int vswhereLimitMilliseconds = 5000;

/// Runs @p executable and returns what it wrote to standard output, or nothing when it could not be started
/// or was not finished within vswhereLimitMilliseconds; then it has been terminated. Blocks.
std::optional<QByteArray> runVswhere(const QString &executable);

/// Reads a report: UTF-8 lines of a key, a colon and a value. An installation is complete as soon as all
/// three values were seen, whatever their order; of an incomplete one the values stay for the next. The whole
/// report goes to the message channel, for developers.
VswhereReport readVswhereReport(const QByteArray &report);
