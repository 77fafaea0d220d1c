#include "devenv/IdeSearch.h"
#include "tests/devenv/RecordLines.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Makes an empty file, or a directory when the name ends in a slash.
bool make(const QString &path)
{
    return path.endsWith('/') ? QDir().mkpath(path) : QFile(path).open(QIODevice::WriteOnly);
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
        row("directory", false, {"devenv.exe/"}, "", {"devenv"});
        row("Express: all", true, {"devenv.exe", "vcexpress.exe", "wdexpress.exe"}, "wdexpress", none);
        row("Express: vcexpress and devenv", true, {"devenv.exe", "vcexpress.exe"}, "vcexpress",
            {"wdexpress"});
        row("Express: devenv", true, {"devenv.exe"}, "devenv", {"wdexpress", "vcexpress"});
        row("Express: nothing", true, none, "", {"wdexpress", "vcexpress", "devenv"});
        row("Express: directory", true, {"vcexpress.exe", "wdexpress.exe/"}, "vcexpress", {"wdexpress"});
    }

    /// When none is found, the earlier values stay; all others stay in any case.
    void candidates()
    {
        QFETCH(bool, express);
        QFETCH(QStringList, installed);
        QFETCH(QString, ide);
        QFETCH(QStringList, missing);
        const QTemporaryDir directory;
        const QString ideDir = directory.path() + "/Common7/IDE/";
        QVERIFY(QDir().mkpath(ideDir));
        for (const QString &name : installed) {
            QVERIFY(make(ideDir + name));
        }
        const QString productDir = QDir::toNativeSeparators(directory.path());
        const VisualStudioVersion before{"name", "Edition", "14.0",           "x86",  productDir, "vc",
                                         "bat",  "earlier", "C:/earlier.exe", express};
        VisualStudioVersion expected = before;
        QStringList logLines;
        for (const QString &each : missing) {
            logLines.append(ideDir + each + ".exe does NOT exist");
        }
        if (!ide.isEmpty()) {
            logLines.append(ideDir + ide + ".exe exists");
            expected.ideName = ide;
            expected.idePath = ideDir + ide + ".exe";
        }

        VisualStudioVersion record = before;
        const LogLines log;
        findIdeExecutable(record);
        QCOMPARE(fieldsOf({record}), fieldsOf({expected}));
        QCOMPARE(log.lines(), logLines);
    }
};

QTEST_GUILESS_MAIN(IdeSearchTest)

#include "IdeSearchTest_win.moc"
