#pragma once

#include <QString>

#include <cstdlib>

/// Gives a variable of this program's environment a value that may hold any character, until the end. An
/// empty value removes it. Windows only.
class WideVariable {
public:
    WideVariable(const char *name, const QString &value) : name(name), before(qEnvironmentVariable(name))
    {
        set(value);
    }
    WideVariable(const WideVariable &) = delete;
    WideVariable &operator=(const WideVariable &) = delete;
    ~WideVariable() { set(before); }

private:
    void set(const QString &value) const
    {
        _wputenv_s(QString(name).toStdWString().c_str(), value.toStdWString().c_str());
    }

    const char *name;
    QString before;
};
