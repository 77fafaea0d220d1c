#include "companions/helper/EnvironmentChange.h"

#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QtTest>

#include <windows.h>

#include <memory>

using namespace HelperMachine;

namespace {

using Values = QMap<QString, QByteArray>;

const QString names[] = {"HALCONROOT", "HALCONARCH", "HALCONIMAGES", "HALCONEXAMPLES"};

/// The line for these four values, as the program writes it.
QString line(const QStringList &values)
{
    QString result;
    for (int i = 0; i < 4; ++i) {
        result += "--env " + names[i] + "=\"" + values[i] + "\" ";
    }
    return result;
}

const ProgramResult noneSet = failed(3, "A system variable could not be set. All of them are as they were.");

void removeVariables()
{
    for (const QString &name : names) {
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE,
                           L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment", wide(name));
    }
}

/// The real store, in which one write fails without an effect.
class FailingEnvironment : public EnvironmentStore {
public:
    explicit FailingEnvironment(int failing) : failing(failing) {}

    bool read(const std::wstring &name, std::optional<StoredValue> &value) override
    {
        return registry->read(name, value);
    }
    bool write(const std::wstring &name, const std::optional<StoredValue> &value) override
    {
        return ++writes != failing && registry->write(name, value);
    }

private:
    std::unique_ptr<EnvironmentStore> registry = machineEnvironment();
    int failing;
    int writes = 0;
};

} // namespace

class HelperEnvironmentTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        removeVariables();
        QVERIFY(values(environmentKey).contains("ComSpec"));
    }

    void setsAll_data()
    {
        const auto row = columns<QStringList>("four");

        row("no example root", {"C:\\H", "x64-win64", "", ""});
        row("signs", {"C:\\R&D 100% (a=b)^", "%TEMP%", "--x64", "a|b<c>d --env X=y"});
        row("not ASCII", {"C:\\Größe", "寸法", "Размер", "😀"});
        row("long", {QString(4096, 'x'), "x64-win64", QString(4096, 'y'), QString(4096, 'z')});
    }

    /// Nothing else under the key changes.
    void setsAll()
    {
        QFETCH(QStringList, four);
        Values expected = values(environmentKey);
        for (int i = 0; i < 4; ++i) {
            QVERIFY(!expected.contains(names[i]));
            expected[names[i]] = plainText(four[i]);
        }

        QCOMPARE(run(line(four)), done());

        QCOMPARE(values(environmentKey), expected);
    }

    void keepsTextTypes()
    {
        Registry::setExpandString(environmentKey, "HALCONROOT", "%ProgramFiles%\\Old");
        Registry::setExpandString(environmentKey, "HALCONIMAGES", "%ProgramFiles%\\Old\\images");
        Registry::setString(environmentKey, "HALCONARCH", "old");
        Registry::setString(environmentKey, "HALCONEXAMPLES", "old");
        Values expected = values(environmentKey);
        expected["HALCONROOT"] = expandableText("C:\\H");
        expected["HALCONARCH"] = plainText("x64-win64");
        expected["HALCONIMAGES"] = expandableText("");
        expected["HALCONEXAMPLES"] = plainText("");

        QCOMPARE(run(line({"C:\\H", "x64-win64", "", ""})), done());

        QCOMPARE(values(environmentKey), expected);
    }

    /// Restores value, type and absence in the real registry.
    void putsBack()
    {
        Registry::setExpandString(environmentKey, "HALCONROOT", "%ProgramFiles%\\Old");
        Registry::setBinary(environmentKey, "HALCONARCH", QByteArray(5000, 'x'));
        const Values before = values(environmentKey);
        FailingEnvironment store(4);

        const HelperExitCode result = changeEnvironment(store, {{L"HALCONROOT", L"C:\\H"},
                                                                {L"HALCONARCH", L"x64-win64"},
                                                                {L"HALCONIMAGES", L""},
                                                                {L"HALCONEXAMPLES", L""}});

        QCOMPARE(result, HelperExitCode::variablesRestored);
        QCOMPARE(values(environmentKey), before);
    }

    void keyLocked()
    {
        Registry::setString(environmentKey, "HALCONROOT", "before");
        const Values before = values(environmentKey);
        ProgramResult result;
        {
            const Registry::Lock locked(environmentKey, Registry::Lock::Allows::reading);
            result = run(line({"C:\\H", "x64-win64", "", ""}));
        }

        QCOMPARE(result, noneSet);
        QCOMPARE(values(environmentKey), before);
    }

    /// The key is not created: without it the machine is broken.
    void keyMissing()
    {
        Registry::removeTree(environmentKey);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE,
                      L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment");
        const QString parent = environmentKey.section('\\', 0, -2);
        QVERIFY(!subkeys(parent).contains("Environment"));

        QCOMPARE(run(line({"C:\\H", "x64-win64", "", ""})), noneSet);

        QVERIFY(!subkeys(parent).contains("Environment"));
        Registry::setString(environmentKey, "ComSpec", "C:\\windows\\system32\\cmd.exe");
    }
};

QTEST_GUILESS_MAIN(HelperEnvironmentTest)

#include "HelperEnvironmentTest_win.moc"
