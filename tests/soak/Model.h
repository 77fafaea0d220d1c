#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a machine stores, as far as the program could change it.
struct MachineState {
    /// From "hklm\key\" to nothing for each key, and from "hklm\key\|name" to type and data for each value,
    /// all names in lower case.
    QMap<QString, QString> registry;
    /// From the path of a directory, with a backslash at its end, to nothing, and from the path of a file
    /// to a text that tells different contents apart.
    QMap<QString, QString> files;
};

/// An installation of the machine.
struct ModelInstallation {
    QString root;     ///< without a backslash at the end
    QString examples; ///< the root of the examples
    QString arch;
};

/// What the program may change, depending on what it has been offered and has asked so far.
struct Expectations {
    QVector<ModelInstallation> installations;
    /// From the path of each licence file that the user has dropped or chosen to its content, as in
    /// MachineState::files.
    QMap<QString, QString> offeredLicenses;
    /// The directories of those that were chosen, without a backslash at the end.
    QSet<QString> chosenDirectories;
    /// The titles of the windows that the program has shown since the machine was looked at last.
    QSet<QString> shown;
};

/// Says of each difference between @p before and @p now that the program must not have made what it is.
QStringList forbiddenChanges(const MachineState &before, const MachineState &now,
                             const Expectations &expectations);

/// Says what is wrong with the start of a program, as its stand-in recorded it: the path of the executable,
/// and the environment variables HALCONROOT and HALCONARCH. Empty when it is right.
QString faultOfStart(const QString &executable, const QString &root, const QString &arch,
                     const QVector<ModelInstallation> &installations);
