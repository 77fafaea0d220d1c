#pragma once

#include <QPoint>
#include <QRect>
#include <QSet>
#include <QString>
#include <QVector>

#include <memory>

/// A visible window of the program.
struct ProgramWindow {
    enum class Kind { Main, Dialog, Popup, FileDialog };

    quintptr handle;
    Kind kind;
    bool enabled; ///< false behind a modal dialog
    QString title;
    QRect client; ///< the client area, in pixels of the screen
};

/// What the program has allocated, or uses of a kind of resource.
struct Resources {
    qint64 handles;   ///< of the kernel
    qint64 gdi;       ///< GDI objects
    qint64 windows;   ///< visible or not
    qint64 kilobytes; ///< private memory
};

/// The program in a process of its own. What it prints goes to a file.
class Program {
public:
    /// Starts @p executable; throws a QString when that fails.
    Program(const QString &executable, const QString &consoleFile);
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /// Its visible windows but for tool tips, the topmost first.
    QVector<ProgramWindow> windows() const;

    /// Waits until the program has dealt with what it was sent. Says what is wrong when it has ended, or
    /// has not answered for a minute.
    QString waitUntilIdle() const;

    /// Waits for its end, at most a minute, and says what is wrong when it does not come, or the exit code
    /// is not 0.
    QString waitForEnd() const;

    Resources resources() const;

    /// Makes it the program that gets the keys.
    void takeKeyboard() const;
    void close(const ProgramWindow &window) const;
    void resize(const ProgramWindow &window, const QRect &frame) const;
    void maximize(const ProgramWindow &window) const;
    void minimizeAndRestore(const ProgramWindow &window) const;
    /// Enters @p file in a file dialog, and presses its OK.
    void chooseFile(const ProgramWindow &window, const QString &file) const;

private:
    struct Process;
    std::unique_ptr<Process> process;
};
