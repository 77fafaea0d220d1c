#include "launch/Environment.h"

#include <algorithm>
#include <string>

Environment::Environment(const QStringList &entries)
{
    for (const QString &entry : entries) {
        // The first character belongs to the name, even if it is an equals sign.
        const int equals = entry.indexOf(QLatin1Char('='), 1);
        if (equals != -1) {
            set(entry.left(equals), entry.mid(equals + 1));
        }
    }
}

QString Environment::value(const QString &name) const
{
    const auto variable = variables.find(name);
    return variable == variables.end() ? QString() : variable->second;
}

void Environment::set(const QString &name, const QString &value)
{
    variables.insert_or_assign(name, value);
}

std::shared_ptr<char16_t[]> Environment::block() const
{
    std::u16string units;
    for (const auto &[name, value] : variables) {
        units += (name + QLatin1Char('=') + value).toStdU16String() + u'\0';
    }
    // An empty block is terminated twice, too.
    units += variables.empty() ? std::u16string(2, u'\0') : std::u16string(1, u'\0');

    std::shared_ptr<char16_t[]> block(new char16_t[units.size()]);
    std::copy(units.begin(), units.end(), block.get());
    return block;
}
