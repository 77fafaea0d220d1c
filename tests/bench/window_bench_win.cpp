// Shows a window, and prints how long that took from the start of the process to the end of the first paint,
// in milliseconds, and how much memory the process has in use then, in MB.
//
//   window-bench program   the program's own window
//   window-bench bare      an empty window

#include "app/MainWindow.h"
#include "base/ApplicationIdentity.h"

#include <QApplication>
#include <QTimer>

#include <windows.h>

#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

double millisecondsSinceStart()
{
    const auto number = [](const FILETIME &time) {
        return (quint64(time.dwHighDateTime) << 32) | time.dwLowDateTime;
    };
    FILETIME started{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    FILETIME now{};
    GetProcessTimes(GetCurrentProcess(), &started, &ended, &kernel, &user);
    GetSystemTimePreciseAsFileTime(&now);
    return double(number(now) - number(started)) / 1e4;
}

double megabytes()
{
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof(memory));
    return double(memory.WorkingSetSize) / (1024 * 1024);
}

/// Ends the process when the first paint of the window has ended.
class FirstPaint : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            // What is painted with it comes before the next event.
            QTimer::singleShot(0, [] {
                std::printf("%.2f\t%.2f\n", millisecondsSinceStart(), megabytes());
                std::fflush(stdout);
                std::_Exit(0);
            });
            watched->removeEventFilter(this);
        }
        return false;
    }
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    setApplicationIdentity();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/corvanta.png")));

    const QString kind = QApplication::arguments().value(1);
    std::unique_ptr<QMainWindow> window;
    if (kind == QLatin1String("program")) {
        window = std::make_unique<MainWindow>();
    } else if (kind == QLatin1String("bare")) {
        window = std::make_unique<QMainWindow>();
        window->setWindowState(Qt::WindowMaximized);
    } else {
        std::fprintf(stderr, "window-bench: name the window: program or bare\n");
        return 2;
    }
    FirstPaint firstPaint;
    window->installEventFilter(&firstPaint);
    window->show();
    return QApplication::exec();
}
