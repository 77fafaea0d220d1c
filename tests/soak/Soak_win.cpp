#include "tests/soak/Soak_win.h"

#include "tests/soak/Input_win.h"
#include "tests/soak/Level.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

constexpr int actionsShown = 20;
constexpr int actionsBetweenRests = 10;
constexpr int actionsBetweenReports = 100;

/// A quantity that must be level in the second half of a run, and by how much it may rise all the same. In
/// the first half menus, icons and fonts are loaded that stay.
struct Quantity {
    const char *name;
    qint64 Resources::*value;
    qint64 slack;
};

constexpr Quantity quantities[] = {
    {"handles", &Resources::handles, 12},
    {"GDI objects", &Resources::gdi, 24},
    {"windows", &Resources::windows, 8},
    {"memory in KB", &Resources::kilobytes, 12288},
};

/// How lines on the console may begin: traces for developers, names of documents that are not known, the
/// colour of the footer, which Qt takes as it is meant, sizes in which Wine's shell has no icon, and what Wine
/// does not implement.
constexpr const char *expectedMessages[] = {
    "debug: ",
    "warning: cannot beautify unknown ",
    "critical: QPixmap::fromWinHICON(), failed to GetIconInfo() (Invalid cursor handle.)",
    "critical: EnableNonClientDpiScaling() failed for HWND ",
    "warning: QCssParser::parseColorValue: Specified color without alpha value but alpha given: 'rgb 57, "
    "159, 255, 100'",
};

/// The complete lines that a file has got since @p position, which is moved behind them.
QStringList newLines(const QString &path, qint64 &position)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(position)) {
        return {};
    }
    QByteArray text = file.readAll();
    text.truncate(text.lastIndexOf('\n') + 1);
    position += text.size();
    return QString::fromUtf8(text).remove(QLatin1Char('\r')).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void fail(const QString &fault)
{
    if (!fault.isEmpty()) {
        throw fault;
    }
}

QString counts(const QMap<QString, int> &counted)
{
    QStringList list;
    for (auto entry = counted.begin(); entry != counted.end(); ++entry) {
        list.append(QStringLiteral("%1 %2").arg(entry.key()).arg(entry.value()));
    }
    return list.join(QStringLiteral(", "));
}

} // namespace

Soak::Soak(const SoakOptions &options)
    : options(options),
      program(options.program, options.consoleFile),
      player(program, options.seed, options.licenses),
      machine(options.directories, options.ignored)
{
}

void Soak::run()
{
    while (program.windows().isEmpty()) {
        fail(program.waitUntilIdle());
    }
    rest();
    while (done < options.actions) {
        perform(&Player::act);
        ++done;
        if (done % actionsBetweenRests == 0) {
            rest();
        }
        if (done % actionsBetweenReports == 0) {
            std::printf("%d actions\n", done);
            std::fflush(stdout);
        }
    }
    rest();
    checkResources();
    program.close(program.windows().first());
    fail(program.waitForEnd());
    checkConsole();
    checkMachine();
    if (starts.isEmpty() || windows.size() < 2 || messages == 0) {
        fail(QStringLiteral("nothing was started, opened, or printed"));
    }
}

QString Soak::summary() const
{
    QString text = QStringLiteral("windows: %1\nstarts: %2\n").arg(counts(windows), counts(starts));
    for (const Quantity &quantity : quantities) {
        QStringList values;
        for (const Resources &sample : resources) {
            values.append(QString::number(sample.*quantity.value));
        }
        text += QStringLiteral("%1: %2\n").arg(QLatin1String(quantity.name), values.join(QLatin1Char(' ')));
    }
    return text;
}

void Soak::perform(const std::function<QString(Player &)> &action)
{
    actions.append(QStringLiteral("...")); // shown when it does not return
    actions.last() = action(player);
    if (actions.size() > actionsShown) {
        actions.removeFirst();
    }
    fail(program.waitUntilIdle());
    noteWindows();
}

/// Closes everything but the main window, and checks.
void Soak::rest()
{
    constexpr int patience = 50;
    moveMouse({0, 0});
    for (int attempt = 0;; ++attempt) {
        const QString step = player.putAway();
        if (step.isEmpty()) {
            break;
        }
        actions.append(QStringLiteral("at rest: ") + step);
        if (attempt == patience) {
            fail(QStringLiteral("the windows cannot be closed"));
        }
        fail(program.waitUntilIdle());
        noteWindows();
    }
    while (actions.size() > actionsShown) {
        actions.removeFirst();
    }
    checkConsole();
    checkStarts();
    checkMachine();
    resources.append(program.resources());
}

void Soak::noteWindows()
{
    QSet<quintptr> present;
    for (const ProgramWindow &window : program.windows()) {
        present.insert(window.handle);
        shown.insert(window.title);
        if (!open.contains(window.handle)) {
            ++windows[window.kind == ProgramWindow::Kind::Popup ? QStringLiteral("(menu)") : window.title];
        }
    }
    open = present;
}

void Soak::checkConsole()
{
    for (const QString &line : newLines(options.consoleFile, consoleRead)) {
        ++messages;
        const bool expected =
            std::any_of(std::begin(expectedMessages), std::end(expectedMessages),
                        [&](const char *start) { return line.startsWith(QLatin1String(start)); });
        if (!expected) {
            fail(QStringLiteral("on the console: %1").arg(line));
        }
    }
}

void Soak::checkStarts()
{
    for (const QString &line : newLines(options.startsFile, startsRead)) {
        const QStringList start = line.split(QLatin1Char('\t'));
        ++starts[start[0].mid(start[0].lastIndexOf(QLatin1Char('\\')) + 1)];
        fail(faultOfStart(start[0], start.value(1), start.value(2), options.installations));
    }
}

void Soak::checkMachine()
{
    const MachineState now = machine.state();
    if (!state.registry.isEmpty()) {
        Expectations expectations{options.installations, {}, {}, shown};
        for (const QString &license : player.offered()) {
            expectations.offeredLicenses.insert(license, machine.contentOf(license));
        }
        for (const QString &license : player.chosen()) {
            expectations.chosenDirectories.insert(license.left(license.lastIndexOf(QLatin1Char('\\'))));
        }
        const QStringList faults = forbiddenChanges(state, now, expectations);
        if (!faults.isEmpty()) {
            fail(QStringLiteral("what was not to change:\n  ") + faults.join(QStringLiteral("\n  ")));
        }
    }
    state = now;
    shown.clear();
}

void Soak::checkResources() const
{
    for (const Quantity &quantity : quantities) {
        QVector<qint64> values;
        for (const Resources &sample : resources.mid(resources.size() / 2)) {
            values.append(sample.*quantity.value);
        }
        if (values.contains(-1) || values.contains(0)) {
            fail(QStringLiteral("%1 cannot be counted").arg(QLatin1String(quantity.name)));
        }
        fail(riseOf(QLatin1String(quantity.name), values, quantity.slack));
    }
}
