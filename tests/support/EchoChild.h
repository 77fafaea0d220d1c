#pragma once

#include "tests/support/EnvironmentVariable.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What a started child received.
struct EchoRecord {
    QString commandLine;
    QString executable;
    QString currentDirectory;
    int showCommand = -1;    ///< The parent's request, such as SW_SHOW; -1 for none.
    QStringList environment; ///< "NAME=value", in the order of the environment block.

    /// The value of the variable @p name, ignoring case; null when there is none.
    QString variable(const QString &name) const;
};

/// Receives what a child was given, by means of a small fake tool that records it. Windows only; one object
/// at a time.
///
/// While the object lives, the environment of the test program names the file to which the child writes.
class EchoChild {
public:
    EchoChild();

    /// Puts the recording program at @p path, which may name any tool, and makes the directories above it. A
    /// failure ends the test program.
    static void copyTo(const QString &path);

    /// The exit code of children started from now on; initially 0.
    static void exitWith(quint32 exitCode);

    /// Whether a child has left a record that has not been taken yet.
    bool hasRecord() const;

    /// Waits until a started child has left its record, removes it and stores it in @p record. False when
    /// there is none after some seconds.
    bool waitForRecord(EchoRecord &record) const;

    /// The same record as a result. When there is none the test program ends.
    EchoRecord record() const;

private:
    QString recordPath() const;

    QTemporaryDir directory;
    EnvironmentVariable recordVariable;
    EnvironmentVariable exitCodeVariable;
};
