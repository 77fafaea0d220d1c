#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What a started child found.
struct EchoRecord {
    QString commandLine;
    QString executable;
    QString currentDirectory;
    int showCommand = -1; ///< What it was told by the one that started it, such as SW_SHOW; -1 for nothing.
    QStringList environment; ///< "NAME=value", in the order of the environment block.

    /// The value of the variable @p name, in whatever case it is written; a null text when there is none.
    QString variable(const QString &name) const;
};

/// Receives what a child was given, with the help of a small program that stands in for a real tool and
/// records it. Windows only; one object at a time.
///
/// While the object lives, the environment of the test program names the file that the child writes.
class EchoChild {
public:
    EchoChild();
    EchoChild(const EchoChild &) = delete;
    EchoChild &operator=(const EchoChild &) = delete;
    ~EchoChild();

    /// Puts the recording program at @p path, which may name any tool, and makes the directories above it. A
    /// failure ends the test program.
    static void copyTo(const QString &path);

    /// What children started from now on end with; 0 at first.
    static void exitWith(quint32 exitCode);

    /// Whether a child has left a record that has not been taken away yet.
    bool hasRecord() const;

    /// Waits until a started child has left its record, takes that away and stores it in @p record. False
    /// after some seconds without one.
    bool waitForRecord(EchoRecord &record) const;

private:
    QString recordPath() const;

    QTemporaryDir directory;
};
