#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A variable of this program's environment that gets its first value, or is absent, again at the end.
class EnvironmentVariable {
public:
    explicit EnvironmentVariable(const char *name)
        : name(name), existed(qEnvironmentVariableIsSet(name)), before(qgetenv(name))
    {
    }
    EnvironmentVariable(const char *name, const QByteArray &value) : EnvironmentVariable(name) { set(value); }
    EnvironmentVariable(const EnvironmentVariable &) = delete;
    EnvironmentVariable &operator=(const EnvironmentVariable &) = delete;
    ~EnvironmentVariable() { existed ? set(before) : unset(); }

    void set(const QByteArray &value) const { qputenv(name, value); }
    void unset() const { qunsetenv(name); }

private:
    const char *name;
    bool existed;
    QByteArray before;
};
