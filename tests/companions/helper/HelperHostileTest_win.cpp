#include "tests/companions/helper/HelperMachine.h"
#include "tests/companions/helper/HostileLines.h"
#include "tests/support/Registry.h"

#include <QDir>
#include <QtTest>

using namespace HelperMachine;

namespace {

const QString classesKey = "HKEY_LOCAL_MACHINE\\Software\\Classes";

/// Everything that a line might change.
struct State {
    QMap<QString, QByteArray> variables = values(environmentKey);
    QMap<QString, QByteArray> files = tree(HostileFiles::top);
    QStringList classes = subkeys(classesKey);

    bool operator==(const State &other) const
    {
        return variables == other.variables && files == other.files && classes == other.classes;
    }
};

/// A machine on which the lines could be carried out.
State preparedState()
{
    QDir(HostileFiles::top).removeRecursively();
    for (const char *name :
         {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll", "evil.dll"}) {
        copyFile(COM_LIBRARY, QString(HostileFiles::binaries) + '\\' + name);
        Registry::removeTree(classesKey + "\\DemoMachine." + QFileInfo(name).baseName());
    }
    makeFile(HostileFiles::destination, "the old license");
    makeFile(HostileFiles::source, "the new license");
    makeFile(QString(HostileFiles::license) + "\\new.dat", "another");
    Registry::removeTree(environmentKey);
    Registry::setString(environmentKey, "HALCONROOT", "C:\\Before");
    Registry::setExpandString(environmentKey, "HALCONIMAGES", "%TEMP%\\Before");
    return {};
}

/// The lines that change something, found by trying each on a newly prepared machine.
QStringList changingLines(const QVector<HostileLine> &lines)
{
    QStringList changing;
    State before = preparedState();
    for (const HostileLine &line : lines) {
        run(line.arguments);
        if (!(State() == before)) {
            changing.append(line.arguments);
            before = preparedState();
        }
    }
    return changing;
}

} // namespace

/// Lines that the helper must refuse, given to the real program on a machine on which they could be carried
/// out. HOSTILE_LINES says which.
class HelperHostileTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        prepared = preparedState();
        QCOMPARE(prepared.variables.size(), 2);
        QVERIFY(prepared.files.size() > 10);
    }

    /// The control: otherwise the hostile lines would prove nothing.
    void goodLinesWork()
    {
        const QString set = R"(--env HALCONROOT="C:\Helper test\HALCON-20.11" --x64 )"
                            R"("C:\Helper test\HALCON-20.11\bin\x64-win64\halconx.dll")";
        QCOMPARE(run(set), done());
        QCOMPARE(run(R"(--copy="C:\Helper test\HALCON-20.11\license\license.dat" "C:\Helper test\new.dat")"),
                 done());

        const State after;
        QVERIFY(after.variables != prepared.variables);
        QVERIFY(after.files != prepared.files);
        QCOMPARE(after.classes.size(), prepared.classes.size() + 1);
        prepared = preparedState();
    }

    void hostile_data() { HostileLines::addRows(HOSTILE_LINES()); }

    void hostile()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, refusal);

        QCOMPARE(run(arguments), HelperMachine::refused(refusal));
    }

    /// Nothing has changed. Checked once for all lines, because a check takes as long as a line; and for each
    /// line only to name those that changed something.
    void cleanupTestCase()
    {
        if (!(State() == prepared)) {
            QFAIL(qPrintable("changed the machine: " + changingLines(HOSTILE_LINES()).join("; ")));
        }
    }

private:
    State prepared;
};

QTEST_GUILESS_MAIN(HelperHostileTest)

#include "HelperHostileTest_win.moc"
