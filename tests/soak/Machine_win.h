#pragma once

#include "tests/soak/Model.h"

#include <QDateTime>
#include <QHash>

#include <memory>
#include <vector>

/// The registry and the files of the machine that this runs on.
class Machine {
public:
    /// Looks at @p directories and all that they contain, except for the directories @p ignored.
    Machine(const QStringList &directories, const QStringList &ignored);
    ~Machine();
    Machine(const Machine &) = delete;
    Machine &operator=(const Machine &) = delete;

    /// What is stored now. Leaves out what the system stores for itself: Wine's settings, and what is lost
    /// when it ends.
    MachineState state();

    /// What the file @p path contains, as in MachineState::files.
    QString contentOf(const QString &path);

private:
    /// Tells of changes in one tree of the registry.
    class Watch;

    void addFiles(const QString &directory, MachineState &state);

    struct Known {
        qint64 size;
        QDateTime modified;
        QString content;
    };

    QStringList directories;
    QStringList ignored;
    std::vector<std::unique_ptr<Watch>> watches;
    QMap<QString, QString> registry; ///< as it was when it was read last
    QHash<QString, Known> known;     ///< files that need not be read again
};
