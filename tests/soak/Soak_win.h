#pragma once

#include "tests/soak/Machine_win.h"
#include "tests/soak/Player_win.h"

#include <QFile>

#include <functional>

/// What a soak run needs to know.
struct SoakOptions {
    QString program;
    int actions = 200;
    quint64 seed = 1;
    QString consoleFile;                      ///< gets what the program prints
    QString startsFile;                       ///< gets a line from each stand-in that is started
    QStringList licenses;                     ///< files that the user may drop or choose
    QVector<ModelInstallation> installations; ///< of the machine
    QStringList directories;                  ///< whose files are compared
    QStringList ignored;                      ///< directories in them whose files are not
};

/// Uses the program at random and looks, after every few actions, whether all is well.
class Soak {
public:
    explicit Soak(const SoakOptions &options);

    /// Throws a QString that says what is wrong.
    void run();

    /// What was done last, the latest at the end.
    QStringList lastActions() const { return actions; }
    int actionsDone() const { return done; }

    /// How often which window was shown and which program was started, and how the resources went.
    QString summary() const;

private:
    void perform(const std::function<QString(Player &)> &action);
    void rest();
    void noteWindows();
    void checkConsole();
    void checkStarts();
    void checkMachine();
    void checkResources() const;

    SoakOptions options;
    Program program;
    Player player;
    Machine machine;
    MachineState state;
    QSet<QString> shown;          ///< titles since the last rest
    QSet<quintptr> open;          ///< the windows that were visible last
    QMap<QString, int> windows;   ///< how often a window of a title was shown
    QMap<QString, int> starts;    ///< how often a program was started
    QVector<Resources> resources; ///< at each rest
    QStringList actions;
    int done = 0;
    int messages = 0; ///< on the console
    qint64 consoleRead = 0;
    qint64 startsRead = 0;
};
