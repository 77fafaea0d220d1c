#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <memory>

/// The environment of a process by Windows' rules: the case of names does not matter, and a name may begin
/// with an equals sign, as in "=C:=C:\directory". A plain value.
class Environment {
public:
    /// From "NAME=value" strings. A name that occurs again, in whatever case, gets the later value and keeps
    /// its first spelling. A string without a name or an equals sign is left out.
    explicit Environment(const QStringList &entries);

    /// The value of the variable @p name; empty when there is none.
    QString value(const QString &name) const;

    /// Adds the variable, or replaces the value of the one that there is and keeps its spelling.
    void set(const QString &name, const QString &value);

    /// What CreateProcessW expects: UTF-16 "NAME=value" strings, ordered by name without regard to case, each
    /// terminated by a 0, and one more 0 at the end. The buffer is freed with its last owner.
    std::shared_ptr<char16_t[]> block() const;

private:
    struct ComesFirst {
        bool operator()(const QString &one, const QString &other) const
        {
            return one.compare(other, Qt::CaseInsensitive) < 0;
        }
    };

    std::map<QString, QString, ComesFirst> variables; ///< values by name
};
