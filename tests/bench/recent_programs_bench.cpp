// How long a keystroke in the search line of the recent programs takes until the list is painted, against one
// plain pass of the highlighting over the same programs: the mean of eight keys.

#include "recent/RecentPrograms.h"
#include "tests/bench/Figures.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"

#include <QtTest>

#include <cstdio>

namespace {

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

QStringList manyPaths(int programs)
{
    QStringList paths;
    for (int i = 0; i < programs; ++i) {
        const QString directory = i % 10 == 0 ? "hdev" : "Programs & Libraries";
        paths.append(
            QString("C:/Users/Public/%1/Line %2/inspection %3.hdev").arg(directory).arg(i % 97).arg(i));
    }
    return paths;
}

/// Kept, so that the compiler cannot optimise a pass away.
qint64 matches = 0;

void plainPass(const QStringList &paths, const QString &search)
{
    for (const QString &path : paths) {
        matches += highlightPath(path, search).score;
    }
}

/// A key in the search line, and everything that follows until the list is painted.
bool keystroke(RecentProgramsFrame &frame, Drawings &drawings, Qt::Key key)
{
    drawings.count = 0;
    QTest::keyClick(searchLine(frame), key);
    const QDeadlineTimer patience(patienceMilliseconds);
    while (drawings.count == 0 && !patience.hasExpired()) {
        QCoreApplication::processEvents();
    }
    return drawings.count > 0;
}

/// Types a search and removes it again, key by key. Fails when a key is lost.
bool compareKeystrokes(int programs)
{
    const HDevelopSettings settings;
    const QStringList paths = manyPaths(programs);
    settings.writePrograms(paths);
    QWidget window;
    window.resize(800, 600);
    RecentProgramsFrame frame(&window);
    frame.resize(window.size());
    window.show();
    if (!eventuallyExposed(&window) || shownModel(frame)->rowCount() != programs) {
        return false;
    }
    QTest::qWait(0);
    Drawings drawings(*list(frame)->viewport());

    struct Step {
        Qt::Key key;
        const char *search; // the text of the search line after that key
    };
    const QList<Step> steps{{Qt::Key_H, "h"},         {Qt::Key_D, "hd"},          {Qt::Key_E, "hde"},
                            {Qt::Key_X, "hdex"},      {Qt::Key_Backspace, "hde"}, {Qt::Key_Backspace, "hd"},
                            {Qt::Key_Backspace, "h"}, {Qt::Key_Backspace, ""}};
    QVector<double> passes;
    QVector<double> keys;
    for (int round = 0; round < rounds; ++round) {
        double pass = 0;
        double key = 0;
        for (const Step &step : steps) {
            const QString search = step.search;
            pass += millisecondsOf([&] { plainPass(paths, search); });
            bool drawn = false;
            key += millisecondsOf([&] { drawn = keystroke(frame, drawings, step.key); });
            if (!drawn || searchLine(frame)->text() != search) {
                return false;
            }
        }
        passes.append(pass / steps.size());
        keys.append(key / steps.size());
    }
    const QByteArray name = "keystroke, " + QByteArray::number(programs) + " recent programs";
    printFigure(name, medianOf(passes), medianOf(keys));
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const CaughtMessages messages; // among them the lists of all the programs
    for (const int programs : {1000, 10000, 50000}) {
        if (!compareKeystrokes(programs)) {
            std::fprintf(stderr, "recent-programs-bench: %d programs are not shown, or a key was lost\n",
                         programs);
            return 1;
        }
    }
    return matches > 0 ? 0 : 1;
}
