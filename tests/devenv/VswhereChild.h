#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// How the program behaves that stands in for vswhere.exe.
struct VswhereConduct {
    QByteArray report;       ///< what it writes to standard output
    QByteArray errors;       ///< what it writes to standard error, behind the report
    bool readsInput = false; ///< whether it first reads its standard input to the end
    bool repeats = false;    ///< whether it writes the report again and again without end
    int delay = 0;           ///< milliseconds that it waits before the report
    int linger = 0;          ///< milliseconds that it waits behind the report
    quint32 exitCode = 0;
};

/// One run of the program.
struct VswhereRun {
    quint32 processId;
    QString executable;
    QStringList arguments; ///< without the program itself
};

/// A program that stands in for vswhere.exe, beside the test program while this object lives. Windows only;
/// one object at a time.
class VswhereChild {
public:
    /// It behaves by @p conduct. A failure ends the test program.
    explicit VswhereChild(const VswhereConduct &conduct);
    /// It writes @p report and ends.
    explicit VswhereChild(const QByteArray &report);
    VswhereChild(const VswhereChild &) = delete;
    VswhereChild &operator=(const VswhereChild &) = delete;
    ~VswhereChild();

    /// Where it is: vswhere.exe in the directory of the test program.
    static QString path();

    /// Removes the file or empty directory @p path and waits until that is possible. False when it stays.
    static bool removeFrom(const QString &path);

    /// Puts it at another place instead.
    void moveTo(const QString &otherPath) const;

    /// Lets it report something else from now on.
    void setReport(const QByteArray &report) const;

    /// Every run so far.
    QList<VswhereRun> runs() const;

private:
    QString filePath(const QString &name) const;

    QTemporaryDir directory;
};

/// Whether there is a process with this number that has not ended.
bool isRunning(quint32 processId);
