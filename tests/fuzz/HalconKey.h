#pragma once

#include "discovery/RegistryRecords.h"
#include "tests/fuzz/PlainNumbers.h"
#include "tests/fuzz/QtFuzzing.h"

/// A value as the registry may hold it, of a type and a text: s a string, l several, d and q numbers of 32
/// and 64 bits, b bytes. Any other type stands for none.
struct RegistryValue {
    char type;
    QByteArray text;

    QVariant value() const
    {
        switch (type) {
        case 's':
            return textOf(text);
        case 'l':
            return textOf(text).split('|');
        case 'd':
            return static_cast<int>(text.toLongLong());
        case 'q':
            return text.toLongLong();
        case 'b':
            return text;
        default:
            return {};
        }
    }

    /// The revision or build that it is.
    int number() const
    {
        const qint64 number = text.toLongLong();
        switch (type) {
        case 's':
            return plainNumber(textOf(text)).value_or(0);
        case 'd':
            return qMax(0, static_cast<int>(number));
        case 'q':
        case 'b':
            return number >= 0 && number <= std::numeric_limits<int>::max() ? static_cast<int>(number) : 0;
        default:
            return 0;
        }
    }

    /// Whether it says that a component is installed.
    bool isOne() const
    {
        switch (type) {
        case 's':
        case 'l':
            return textOf(text) == "1";
        case 'd':
            return static_cast<int>(text.toLongLong()) == 1;
        case 'q':
            return text.toLongLong() == 1;
        default:
            return type == 'b' && text == "1";
        }
    }
};

/// A key of HALCON's as a fuzzer's input describes it, and what must come of its values.
struct HalconKey {
    QString name;
    ProductKeyValues values;
    QStringList components; ///< those that are installed
    int revision = 0;
    int build = 0;

    /// Adds a value, a line such as "InstalledRevision d 2".
    void add(const QByteArray &line)
    {
        const int space = line.indexOf(' ');
        const QString valueName = textOf(line.left(space));
        const bool typed = space >= 0 && space + 1 < line.size();
        const RegistryValue value{typed ? line[space + 1] : '-', typed ? line.mid(space + 3) : QByteArray()};
        if (valueName == "InstallDir") {
            values.installDir = value.value();
        } else if (valueName == "ExampleRoot") {
            values.exampleRoot = value.value();
        } else if (valueName == "InstalledRevision") {
            values.installedRevision = value.value();
            revision = value.number();
        } else if (valueName == "InstalledBuild") {
            values.installedBuild = value.value();
            build = value.number();
        } else {
            values.components[valueName] = value.value();
            components.removeAll(valueName);
            if (value.isOne()) {
                components.append(valueName);
            }
        }
    }
};
