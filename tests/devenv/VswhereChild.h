#pragma once

#include "tests/support/EnvironmentVariable.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <list>

/// How the fake vswhere.exe behaves.
struct VswhereConduct {
    QByteArray report;       ///< what it writes to standard output
    QByteArray errors;       ///< what it writes to standard error, after the report
    bool readsInput = false; ///< whether it first reads its standard input to the end
    bool repeats = false;    ///< whether it repeats the report for ever
    int delay = 0;           ///< wait before the report, in milliseconds
    int linger = 0;          ///< wait after the report, in milliseconds
    quint32 exitCode = 0;
};

/// One run of the program.
struct VswhereRun {
    quint32 processId;
    QString executable;
    QStringList arguments; ///< without the program itself
};

/// A fake vswhere.exe, beside the test program while this object lives. Windows only; one object at a time.
class VswhereChild {
public:
    /// The fake behaves as @p conduct says. A failure ends the test program.
    explicit VswhereChild(const VswhereConduct &conduct);
    /// The fake writes @p report and ends.
    explicit VswhereChild(const QByteArray &report);
    VswhereChild(const VswhereChild &) = delete;
    VswhereChild &operator=(const VswhereChild &) = delete;
    ~VswhereChild();

    /// Its path: vswhere.exe in the directory of the test program.
    static QString path();

    /// Removes the file or empty directory @p path, as soon as that is possible. False when that fails.
    static bool removeFrom(const QString &path);

    /// Moves the fake to another path.
    void moveTo(const QString &otherPath) const;

    /// Makes the fake report something else from now on.
    void setReport(const QByteArray &report) const;

    /// Every run so far.
    QList<VswhereRun> runs() const;

private:
    void setVariable(const char *name, const QString &value);
    QString filePath(const QString &name) const;

    QTemporaryDir directory;
    std::list<EnvironmentVariable> variables; ///< tell the fake how to behave
};

/// Whether the process with this identifier is running.
bool isRunning(quint32 processId);
