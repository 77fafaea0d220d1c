#include "launch/ProcessStart.h"
#include "tests/launch/EnvironmentBlock.h"
#include "tests/launch/WideVariable.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"

#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

#include <algorithm>
#include <memory>

namespace {

/// This program's environment as the system returns it, entry by entry.
QStringList ownEnvironment()
{
    const std::unique_ptr<wchar_t, decltype(&FreeEnvironmentStringsW)> block(GetEnvironmentStringsW(),
                                                                             &FreeEnvironmentStringsW);
    return blockEntries(reinterpret_cast<const char16_t *>(block.get()));
}

/// The entries of the variables that no start sets. Sorted, because the system may append variables of its
/// own to a child's environment.
QStringList inherited(const QStringList &entries)
{
    static const QRegularExpression set("^(HALCON(ARCH|EXAMPLES|IMAGES|ROOT)|PATH)=",
                                        QRegularExpression::CaseInsensitiveOption);
    QStringList others;
    std::copy_if(entries.begin(), entries.end(), std::back_inserter(others),
                 [](const QString &entry) { return !set.match(entry).hasMatch(); });
    others.sort();
    return others;
}

const HalconInstallation installation =
    installationIn("C:\\Program Files\\HALCON Größe", "x64-win64", "D:\\Examples");
const QString binaries = "C:\\Program Files\\HALCON Größe\\bin\\x64-win64;";

} // namespace

class ProcessStartEnvironmentTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        executable = QDir::toNativeSeparators(directory.filePath("tool.exe"));
        EchoChild::copyTo(executable);
    }

    void inheritedButForItsOwn()
    {
        const WideVariable path("PATH", "C:\\W;D:\\Größe 寸法");
        const WideVariable foreign("LAUNCH_TEST_FOREIGN", "Größe=寸法; %PATH%");
        const QStringList before = ownEnvironment();

        // Starting again does not lengthen the PATH.
        for (int count = 0; count < 2; ++count) {
            const EchoRecord found = start();
            QCOMPARE(found.variable("HALCONROOT"), installation.installDir);
            QCOMPARE(found.variable("HALCONARCH"), "x64-win64");
            QCOMPARE(found.variable("HALCONIMAGES"), "D:\\Examples\\examples\\images");
            QCOMPARE(found.variable("HALCONEXAMPLES"), "D:\\Examples\\examples");
            QCOMPARE(found.variable("PATH"), binaries + "C:\\W;D:\\Größe 寸法");
            QVERIFY(found.environment.contains("LAUNCH_TEST_FOREIGN=Größe=寸法; %PATH%"));
            QCOMPARE(inherited(found.environment), inherited(before));
            QCOMPARE(ownEnvironment(), before);
        }
    }

    /// Windows itself spells it "Path".
    void variableInAnotherCaseIsReplaced()
    {
        const WideVariable upperCasePath("PATH", QString());
        const WideVariable path("Path", "C:\\W");
        const WideVariable root("HalconRoot", "E:\\old");
        QVERIFY(ownEnvironment().contains("Path=C:\\W"));

        const QStringList entries = start().environment;

        QCOMPARE(entries.filter(QRegularExpression("^(?i)PATH=")), QStringList{"Path=" + binaries + "C:\\W"});
        QCOMPARE(entries.filter(QRegularExpression("^(?i)HALCONROOT=")),
                 QStringList{"HalconRoot=" + installation.installDir});
    }

private:
    /// The record of a child. The test program ends when none starts.
    EchoRecord start()
    {
        startProcess(executable, "x", installation, nullptr);
        return child.record();
    }

    const EchoChild child;
    QTemporaryDir directory;
    QString executable;
};

QTEST_GUILESS_MAIN(ProcessStartEnvironmentTest)

#include "ProcessStartEnvironmentTest_win.moc"
