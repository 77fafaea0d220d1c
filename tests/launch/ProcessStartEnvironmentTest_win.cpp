#include "launch/ProcessStart.h"
#include "tests/support/EchoChild.h"

#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

#include <algorithm>
#include <memory>

namespace {

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// This program's environment as the system returns it, entry by entry.
QStringList ownEnvironment()
{
    const std::unique_ptr<wchar_t, decltype(&FreeEnvironmentStringsW)> block(GetEnvironmentStringsW(),
                                                                             &FreeEnvironmentStringsW);
    QStringList entries;
    for (const wchar_t *entry = block.get(); *entry != L'\0'; entry += entries.constLast().size() + 1) {
        entries.append(QString::fromWCharArray(entry));
    }
    return entries;
}

/// Sets a variable of this program's environment until the end, or removes it when the value is null.
class OwnVariable {
public:
    OwnVariable(const QString &name, const QString &value) : name(name), before(currentValue(name))
    {
        set(value);
    }
    OwnVariable(const OwnVariable &) = delete;
    OwnVariable &operator=(const OwnVariable &) = delete;
    ~OwnVariable() { set(before); }

private:
    static QString currentValue(const QString &name)
    {
        for (const QString &entry : ownEnvironment()) {
            if (entry.startsWith(name + '=', Qt::CaseInsensitive)) {
                return entry.mid(name.size() + 1);
            }
        }
        return QString();
    }

    void set(const QString &value) const
    {
        SetEnvironmentVariableW(wide(name), value.isNull() ? nullptr : wide(value));
    }

    QString name;
    QString before;
};

/// The name in an entry; a name may begin with an equals sign, as in "=C:=C:\directory".
QString nameOf(const QString &entry)
{
    return entry.left(entry.indexOf('=', 1));
}

/// Sorted, because the system may append variables of its own to a child's environment.
QStringList sorted(QStringList entries)
{
    entries.sort();
    return entries;
}

/// @p entries without the variables that a start gives its child.
QStringList withoutOverrides(const QStringList &entries)
{
    QStringList others;
    std::copy_if(entries.begin(), entries.end(), std::back_inserter(others), [](const QString &entry) {
        return !QStringList{"HALCONARCH", "HALCONEXAMPLES", "HALCONIMAGES", "HALCONROOT", "PATH"}.contains(
            nameOf(entry), Qt::CaseInsensitive);
    });
    return others;
}

HalconInstallation installation(const QString &exampleRoot = QString())
{
    HalconInstallation result(20, 11, 1, 3);
    result.installDir = "C:\\Program Files\\HALCON Größe";
    result.exampleRoot = exampleRoot;
    result.arch = "x64-win64";
    return result;
}

} // namespace

class ProcessStartEnvironmentTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void halconVariablesAndPath();
    void everythingElseIsInherited();
    void withoutExamplesTheSystemsVariablesAreInherited_data();
    void withoutExamplesTheSystemsVariablesAreInherited();
    void variableInAnotherCaseIsReplaced();
    void absentPath();
    void ownEnvironmentStaysAsItIs();
    void startingAgainNeverLengthensThePath();

private:
    /// The record of a child started for @p installation. The test program ends when no child starts.
    EchoRecord start(const HalconInstallation &installation);

    QTemporaryDir directory;
    QString executable;
};

void ProcessStartEnvironmentTest::initTestCase()
{
    executable = QDir::toNativeSeparators(directory.filePath("tool.exe"));
    EchoChild::copyTo(executable);
}

EchoRecord ProcessStartEnvironmentTest::start(const HalconInstallation &installation)
{
    const EchoChild child;
    EchoRecord record;
    if (!startProcess(executable, "x", installation, nullptr) || !child.waitForRecord(record)) {
        qFatal("no child started");
    }
    return record;
}

void ProcessStartEnvironmentTest::halconVariablesAndPath()
{
    const OwnVariable path("PATH", "C:\\W;D:\\Größe 寸法");

    const EchoRecord child = start(installation("D:\\Examples"));

    QCOMPARE(child.variable("HALCONROOT"), "C:\\Program Files\\HALCON Größe");
    QCOMPARE(child.variable("HALCONARCH"), "x64-win64");
    QCOMPARE(child.variable("HALCONIMAGES"), "D:\\Examples\\examples\\images");
    QCOMPARE(child.variable("HALCONEXAMPLES"), "D:\\Examples\\examples");
    QCOMPARE(child.variable("PATH"), "C:\\Program Files\\HALCON Größe\\bin\\x64-win64;C:\\W;D:\\Größe 寸法");
}

void ProcessStartEnvironmentTest::everythingElseIsInherited()
{
    const OwnVariable foreign("LAUNCH_TEST_FOREIGN", "Größe=寸法; %PATH%");

    const EchoChild listener;
    QVERIFY(startProcess(executable, "x", installation("D:\\Examples"), nullptr));
    EchoRecord child;
    QVERIFY(listener.waitForRecord(child));

    QVERIFY(child.environment.contains("LAUNCH_TEST_FOREIGN=Größe=寸法; %PATH%"));
    QCOMPARE(sorted(withoutOverrides(child.environment)), sorted(withoutOverrides(ownEnvironment())));
}

void ProcessStartEnvironmentTest::withoutExamplesTheSystemsVariablesAreInherited_data()
{
    QTest::addColumn<QString>("images");
    QTest::addColumn<QString>("examples");

    QTest::newRow("both absent") << QString() << QString();
    QTest::newRow("both there") << "E:\\old\\images"
                                << "E:\\old\\examples";
    QTest::newRow("only one there") << "E:\\old\\images" << QString();
}

void ProcessStartEnvironmentTest::withoutExamplesTheSystemsVariablesAreInherited()
{
    QFETCH(QString, images);
    QFETCH(QString, examples);
    const OwnVariable ownImages("HALCONIMAGES", images);
    const OwnVariable ownExamples("HALCONEXAMPLES", examples);

    const EchoRecord child = start(installation());

    QCOMPARE(child.variable("HALCONIMAGES"), images);
    QCOMPARE(child.variable("HALCONIMAGES").isNull(), images.isNull());
    QCOMPARE(child.variable("HALCONEXAMPLES"), examples);
    QCOMPARE(child.variable("HALCONEXAMPLES").isNull(), examples.isNull());
    QCOMPARE(child.variable("HALCONROOT"), "C:\\Program Files\\HALCON Größe");
}

/// Windows itself spells it "Path".
void ProcessStartEnvironmentTest::variableInAnotherCaseIsReplaced()
{
    const OwnVariable upperCasePath("PATH", QString());
    const OwnVariable path("Path", "C:\\W");
    const OwnVariable root("HalconRoot", "E:\\old");
    QVERIFY(ownEnvironment().contains("Path=C:\\W"));

    const QStringList entries = start(installation()).environment;

    const auto spelledAnyhow = [&entries](const QString &name) {
        return entries.filter(
            QRegularExpression('^' + name + '=', QRegularExpression::CaseInsensitiveOption));
    };
    QCOMPARE(spelledAnyhow("PATH"),
             QStringList{"Path=C:\\Program Files\\HALCON Größe\\bin\\x64-win64;C:\\W"});
    QCOMPARE(spelledAnyhow("HALCONROOT"), QStringList{"HalconRoot=C:\\Program Files\\HALCON Größe"});
}

void ProcessStartEnvironmentTest::absentPath()
{
    const OwnVariable path("PATH", QString());

    QCOMPARE(start(installation()).variable("PATH"), "C:\\Program Files\\HALCON Größe\\bin\\x64-win64;");
}

void ProcessStartEnvironmentTest::ownEnvironmentStaysAsItIs()
{
    const EchoChild listener;
    const QStringList before = ownEnvironment();

    QVERIFY(startProcess(executable, "x", installation("D:\\Examples"), nullptr));
    QVERIFY(!startProcess(executable + ".missing", "x", installation("D:\\Examples"), nullptr));

    QCOMPARE(ownEnvironment(), before);
    EchoRecord child;
    QVERIFY(listener.waitForRecord(child));
    QCOMPARE(child.variable("HALCONEXAMPLES"), "D:\\Examples\\examples");
}

void ProcessStartEnvironmentTest::startingAgainNeverLengthensThePath()
{
    const OwnVariable path("PATH", "C:\\W");

    for (int count = 0; count < 3; ++count) {
        QCOMPARE(start(installation()).variable("PATH"),
                 "C:\\Program Files\\HALCON Größe\\bin\\x64-win64;C:\\W");
    }
}

QTEST_GUILESS_MAIN(ProcessStartEnvironmentTest)

#include "ProcessStartEnvironmentTest_win.moc"
