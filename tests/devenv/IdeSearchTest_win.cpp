#include "devenv/IdeSearch.h"
#include "tests/devenv/RecordLines.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

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
    void candidates_data()
    {
        // ide: empty when none is found
        // missing: those that are tried before
        const auto row =
            columns<bool, QStringList, QString, QStringList>("express", "installed", "ide", "missing");

        const QStringList none;
        row("devenv", false, {"devenv.exe"}, "devenv", none);
        row("Express programs are not for others", false, {"vcexpress.exe", "wdexpress.exe"}, "", {"devenv"});
        row("nothing", false, none, "", {"devenv"});
        row("Express: all", true, {"devenv.exe", "vcexpress.exe", "wdexpress.exe"}, "wdexpress", none);
        row("Express: vcexpress and devenv", true, {"devenv.exe", "vcexpress.exe"}, "vcexpress",
            {"wdexpress"});
        row("Express: devenv", true, {"devenv.exe"}, "devenv", {"wdexpress", "vcexpress"});
        row("Express: nothing", true, none, "", {"wdexpress", "vcexpress", "devenv"});
    }

    void candidates()
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

    void directoryIsNoIde()
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

    void nothingFoundKeepsEarlierValues()
    {
        const QTemporaryDir directory;
        VisualStudioVersion record = product(QDir::toNativeSeparators(directory.path()), true);
        record.ideName = "earlier";
        record.idePath = "C:/earlier.exe";
        const LogLines log;
        findIdeExecutable(record);
        QCOMPARE(record.ideName, QString("earlier"));
        QCOMPARE(record.idePath, QString("C:/earlier.exe"));
        QCOMPARE(log.lines().size(), 3);
        QCOMPARE(log.lines().last(), directory.path() + "/Common7/IDE/devenv.exe does NOT exist");
    }

    void otherFieldsStay()
    {
        const QTemporaryDir directory;
        QVERIFY(addIdes(directory.path(), {"devenv.exe"}));
        const QString productDir = QDir::toNativeSeparators(directory.path());
        VisualStudioVersion record{"name", "Edition", "14.0",           "x86", productDir, "vc",
                                   "bat",  "earlier", "C:/earlier.exe", true};
        findIdeExecutable(record);
        QCOMPARE(fieldLines({record}),
                 fieldLines({{"name", "Edition", "14.0", "x86", productDir, "vc", "bat", "devenv",
                              directory.path() + "/Common7/IDE/devenv.exe", true}}));
    }

    void spellingsOfTheDirectory_data()
    {
        columns<QString>("pattern"); // %1 is the directory above the product's
        row("backslashes", "%1\\VS");
        row("trailing backslash", "%1\\VS\\");
        row("up and down again", "%1\\VC\\..\\VS");
    }

    void spellingsOfTheDirectory()
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

    void noDirectory()
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
};

QTEST_GUILESS_MAIN(IdeSearchTest)

#include "IdeSearchTest_win.moc"
