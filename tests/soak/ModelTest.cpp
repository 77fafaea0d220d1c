#include "tests/soak/Model.h"

#include "tests/support/Rows.h"

#include <QTest>

namespace {

using Entries = QMap<QString, QString>;

const QString machineVariables =
    QStringLiteral("hklm\\system\\currentcontrolset\\control\\session manager\\environment\\");
const QString settings = QStringLiteral("hkcu\\software\\quorvik solutions\\corvanta for halcon\\|");
const QString libraries = QStringLiteral("hklm\\software\\classes\\demomachine.");
const QString consent = QStringLiteral("Perform permanent changes?");
const QString licenseDialog = QStringLiteral("Install HALCON license");

Expectations expectations(const QSet<QString> &shown)
{
    return {{{QStringLiteral("C:\\H\\12"), QStringLiteral("C:\\E"), QStringLiteral("x64-win64")},
             {QStringLiteral("C:\\H\\13"), QString(), QStringLiteral("x64-win64")}},
            {{QStringLiteral("C:\\Mail\\l.dat"), QStringLiteral("9 bytes")}},
            {QStringLiteral("C:\\Chosen")},
            shown};
}

/// The machine's variables, with what the type of a string is stored as.
Entries variables(const char *root, const char *images, const char *examples)
{
    const auto text = [](const char *value) { return QStringLiteral("1:") + QLatin1String(value); };
    return {{machineVariables + QStringLiteral("|halconroot"), text(root)},
            {machineVariables + QStringLiteral("|halconarch"), text("x64-win64")},
            {machineVariables + QStringLiteral("|halconimages"), text(images)},
            {machineVariables + QStringLiteral("|halconexamples"), text(examples)}};
}

} // namespace

class ModelTest : public QObject {
    Q_OBJECT

private slots:
    void judgesChangesOfTheRegistry_data()
    {
        QTest::addColumn<Entries>("added");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("allowed");
        const auto add = [](const char *name, const Entries &added, const QString &shown, bool allowed) {
            row<Entries, QString, bool>(name, added, shown, allowed);
        };
        add("nothing", {}, {}, true);
        add("update option on", {{settings + "updatecheckhalcon", "1:true"}}, {}, true);
        add("update option off", {{settings + "updatecheckcorvanta", "1:false"}}, {}, true);
        add("update option of another kind", {{settings + "updatecheckhalcon", "4:01000000"}}, {}, false);
        add("own keys", {{settings.chopped(1), {}}, {"hkcu\\software\\quorvik solutions\\", {}}}, {}, true);
        add("unknown setting", {{settings + "window", "1:true"}}, {}, false);
        add("directory of a chosen license", {{settings + "lastdir_license", "1:C:\\Chosen"}}, {}, true);
        add("directory of a dropped license", {{settings + "lastdir_license", "1:C:\\Mail"}}, {}, false);
        add("another directory", {{settings + "lastdir_license", "1:C:\\Mail\\l.dat"}}, {}, false);
        add("key of another program", {{"hkcu\\software\\other\\", {}}}, consent, false);
        add("what Qt stores, after a file dialog", {{"hkcu\\software\\qtproject\\|a", "1:b"}},
            QStringLiteral("Open license file"), true);
        add("what Windows stores, after a file dialog",
            {{"hkcu\\software\\microsoft\\windows\\currentversion\\explorer\\advanced\\", {}}},
            QStringLiteral("Open license file"), true);
        add("what Qt stores, without one", {{"hkcu\\software\\qtproject\\|a", "1:b"}}, licenseDialog, false);
        const Entries switched = variables("C:\\H\\12", "C:\\E\\examples\\images", "C:\\E\\examples");
        add("variables, after consent", switched, consent, true);
        add("variables, without consent", switched, {}, false);
        add("variables without examples", variables("C:\\H\\13", "", ""), consent, true);
        add("variables of two installations", variables("C:\\H\\13", "", "C:\\E\\examples"), consent, false);
        add("variables of no installation", variables("C:\\H\\14", "", ""), consent, false);
        add("some of the variables", {{machineVariables + "|halconroot", "1:C:\\H\\12"}}, consent, false);
        add("another variable", {{machineVariables + "|path", "1:C:\\H\\12"}}, consent, false);
        const Entries registered{
            {libraries + "halconx\\", {}},
            {libraries + "halconx\\inprocserver32\\", {}},
            {libraries + "halconx\\inprocserver32\\|", "1:C:\\H\\12\\bin\\x64-win64\\HALCONX.dll"}};
        add("library, after consent", registered, consent, true);
        add("library, without consent", registered, {}, false);
        add("library of no installation",
            {{libraries + "halconx\\inprocserver32\\|", "1:C:\\H\\14\\bin\\x64-win64\\halconx.dll"}}, consent,
            false);
        add("library under another name",
            {{libraries + "halconx\\inprocserver32\\|", "1:C:\\H\\12\\bin\\x64-win64\\hdevenginex.dll"}},
            consent, false);
    }

    void judgesChangesOfTheRegistry()
    {
        QFETCH(Entries, added);
        QFETCH(QString, shown);
        QFETCH(bool, allowed);
        const QStringList faults = forbiddenChanges({}, {added, {}}, expectations({shown}));
        QVERIFY2(faults.isEmpty() == allowed, qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void judgesChangesOfFiles_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("allowed");
        row<QString, QString, QString>("license", "C:\\H\\12\\license\\l.dat", "9 bytes", licenseDialog,
                                       true);
        row<QString, QString, QString>("license without its dialog", "C:\\H\\12\\license\\l.dat", "9 bytes",
                                       {}, false);
        row<QString, QString, QString>("other content", "C:\\H\\12\\license\\l.dat", "8 bytes", licenseDialog,
                                       false);
        row<QString, QString, QString>("other name", "C:\\H\\12\\license\\m.dat", "9 bytes", licenseDialog,
                                       false);
        row<QString, QString, QString>("other place", "C:\\H\\12\\l.dat", "9 bytes", licenseDialog, false);
        row<QString, QString, QString>("no installation", "C:\\H\\14\\license\\l.dat", "9 bytes",
                                       licenseDialog, false);
        row<QString, QString, QString>("directory", "C:\\H\\12\\license\\", {}, licenseDialog, false);
        row<QString, QString, QString>("temporary file", "C:\\Temp\\a", "9 bytes", licenseDialog, false);
    }

    void judgesChangesOfFiles()
    {
        QFETCH(QString, path);
        QFETCH(QString, content);
        QFETCH(QString, shown);
        QFETCH(bool, allowed);
        const MachineState now{{}, {{path, content}}};
        QCOMPARE(forbiddenChanges({}, now, expectations({shown})).isEmpty(), allowed);
        // What is gone was changed as well, and never by the program.
        QCOMPARE(forbiddenChanges(now, {}, expectations({shown})),
                 QStringList{path + QStringLiteral(" is gone")});
    }

    void reportsWhatHasChanged()
    {
        const MachineState before{
            {{"hkcu\\a\\|same", "1:x"}, {"hkcu\\a\\|changed", "1:x"}, {"hkcu\\a\\|gone", "1:x"}},
            {{"C:\\same", "1"}, {"C:\\changed", "1"}, {"C:\\gone", "1"}}};
        const MachineState now{
            {{"hkcu\\a\\|same", "1:x"}, {"hkcu\\a\\|changed", "1:y"}, {"hkcu\\a\\|new", "1:x"}},
            {{"C:\\same", "1"}, {"C:\\changed", "2"}, {"C:\\new", "1"}}};
        const QStringList expected{"hkcu\\a\\|gone is gone",       "hkcu\\a\\|changed has changed to 1:y",
                                   "hkcu\\a\\|new is new: 1:x",    "C:\\gone is gone",
                                   "C:\\changed has changed to 2", "C:\\new is new: 1"};
        QCOMPARE(forbiddenChanges(before, now, {}), expected);
    }

    void judgesStarts_data()
    {
        QTest::addColumn<QString>("executable");
        QTest::addColumn<QString>("root");
        QTest::addColumn<bool>("right");
        row<QString, QString>("HDevelop", "C:\\H\\12\\bin\\x64-win64\\hdevelop.exe", "C:\\H\\12", true);
        row<QString, QString>("HDevelop XL", "C:\\H\\13\\bin\\x64-win64\\HDevelopXL.exe", "C:\\H\\13", true);
        row<QString, QString>("environment of another", "C:\\H\\12\\bin\\x64-win64\\hdevelop.exe",
                              "C:\\H\\13", false);
        row<QString, QString>("no environment", "C:\\H\\12\\bin\\x64-win64\\hdevelop.exe", "", false);
        row<QString, QString>("unknown", "C:\\H\\14\\bin\\x64-win64\\hdevelop.exe", "C:\\H\\14", false);
        row<QString, QString>("another program", "C:\\Viewer\\viewer.exe", "", true);
    }

    void judgesStarts()
    {
        QFETCH(QString, executable);
        QFETCH(QString, root);
        QFETCH(bool, right);
        const QString fault =
            faultOfStart(executable, root, QStringLiteral("x64-win64"), expectations({}).installations);
        QCOMPARE(fault, right ? QString()
                              : QStringLiteral("%1 was started with HALCONROOT=%2 and HALCONARCH=x64-win64")
                                    .arg(executable, root));
    }
};

QTEST_GUILESS_MAIN(ModelTest)
#include "ModelTest.moc"
