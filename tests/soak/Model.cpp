#include "tests/soak/Model.h"

#include <algorithm>
#include <iterator>

namespace {

const QString environmentKey =
    QStringLiteral("hklm\\system\\currentcontrolset\\control\\session manager\\environment\\|");
const QString settingsKey = QStringLiteral("hkcu\\software\\quorvik solutions\\");
const QString ownSettings = settingsKey + QStringLiteral("corvanta for halcon\\");
/// Where Qt and Windows store what they like to know of a file dialog.
const QString fileDialogKeys[] = {
    QStringLiteral("hkcu\\software\\qtproject\\"),
    QStringLiteral("hkcu\\software\\microsoft\\windows\\currentversion\\explorer\\"),
};
const QString classesKey = QStringLiteral("hklm\\software\\classes\\demomachine.");

QString textValue(const QString &text)
{
    return QStringLiteral("1:") + text;
}

/// The machine's variables after a switch to @p installation, by the names of their values.
QMap<QString, QString> variablesOf(const ModelInstallation &installation)
{
    const auto inExamples = [&](const char *directory) {
        return textValue(installation.examples.isEmpty() ? QString()
                                                         : installation.examples + QLatin1String(directory));
    };
    return {
        {environmentKey + QStringLiteral("halconroot"), textValue(installation.root)},
        {environmentKey + QStringLiteral("halconarch"), textValue(installation.arch)},
        {environmentKey + QStringLiteral("halconimages"), inExamples("\\examples\\images")},
        {environmentKey + QStringLiteral("halconexamples"), inExamples("\\examples")},
    };
}

bool isVariable(const QString &entry)
{
    return entry.startsWith(environmentKey + QStringLiteral("halcon"));
}

/// Whether the machine's variables belong to one and the same installation.
bool variablesAgree(const MachineState &now, const QVector<ModelInstallation> &installations)
{
    return std::any_of(
        installations.begin(), installations.end(), [&](const ModelInstallation &installation) {
            const QMap<QString, QString> variables = variablesOf(installation);
            return std::all_of(variables.keyBegin(), variables.keyEnd(), [&](const QString &name) {
                return now.registry.value(name) == variables.value(name);
            });
        });
}

QString directoryOf(const QString &path)
{
    return path.left(path.lastIndexOf(QLatin1Char('\\')));
}

QString nameOf(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('\\')) + 1);
}

/// Compares @p before and @p now entry by entry.
class Comparison {
public:
    Comparison(const MachineState &before, const MachineState &now, const Expectations &expectations)
        : before(before), now(now), expectations(expectations)
    {
    }

    QStringList faults()
    {
        compare(before.registry, now.registry, &Comparison::mayChangeRegistry);
        compare(before.files, now.files, &Comparison::mayChangeFile);
        if (switched && !variablesAgree(now, expectations.installations)) {
            const QMap<QString, QString> names = variablesOf({});
            QStringList values;
            for (auto name = names.keyBegin(); name != names.keyEnd(); ++name) {
                values.append(nameOf(*name) + QLatin1Char('=') + now.registry.value(*name));
            }
            found.append(QStringLiteral("the machine's variables belong to no installation: ") +
                         values.join(QStringLiteral(", ")));
        }
        return found;
    }

private:
    using Rule = bool (Comparison::*)(const QString &entry, const QString *value);

    void compare(const QMap<QString, QString> &old, const QMap<QString, QString> &present, Rule rule)
    {
        for (auto entry = old.begin(); entry != old.end(); ++entry) {
            if (!present.contains(entry.key())) {
                check(entry.key(), QStringLiteral("is gone"), nullptr, rule);
            }
        }
        for (auto entry = present.begin(); entry != present.end(); ++entry) {
            const auto former = old.constFind(entry.key());
            if (former == old.constEnd()) {
                check(entry.key(), QStringLiteral("is new: ") + entry.value(), &entry.value(), rule);
            } else if (former.value() != entry.value()) {
                check(entry.key(), QStringLiteral("has changed to ") + entry.value(), &entry.value(), rule);
            }
        }
    }

    void check(const QString &entry, const QString &what, const QString *value, Rule rule)
    {
        if (!(this->*rule)(entry, value)) {
            found.append(entry + QLatin1Char(' ') + what);
        }
    }

    /// @p value is nullptr when the entry is gone.
    bool mayChangeRegistry(const QString &entry, const QString *value)
    {
        if (value == nullptr) {
            return false;
        }
        if (entry == settingsKey || entry == ownSettings) {
            return true;
        }
        if (std::any_of(std::begin(fileDialogKeys), std::end(fileDialogKeys),
                        [&](const QString &key) { return entry.startsWith(key); })) {
            return expectations.shown.contains(QStringLiteral("Open license file"));
        }
        if (entry == ownSettings + QStringLiteral("|updatecheckhalcon") ||
            entry == ownSettings + QStringLiteral("|updatecheckcorvanta")) {
            return *value == textValue(QStringLiteral("true")) ||
                   *value == textValue(QStringLiteral("false"));
        }
        if (entry == ownSettings + QStringLiteral("|lastdir_license")) {
            const auto &directories = expectations.chosenDirectories;
            return std::any_of(directories.begin(), directories.end(),
                               [&](const QString &directory) { return *value == textValue(directory); });
        }
        const bool asked = expectations.shown.contains(QStringLiteral("Perform permanent changes?"));
        if (isVariable(entry)) {
            switched = true;
            return asked;
        }
        return asked && mayRegister(entry, *value);
    }

    /// Whether a COM library of an installation may have written this: itself, and keys without values.
    bool mayRegister(const QString &entry, const QString &value) const
    {
        if (!entry.startsWith(classesKey)) {
            return false;
        }
        const bool isKey = entry.endsWith(QLatin1Char('\\'));
        return isKey || std::any_of(expectations.installations.begin(), expectations.installations.end(),
                                    [&](const ModelInstallation &installation) {
                                        const QString name = entry.mid(classesKey.size());
                                        const QString library = name.left(name.indexOf(QLatin1Char('\\')));
                                        const QString path =
                                            QStringLiteral("%1\\bin\\%2\\%3.dll")
                                                .arg(installation.root, installation.arch, library);
                                        return entry.endsWith(QLatin1String("\\inprocserver32\\|")) &&
                                               value.compare(textValue(path), Qt::CaseInsensitive) == 0;
                                    });
    }

    bool mayChangeFile(const QString &path, const QString *content)
    {
        const auto &offered = expectations.offeredLicenses;
        const bool intoInstallation =
            std::any_of(expectations.installations.begin(), expectations.installations.end(),
                        [&](const ModelInstallation &installation) {
                            return directoryOf(path).compare(installation.root + QStringLiteral("\\license"),
                                                             Qt::CaseInsensitive) == 0;
                        });
        return content != nullptr && intoInstallation &&
               expectations.shown.contains(QStringLiteral("Install HALCON license")) &&
               std::any_of(offered.keyBegin(), offered.keyEnd(), [&](const QString &license) {
                   return nameOf(license) == nameOf(path) && offered.value(license) == *content;
               });
    }

    const MachineState &before;
    const MachineState &now;
    const Expectations &expectations;
    QStringList found;
    bool switched = false;
};

} // namespace

QStringList forbiddenChanges(const MachineState &before, const MachineState &now,
                             const Expectations &expectations)
{
    return Comparison(before, now, expectations).faults();
}

QString faultOfStart(const QString &executable, const QString &root, const QString &arch,
                     const QVector<ModelInstallation> &installations)
{
    const QString name = nameOf(executable).toLower();
    if (name != QLatin1String("hdevelop.exe") && name != QLatin1String("hdevelopxl.exe")) {
        return QString();
    }
    const bool known = std::any_of(installations.begin(), installations.end(), [&](const auto &installation) {
        return installation.root == root && installation.arch == arch;
    });
    const QString expected = QStringLiteral("%1\\bin\\%2\\%3").arg(root, arch, name);
    if (known && executable.compare(expected, Qt::CaseInsensitive) == 0) {
        return QString();
    }
    return QStringLiteral("%1 was started with HALCONROOT=%2 and HALCONARCH=%3").arg(executable, root, arch);
}
