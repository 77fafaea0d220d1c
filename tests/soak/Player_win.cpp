#include "tests/soak/Player_win.h"

#include "tests/soak/FileDrag_win.h"
#include "tests/soak/Input_win.h"

#include <windows.h>

namespace {

constexpr int dragSteps = 4;

struct Key {
    const char *name;
    QVector<int> keys;
};

/// The more often a key stands here, the more often it is pressed.
const QVector<Key> &usualKeys()
{
    static const QVector<Key> keys{
        {"Tab", {VK_TAB}},
        {"Tab", {VK_TAB}},
        {"Tab", {VK_TAB}},
        {"Shift+Tab", {VK_SHIFT, VK_TAB}},
        {"Space", {VK_SPACE}},
        {"Space", {VK_SPACE}},
        {"Return", {VK_RETURN}},
        {"Escape", {VK_ESCAPE}},
        {"Up", {VK_UP}},
        {"Down", {VK_DOWN}},
        {"Down", {VK_DOWN}},
        {"Left", {VK_LEFT}},
        {"Right", {VK_RIGHT}},
        {"Home", {VK_HOME}},
        {"End", {VK_END}},
        {"Page Up", {VK_PRIOR}},
        {"Page Down", {VK_NEXT}},
        {"F4", {VK_F4}},
        {"F4", {VK_F4}},
        {"F12", {VK_F12}},
        {"F1", {VK_F1}},
        {"Backspace", {VK_BACK}},
        {"Delete", {VK_DELETE}},
        {"Ctrl+A", {VK_CONTROL, 'A'}},
        {"Ctrl+C", {VK_CONTROL, 'C'}},
        {"Ctrl+V", {VK_CONTROL, 'V'}},
        {"Shift+End", {VK_SHIFT, VK_END}},
        {"Menu", {VK_APPS}},
    };
    return keys;
}

QString placeText(QPoint position, const ProgramWindow &window)
{
    const QPoint inside = position - window.client.topLeft();
    return QStringLiteral("at %1,%2 of \"%3\"").arg(inside.x()).arg(inside.y()).arg(window.title);
}

const ProgramWindow *topmost(const QVector<ProgramWindow> &windows)
{
    for (const ProgramWindow &window : windows) {
        if (window.enabled) {
            return &window;
        }
    }
    return nullptr;
}

} // namespace

Player::Player(const Program &program, quint64 seed, const QStringList &licenses)
    : program(program), dice(seed), licenses(licenses)
{
}

QString Player::act()
{
    using Kind = ProgramWindow::Kind;
    const QVector<ProgramWindow> windows = program.windows();
    const ProgramWindow *top = topmost(windows);
    if (top == nullptr) {
        return QStringLiteral("nothing, as no window takes input");
    }
    // No other input: its keys and menus rename and delete files.
    if (top->kind == Kind::FileDialog) {
        return dice.chance(60) ? chooseLicense(*top) : answer(*top);
    }
    if (top->kind == Kind::Dialog) {
        if (top->title == QLatin1String("Install HALCON license") && dice.chance(30)) {
            return dropLicense(*top);
        }
        if (dice.chance(35)) {
            return answer(*top);
        }
    }
    // Sometimes beside what is in front.
    const ProgramWindow &window = dice.chance(12) ? dice.anyOf(windows) : *top;
    const int kind = dice.below(100);
    if (kind < 52) {
        return click(window, 1);
    }
    if (kind < 60) {
        return click(window, 2);
    }
    if (kind < 64) {
        return rightClick(window);
    }
    if (kind < 69) {
        return drag(window);
    }
    if (kind < 74) {
        return turn(window);
    }
    if (kind < 92) {
        return press();
    }
    if (kind < 95) {
        return type();
    }
    return kind < 99 ? reshape(window) : dropLicense(window);
}

QString Player::putAway()
{
    const QVector<ProgramWindow> windows = program.windows();
    const ProgramWindow *top = topmost(windows);
    if (top == nullptr) {
        return QStringLiteral("wait");
    }
    if (top->kind != ProgramWindow::Kind::Main) {
        program.close(*top);
        return QStringLiteral("close \"%1\"").arg(top->title);
    }
    for (const ProgramWindow &window : windows) {
        if (window.handle != top->handle) {
            program.close(window);
            return QStringLiteral("close \"%1\"").arg(window.title);
        }
    }
    if (!IsZoomed(reinterpret_cast<HWND>(top->handle))) {
        program.maximize(*top);
        return QStringLiteral("maximise");
    }
    return QString();
}

QPoint Player::somewhere(const ProgramWindow &window)
{
    const QRect &client = window.client;
    const int x = dice.below(qMax(1, client.width()));
    const int y = dice.below(qMax(1, client.height()));
    // The buttons of the cards are in the right half, and most of the left is text.
    const bool right = window.kind == ProgramWindow::Kind::Main && dice.chance(70);
    return client.topLeft() + QPoint(right ? (client.width() + x) / 2 : x, y);
}

QString Player::click(const ProgramWindow &window, int times)
{
    const QPoint position = somewhere(window);
    moveMouse(position);
    for (int time = 0; time < times; ++time) {
        pressButton(MouseButton::Left);
        releaseButton(MouseButton::Left);
    }
    return QStringLiteral("%1 %2").arg(times == 1 ? "click" : "double click", placeText(position, window));
}

QString Player::rightClick(const ProgramWindow &window)
{
    const QPoint position = somewhere(window);
    moveMouse(position);
    pressButton(MouseButton::Right);
    releaseButton(MouseButton::Right);
    return QStringLiteral("right click %1").arg(placeText(position, window));
}

QString Player::drag(const ProgramWindow &window)
{
    const QPoint from = somewhere(window);
    const QPoint to = somewhere(window);
    moveMouse(from);
    pressButton(MouseButton::Left);
    for (int step = 1; step <= dragSteps; ++step) {
        Sleep(10);
        moveMouse(from + (to - from) * step / dragSteps);
    }
    releaseButton(MouseButton::Left);
    return QStringLiteral("drag %1 to %2").arg(placeText(from, window), placeText(to, window));
}

QString Player::turn(const ProgramWindow &window)
{
    const QPoint position = somewhere(window);
    const int notches = dice.below(9) - 4;
    moveMouse(position);
    turnWheel(notches);
    return QStringLiteral("turn the wheel by %1 %2").arg(notches).arg(placeText(position, window));
}

QString Player::press()
{
    const Key &key = dice.anyOf(usualKeys());
    program.takeKeyboard();
    pressKeys(key.keys);
    return QStringLiteral("press %1").arg(QLatin1String(key.name));
}

QString Player::type()
{
    static const QString letters = QStringLiteral("ABEHV0129");
    QString text;
    program.takeKeyboard();
    for (int count = 1 + dice.below(5); count > 0; --count) {
        const QChar letter = letters[dice.below(letters.size())];
        pressKeys({letter.unicode()});
        text += letter;
    }
    return QStringLiteral("type %1").arg(text);
}

QString Player::reshape(const ProgramWindow &window)
{
    switch (window.kind == ProgramWindow::Kind::Popup ? 3 : dice.below(5)) {
    case 0:
        program.maximize(window);
        return QStringLiteral("maximise \"%1\"").arg(window.title);
    case 1:
        program.minimizeAndRestore(window);
        return QStringLiteral("minimise and restore \"%1\"").arg(window.title);
    case 2: // no size is too small
    case 4: {
        const QRect frame(dice.below(600), dice.below(400), dice.below(1200), dice.below(1000));
        program.resize(window, frame);
        return QStringLiteral("resize \"%1\" to %2 x %3")
            .arg(window.title)
            .arg(frame.width())
            .arg(frame.height());
    }
    default:
        return press();
    }
}

QString Player::answer(const ProgramWindow &window)
{
    const int way = dice.below(10);
    if (way >= 7 || window.kind == ProgramWindow::Kind::FileDialog) {
        program.close(window);
        return QStringLiteral("close \"%1\"").arg(window.title);
    }
    program.takeKeyboard();
    pressKeys({way < 5 ? VK_RETURN : VK_ESCAPE});
    return QStringLiteral("answer \"%1\" with %2").arg(window.title, way < 5 ? "Return" : "Escape");
}

QString Player::chooseLicense(const ProgramWindow &dialog)
{
    const QString &license = dice.anyOf(licenses);
    offeredLicenses.append(license);
    chosenLicenses.append(license);
    program.chooseFile(dialog, license);
    return QStringLiteral("choose %1").arg(license);
}

QString Player::dropLicense(const ProgramWindow &window)
{
    const QString &license = dice.anyOf(licenses);
    // In the dialog for licenses that is in the field that takes a file, or close to it.
    const QPoint position =
        window.client.topLeft() +
        QPoint(window.client.width() / 2, window.client.height() * (60 + dice.below(15)) / 100);
    offeredLicenses.append(license);
    const bool taken = dragFile(license, position);
    return QStringLiteral("drop %1 %2: %3")
        .arg(license, placeText(position, window), taken ? "taken" : "refused");
}
