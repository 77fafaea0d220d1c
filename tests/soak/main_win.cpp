// Uses the program at random; see soak.sh, which makes the machine for it.
//
//   soak PROGRAM ACTIONS SEED WORK_DIRECTORY
//
// WORK_DIRECTORY contains the files "installations", each line of which names the root, the root of the
// examples and the architecture of one, separated by tabs, and "licenses", the paths of the files that may
// be installed. It gets the files "console", which is what the program prints, and "starts", to which
// stand-ins add a line each.

#include "tests/soak/Soak_win.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <memory>

namespace {

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        throw QStringLiteral("%1 cannot be read").arg(path);
    }
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

SoakOptions optionsFrom(const QStringList &arguments)
{
    const QDir work(arguments.value(4));
    SoakOptions options;
    options.program = arguments.value(1);
    options.actions = arguments.value(2).toInt();
    options.seed = arguments.value(3).toULongLong();
    options.consoleFile = work.filePath(QStringLiteral("console"));
    options.startsFile = work.filePath(QStringLiteral("starts"));
    options.licenses = linesOf(work.filePath(QStringLiteral("licenses")));
    for (const QString &line : linesOf(work.filePath(QStringLiteral("installations")))) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        options.installations.append({fields.value(0), fields.value(1), fields.value(2)});
    }
    // Wine's own files do not change; the system's temporary files are the user's.
    options.directories = QStringList{QStringLiteral("C:/"), QStringLiteral("C:/windows/temp"),
                                      QDir::fromNativeSeparators(qEnvironmentVariable("SOAK_HOME"))};
    options.ignored = QStringList{QStringLiteral("C:\\windows")};
    return options;
}

void print(const QString &text)
{
    std::fputs(qPrintable(text + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    std::unique_ptr<Soak> soak;
    quint64 seed = 0;
    try {
        const SoakOptions options = optionsFrom(QCoreApplication::arguments());
        // Not passed on by Wine to a first process.
        qputenv("ComSpec", qgetenv("SOAK_SHELL"));
        qputenv("QT_FORCE_STDERR_LOGGING", "1");
        qputenv("QT_MESSAGE_PATTERN", "%{type}: %{message}");
        seed = options.seed;
        soak = std::make_unique<Soak>(options);
        soak->run();
    } catch (const QString &fault) {
        print(QStringLiteral("FAIL: %1\nseed %2").arg(fault).arg(seed));
        if (soak) {
            print(QStringLiteral("after %1 actions, the last of which were:\n  %2\n%3")
                      .arg(soak->actionsDone())
                      .arg(soak->lastActions().join(QStringLiteral("\n  ")), soak->summary()));
        }
        return 1;
    }
    print(QStringLiteral("%1 actions, seed %2\n%3").arg(soak->actionsDone()).arg(seed).arg(soak->summary()));
    return 0;
}
