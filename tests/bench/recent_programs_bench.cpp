// How long a keystroke in the search line of the recent programs takes, in multiples of one plain pass of the
// highlighting over the same programs. The absolute times differ from machine to machine and from build to
// build; the multiple should not.

#include "recent/RecentPrograms.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"

#include <QElapsedTimer>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int programs = 20000;
constexpr int rounds = 5;

/// Counts how often a widget is painted.
class Drawings : public QObject {
public:
    explicit Drawings(QWidget &watched) { watched.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
};

QStringList manyPaths()
{
    QStringList paths;
    for (int i = 0; i < programs; ++i) {
        const QString directory = i % 10 == 0 ? "hdev" : "Programs & Libraries";
        paths.append(
            QString("C:/Users/Public/%1/Line %2/inspection %3.hdev").arg(directory).arg(i % 97).arg(i));
    }
    return paths;
}

double millisecondsOf(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

double medianOf(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// Kept, so that the compiler cannot optimise a pass away.
qint64 matches = 0;

void plainPass(const QStringList &paths, const QString &search)
{
    for (const QString &path : paths) {
        matches += highlightPath(path, search).score;
    }
}

/// A key in the search line, and everything that follows until the list is repainted.
bool keystroke(RecentProgramsFrame &frame, Drawings &drawings, Qt::Key key)
{
    drawings.count = 0;
    QTest::keyClick(searchLine(frame), key);
    return QTest::qWaitFor([&] { return drawings.count > 0; }, patienceMilliseconds);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const CaughtMessages messages; // among them the list of all the programs
    const HDevelopSettings settings;
    const QStringList paths = manyPaths();
    settings.writePrograms(paths);
    QWidget window;
    window.resize(800, 600);
    RecentProgramsFrame frame(&window);
    frame.resize(window.size());
    window.show();
    if (!eventuallyExposed(&window) || shownModel(frame)->rowCount() != programs) {
        std::fprintf(stderr, "the programs are not shown\n");
        return 1;
    }
    QTest::qWait(0);
    Drawings drawings(*list(frame)->viewport());

    std::printf("%d programs, median of %d rounds\n", programs, rounds);
    std::printf("%-12s %12s %12s %8s\n", "search", "pass [ms]", "key [ms]", "ratio");
    struct Step {
        Qt::Key key;
        const char *search; // the text of the search line after that key
    };
    const QList<Step> steps{{Qt::Key_H, "h"},         {Qt::Key_D, "hd"},          {Qt::Key_E, "hde"},
                            {Qt::Key_X, "hdex"},      {Qt::Key_Backspace, "hde"}, {Qt::Key_Backspace, "hd"},
                            {Qt::Key_Backspace, "h"}, {Qt::Key_Backspace, ""}};
    QVector<QList<double>> passes(steps.size());
    QVector<QList<double>> keys(steps.size());
    for (int round = 0; round < rounds; ++round) {
        for (int i = 0; i < steps.size(); ++i) {
            const QString search = steps.at(i).search;
            passes[i].append(millisecondsOf([&] { plainPass(paths, search); }));
            bool drawn = false;
            keys[i].append(millisecondsOf([&] { drawn = keystroke(frame, drawings, steps.at(i).key); }));
            if (!drawn || searchLine(frame)->text() != search) {
                std::fprintf(stderr, "the key was lost\n");
                return 1;
            }
        }
    }
    for (int i = 0; i < steps.size(); ++i) {
        const double pass = medianOf(passes.at(i));
        const double key = medianOf(keys.at(i));
        std::printf("%-12s %12.1f %12.1f %8.2f\n", steps.at(i).search, pass, key, key / pass);
    }
    std::fflush(stdout);
    return matches > 0 ? 0 : 1;
}
