#include "launch/PermanentSwitch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int halconCom = 0;
constexpr int engineCom = 1;
const QStringList libraries[] = {{"halconx.dll", "halconxxl.dll"}, {"hdevenginex.dll", "hdevenginexxl.dll"}};

HalconInstallation installation(const QString &installDir, const QString &arch)
{
    HalconInstallation result(20, 11, 1, 0);
    result.arch = arch;
    result.installDir = installDir;
    return result;
}

/// An installation in a directory of its own. Where a backslash is an ordinary character its files have
/// backslashes in their names and are still found.
class InstalledFiles {
public:
    QString installDir() const { return QDir::toNativeSeparators(directory.filePath("HALCON 20.11")); }
    QString path(const QString &arch, const QString &fileName) const
    {
        return installDir() + "\\bin\\" + arch + "\\" + fileName;
    }
    bool add(const QString &arch, const QString &fileName) const
    {
        QFile file(path(arch, fileName));
        return QDir().mkpath(QFileInfo(file).path()) && file.open(QFile::WriteOnly);
    }

private:
    QTemporaryDir directory;
};

} // namespace

class PermanentSwitchArgumentsTest : public QObject {
    Q_OBJECT

private slots:
    void everyCombination_data();
    void everyCombination();
    void variables_data();
    void variables();
    void fourOptionsAndTwoLibraries();
    void otherFilesAreNotRegistered();
};

void PermanentSwitchArgumentsTest::everyCombination_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<QString>("archOption");
    QTest::addColumn<bool>("registerHalconCom");
    QTest::addColumn<bool>("registerEngineCom");
    QTest::addColumn<QStringList>("present");

    const QPair<QString, QString> archs[] = {
        {"x64-win64", "--x64"}, {"x86sse2-win32", "--x86"}, {"x86-win32", "--x86"}, {"X86-other", "--x86"}};
    const QStringList all = libraries[halconCom] + libraries[engineCom];
    for (const auto &[arch, option] : archs) {
        for (int asked = 0; asked < 4; ++asked) {
            for (int subset = 0; subset < 16; ++subset) {
                QStringList present;
                for (int i = 0; i < all.size(); ++i) {
                    if ((subset & 1 << i) != 0) {
                        present.append(all.at(i));
                    }
                }
                const bool halcon = (asked & 1) != 0;
                const bool engine = (asked & 2) != 0;
                const QString name = arch + (halcon ? ", HALCON COM" : "") + (engine ? ", engine COM" : "") +
                                     ": " + (present.isEmpty() ? "none" : present.join(' '));
                QTest::newRow(qPrintable(name)) << arch << option << halcon << engine << present;
            }
        }
    }
}

void PermanentSwitchArgumentsTest::everyCombination()
{
    QFETCH(QString, arch);
    QFETCH(QString, archOption);
    QFETCH(bool, registerHalconCom);
    QFETCH(bool, registerEngineCom);
    QFETCH(QStringList, present);
    const InstalledFiles files;
    for (const QString &fileName : present) {
        QVERIFY(files.add(arch, fileName));
    }
    HalconInstallation halcon = installation(files.installDir(), arch);
    halcon.setExampleRoot("D:\\Examples");

    QString expected = "--env HALCONROOT=\"" + files.installDir() + "\" --env HALCONARCH=\"" + arch +
                       "\" --env HALCONIMAGES=\"D:\\Examples\\examples\\images\" "
                       "--env HALCONEXAMPLES=\"D:\\Examples\\examples\" ";
    if (registerHalconCom || registerEngineCom) {
        expected += archOption;
    }
    const bool asked[] = {registerHalconCom, registerEngineCom};
    for (const int component : {halconCom, engineCom}) {
        for (const QString &fileName : libraries[component]) {
            if (asked[component] && present.contains(fileName)) {
                expected += " \"" + files.path(arch, fileName) + "\"";
            }
        }
    }
    QCOMPARE(helperArguments(halcon, registerHalconCom, registerEngineCom), expected);
}

void PermanentSwitchArgumentsTest::variables_data()
{
    QTest::addColumn<QString>("installDir");
    QTest::addColumn<QString>("arch");
    QTest::addColumn<QString>("exampleRoot");
    QTest::addColumn<QString>("arguments"); // end in a space, because nothing is registered

    QTest::newRow("no examples: their variables are emptied")
        << R"(C:\H)"
        << "x64-win64"
        << ""
        << R"(--env HALCONROOT="C:\H" --env HALCONARCH="x64-win64" --env HALCONIMAGES="" )"
           R"(--env HALCONEXAMPLES="" )";
    QTest::newRow("spaces")
        << R"(C:\Program Files (x86)\HALCON 20.11)"
        << "x86sse2-win32"
        << R"(D:\My Examples)"
        << R"(--env HALCONROOT="C:\Program Files (x86)\HALCON 20.11" --env HALCONARCH="x86sse2-win32" )"
           R"(--env HALCONIMAGES="D:\My Examples\examples\images" )"
           R"(--env HALCONEXAMPLES="D:\My Examples\examples" )";
    QTest::newRow("not ASCII") << "C:\\Gr\u00f6\u00dfe"
                               << "x64-win64"
                               << "D:\\\u691c\u67fb"
                               << "--env HALCONROOT=\"C:\\Gr\u00f6\u00dfe\" --env HALCONARCH=\"x64-win64\" "
                                  "--env HALCONIMAGES=\"D:\\\u691c\u67fb\\examples\\images\" "
                                  "--env HALCONEXAMPLES=\"D:\\\u691c\u67fb\\examples\" ";
    QTest::newRow("signs that mean something to a shell or to the text's own pattern")
        << R"(C:\%1 & %PATH% ^)"
        << "%2"
        << R"(D:\%1%2)"
        << R"(--env HALCONROOT="C:\%1 & %PATH% ^" --env HALCONARCH="%2" )"
           R"(--env HALCONIMAGES="D:\%1%2\examples\images" --env HALCONEXAMPLES="D:\%1%2\examples" )";
    QTest::newRow("a backslash at the end is not escaped")
        << R"(C:\)"
        << "x64-win64"
        << R"(D:\)"
        << R"(--env HALCONROOT="C:\" --env HALCONARCH="x64-win64" --env HALCONIMAGES="D:\\examples\images" )"
           R"(--env HALCONEXAMPLES="D:\\examples" )";
    QTest::newRow("nothing known") << ""
                                   << ""
                                   << ""
                                   << R"(--env HALCONROOT="" --env HALCONARCH="" --env HALCONIMAGES="" )"
                                      R"(--env HALCONEXAMPLES="" )";
}

void PermanentSwitchArgumentsTest::variables()
{
    QFETCH(QString, installDir);
    QFETCH(QString, arch);
    QFETCH(QString, exampleRoot);
    HalconInstallation halcon = installation(installDir, arch);
    halcon.exampleRoot = exampleRoot;
    QTEST(helperArguments(halcon, false, false), "arguments");
}

void PermanentSwitchArgumentsTest::fourOptionsAndTwoLibraries()
{
    const InstalledFiles files;
    QVERIFY(files.add("x64-win64", "halconx.dll"));
    QVERIFY(files.add("x64-win64", "hdevenginex.dll"));

    QCOMPARE(
        helperArguments(installation(files.installDir(), "x64-win64"), true, true),
        "--env HALCONROOT=\"" + files.installDir() +
            "\" --env HALCONARCH=\"x64-win64\" --env HALCONIMAGES=\"\" --env HALCONEXAMPLES=\"\" --x64 \"" +
            files.installDir() + "\\bin\\x64-win64\\halconx.dll\" \"" + files.installDir() +
            "\\bin\\x64-win64\\hdevenginex.dll\"");
}

void PermanentSwitchArgumentsTest::otherFilesAreNotRegistered()
{
    const InstalledFiles files;
    QVERIFY(files.add("x64-win64", "halcon.dll"));
    QVERIFY(files.add("x64-win64", "halconx.dll.bak"));
    QVERIFY(files.add("x86-win32", "halconx.dll"));
    QVERIFY(files.add("x86-win32", "hdevenginex.dll"));

    // Requested, but of another architecture: the option has no library.
    QVERIFY(helperArguments(installation(files.installDir(), "x64-win64"), true, true)
                .endsWith(" --env HALCONEXAMPLES=\"\" --x64"));
}

QTEST_GUILESS_MAIN(PermanentSwitchArgumentsTest)

#include "PermanentSwitchArgumentsTest.moc"
