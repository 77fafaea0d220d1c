#include "devenv/Vswhere.h"

#include "base/ProgramDirectory.h"

#include <QDebug>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include <array>

QString vswhereExecutable()
{
    const QString path = besideProgram(QStringLiteral("vswhere.exe"));
    return QFileInfo(path).isFile() ? path : QString();
}

std::optional<QByteArray> runVswhere(const QString &executable)
{
    QProcess process;
    process.start(executable, {QStringLiteral("-prerelease"), QStringLiteral("-all")});
    if (!process.waitForFinished(vswhereLimitMilliseconds)) {
        process.kill();
        process.waitForFinished();
        return std::nullopt;
    }
    return process.readAllStandardOutput();
}

VswhereReport readVswhereReport(const QByteArray &report)
{
    struct Field {
        const char *key;
        QRegularExpression pattern;
        QString VswhereInstallation::*value;
    };
    static const std::array<Field, 3> fields{{
        {"installationPath", QRegularExpression(QStringLiteral("^installationPath:(.*)$")),
         &VswhereInstallation::path},
        {"displayName", QRegularExpression(QStringLiteral("^displayName:(.*)$")),
         &VswhereInstallation::displayName},
        {"installationVersion",
         QRegularExpression(QStringLiteral(R"(^installationVersion:\s*(\d+\.\d+).*$)")),
         &VswhereInstallation::version},
    }};

    VswhereReport result;
    VswhereInstallation current;
    const QString text = QString::fromUtf8(report);
    qDebug() << text;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        for (const Field &field : fields) {
            const QRegularExpressionMatch match = field.pattern.match(line);
            if (match.hasMatch()) {
                current.*field.value = match.captured(1).trimmed();
                current.log.append(QLatin1String(field.key) + QStringLiteral(": ") + current.*field.value);
            }
        }
        if (!current.path.isEmpty() && !current.displayName.isEmpty() && !current.version.isEmpty()) {
            result.installations.append(current);
            current = VswhereInstallation();
        }
    }
    result.log = current.log;
    return result;
}
