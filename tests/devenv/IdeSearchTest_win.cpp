#include "devenv/IdeSearch.h"
#include "tests/devenv/RecordLines.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Makes empty files named @p names in the IDE directory of a product; true when all exist.
bool addIdes(const QString &productDir, const QStringList &names)
{
    const QString ideDir = productDir + "/Common7/IDE/";
    bool made = QDir().mkpath(ideDir);
    for (const QString &name : names) {
        QFile file(ideDir + name);
        made = file.open(QIODevice::WriteOnly) && made;
    }
    return made;
}

VisualStudioVersion product(const QString &productDir, bool express)
{
    VisualStudioVersion result;
    result.productDir = productDir;
    result.express = express;
    return result;
}

} // namespace

class IdeSearchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void candidates_data();
    void candidates();
    void directoryIsNoIde();
    void nothingFoundKeepsEarlierValues_data();
    void nothingFoundKeepsEarlierValues();
    void foundReplacesEarlierValues();
    void otherFieldsStay();
    void directoryNames_data();
    void directoryNames();
    void spellingsOfTheDirectory_data();
    void spellingsOfTheDirectory();
    void upperCaseFile();
    void relativeDirectory();
    void noDirectory();

private:
    QString startDirectory;
};

void IdeSearchTest::init()
{
    startDirectory = QDir::currentPath();
}

void IdeSearchTest::cleanup()
{
    QDir::setCurrent(startDirectory);
}

void IdeSearchTest::candidates_data()
{
    QTest::addColumn<bool>("express");
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<QString>("ide");         // empty when none is found
    QTest::addColumn<QStringList>("missing"); // those that are tried before

    const QStringList none;
    QTest::newRow("devenv") << false << QStringList{"devenv.exe"} << "devenv" << none;
    QTest::newRow("devenv among all")
        << false << QStringList{"devenv.exe", "vcexpress.exe", "wdexpress.exe"} << "devenv" << none;
    QTest::newRow("Express programs are not for others")
        << false << QStringList{"vcexpress.exe", "wdexpress.exe"} << "" << QStringList{"devenv"};
    QTest::newRow("nothing") << false << none << "" << QStringList{"devenv"};
    QTest::newRow("console program only")
        << false << QStringList{"devenv.com", "devenv"} << "" << QStringList{"devenv"};
    QTest::newRow("Express: all") << true << QStringList{"devenv.exe", "vcexpress.exe", "wdexpress.exe"}
                                  << "wdexpress" << none;
    QTest::newRow("Express: wdexpress and vcexpress")
        << true << QStringList{"vcexpress.exe", "wdexpress.exe"} << "wdexpress" << none;
    QTest::newRow("Express: vcexpress and devenv")
        << true << QStringList{"devenv.exe", "vcexpress.exe"} << "vcexpress" << QStringList{"wdexpress"};
    QTest::newRow("Express: devenv") << true << QStringList{"devenv.exe"} << "devenv"
                                     << QStringList{"wdexpress", "vcexpress"};
    QTest::newRow("Express: nothing")
        << true << none << "" << QStringList{"wdexpress", "vcexpress", "devenv"};
}

void IdeSearchTest::candidates()
{
    QFETCH(bool, express);
    QFETCH(QStringList, installed);
    QFETCH(QString, ide);
    QFETCH(QStringList, missing);

    const QTemporaryDir directory;
    QVERIFY(addIdes(directory.path(), installed));
    const QString ideDir = directory.path() + "/Common7/IDE/";
    QStringList logLines;
    for (const QString &each : missing) {
        logLines.append(ideDir + each + ".exe does NOT exist");
    }
    if (!ide.isEmpty()) {
        logLines.append(ideDir + ide + ".exe exists");
    }

    VisualStudioVersion record = product(QDir::toNativeSeparators(directory.path()), express);
    const LogLines log;
    findIdeExecutable(record);
    QCOMPARE(record.ideName, ide);
    QCOMPARE(record.idePath, ide.isEmpty() ? QString() : ideDir + ide + ".exe");
    QCOMPARE(log.lines(), logLines);
}

void IdeSearchTest::directoryIsNoIde()
{
    const QTemporaryDir directory;
    const QString ideDir = directory.path() + "/Common7/IDE/";
    QVERIFY(QDir().mkpath(ideDir + "wdexpress.exe"));
    QVERIFY(QDir().mkpath(ideDir + "devenv.exe"));
    QVERIFY(addIdes(directory.path(), {"vcexpress.exe"}));

    const LogLines log;
    VisualStudioVersion express = product(QDir::toNativeSeparators(directory.path()), true);
    findIdeExecutable(express);
    QCOMPARE(express.ideName, QString("vcexpress"));
    VisualStudioVersion other = product(QDir::toNativeSeparators(directory.path()), false);
    findIdeExecutable(other);
    QCOMPARE(other.ideName, QString());
    QCOMPARE(other.idePath, QString());
    QCOMPARE(log.lines(),
             (QStringList{ideDir + "wdexpress.exe does NOT exist", ideDir + "vcexpress.exe exists",
                          ideDir + "devenv.exe does NOT exist"}));
}

void IdeSearchTest::nothingFoundKeepsEarlierValues_data()
{
    QTest::addColumn<bool>("express");
    QTest::newRow("other") << false;
    QTest::newRow("Express") << true;
}

void IdeSearchTest::nothingFoundKeepsEarlierValues()
{
    QFETCH(bool, express);
    const QTemporaryDir directory;
    VisualStudioVersion record = product(QDir::toNativeSeparators(directory.path()), express);
    record.ideName = "earlier";
    record.idePath = "C:/earlier.exe";
    const LogLines log;
    findIdeExecutable(record);
    QCOMPARE(record.ideName, QString("earlier"));
    QCOMPARE(record.idePath, QString("C:/earlier.exe"));
    QCOMPARE(log.lines().size(), express ? 3 : 1);
    QCOMPARE(log.lines().last(), directory.path() + "/Common7/IDE/devenv.exe does NOT exist");
}

void IdeSearchTest::foundReplacesEarlierValues()
{
    const QTemporaryDir directory;
    QVERIFY(addIdes(directory.path(), {"vcexpress.exe"}));
    VisualStudioVersion record = product(QDir::toNativeSeparators(directory.path()), true);
    record.ideName = "earlier";
    record.idePath = "C:/earlier.exe";
    findIdeExecutable(record);
    QCOMPARE(record.ideName, QString("vcexpress"));
    QCOMPARE(record.idePath, directory.path() + "/Common7/IDE/vcexpress.exe");
}

void IdeSearchTest::otherFieldsStay()
{
    const QTemporaryDir directory;
    QVERIFY(addIdes(directory.path(), {"devenv.exe"}));
    const QString productDir = QDir::toNativeSeparators(directory.path());
    VisualStudioVersion record{"name", "Edition", "14.0", "x86", productDir, "vc", "bat", "", "", true};
    findIdeExecutable(record);
    QCOMPARE(fieldLines({record}),
             fieldLines({{"name", "Edition", "14.0", "x86", productDir, "vc", "bat", "devenv",
                          directory.path() + "/Common7/IDE/devenv.exe", true}}));
}

void IdeSearchTest::directoryNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "Microsoft Visual Studio 14.0";
    QTest::newRow("parentheses") << "Program Files (x86)";
    QTest::newRow("ampersand") << "Tools & More";
    QTest::newRow("percent signs") << "100%1 %PATH%";
    QTest::newRow("umlaut") << "Pr\u00fcfung";
    QTest::newRow("Japanese") << "\u691c\u67fb";
    QTest::newRow("beyond the basic plane") << "\U0001f52c";
}

void IdeSearchTest::directoryNames()
{
    QFETCH(QString, name);
    const QTemporaryDir directory;
    const QString productDir = directory.path() + '/' + name;
    QVERIFY(addIdes(productDir, {"devenv.exe"}));

    VisualStudioVersion record = product(QDir::toNativeSeparators(productDir), false);
    const LogLines log;
    findIdeExecutable(record);
    QCOMPARE(record.ideName, QString("devenv"));
    QCOMPARE(record.idePath, productDir + "/Common7/IDE/devenv.exe");
    QCOMPARE(log.lines(), QStringList{productDir + "/Common7/IDE/devenv.exe exists"});
}

void IdeSearchTest::spellingsOfTheDirectory_data()
{
    QTest::addColumn<QString>(
        "pattern"); // %1 is the directory above the product's, without a separator at its end
    QTest::newRow("backslashes") << "%1\\VS";
    QTest::newRow("forward slashes") << "%1/VS";
    QTest::newRow("trailing backslash") << "%1\\VS\\";
    QTest::newRow("up and down again") << "%1\\VC\\..\\VS";
}

void IdeSearchTest::spellingsOfTheDirectory()
{
    QFETCH(QString, pattern);
    const QTemporaryDir directory;
    QVERIFY(addIdes(directory.path() + "/VS", {"devenv.exe"}));
    QVERIFY(QDir(directory.path()).mkdir("VC"));

    VisualStudioVersion record = product(pattern.arg(QDir::toNativeSeparators(directory.path())), false);
    const LogLines log;
    findIdeExecutable(record);
    QCOMPARE(record.idePath, directory.path() + "/VS/Common7/IDE/devenv.exe");
    QCOMPARE(log.lines(), QStringList{directory.path() + "/VS/Common7/IDE/devenv.exe exists"});
}

void IdeSearchTest::upperCaseFile()
{
    const QTemporaryDir directory;
    QVERIFY(addIdes(directory.path(), {"DEVENV.EXE"}));
    VisualStudioVersion record = product(QDir::toNativeSeparators(directory.path()), false);
    findIdeExecutable(record);
    QCOMPARE(record.ideName, QString("devenv"));
    QCOMPARE(record.idePath, directory.path() + "/Common7/IDE/devenv.exe");
}

void IdeSearchTest::relativeDirectory()
{
    const QTemporaryDir directory;
    QVERIFY(addIdes(directory.path() + "/products/VS", {"devenv.exe"}));
    QVERIFY(QDir::setCurrent(directory.path()));
    VisualStudioVersion record = product("products\\VS", false);
    findIdeExecutable(record);
    QCOMPARE(record.idePath, directory.path() + "/products/VS/Common7/IDE/devenv.exe");
    // The current directory cannot be removed.
    QVERIFY(QDir::setCurrent(startDirectory));
}

void IdeSearchTest::noDirectory()
{
    VisualStudioVersion record = product("", true);
    const LogLines log;
    findIdeExecutable(record);
    QCOMPARE(record.ideName, QString());
    QCOMPARE(record.idePath, QString());
    const QStringList expected{currentDriveRoot() + "Common7/IDE/wdexpress.exe does NOT exist",
                               currentDriveRoot() + "Common7/IDE/vcexpress.exe does NOT exist",
                               currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist"};
    QCOMPARE(log.lines(), expected);
}

QTEST_GUILESS_MAIN(IdeSearchTest)

#include "IdeSearchTest_win.moc"
