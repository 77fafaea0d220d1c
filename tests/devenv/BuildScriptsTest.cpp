#include "devenv/BuildScripts.h"
#include "base/DebugLogger.h"
#include "tests/devenv/RecordLines.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

class BuildScriptsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        directory.reset(new QTemporaryDir);
        product.version = "14.0";
        product.edition = "A";
    }

    void bothAreLookedForBeforeTheReports_data()
    {
        // before: whether the 32-bit script exists before the first report
        columns<bool, QString, QStringList>("before", "report", "names");

        row("goes with the first report", true, "32.bat found",
            QStringList{"Visual Studio 14.0 (A) (amd64)", "Visual Studio 14.0 (A) (x86)",
                        "Visual Studio 14.0 (A)"});
        row("comes with the first report", false, "32.bat NOT found",
            QStringList{"Visual Studio 14.0 (A) (amd64)", "Visual Studio 14.0 (A)"});
    }

    void bothAreLookedForBeforeTheReports()
    {
        QFETCH(bool, before);
        QFETCH(QString, report);
        const QString script32 = path("32.bat");
        QVERIFY(addFile(path("64.bat")));
        QVERIFY(!before || addFile(script32));

        const LogLines log;
        const auto connection = connect(&DebugLogger::instance(), &DebugLogger::updated, this, [&] {
            if (log.lines().size() == 1) {
                QVERIFY(before ? QFile::remove(script32) : addFile(script32));
            }
        });
        const QList<VisualStudioVersion> found = recordsPerArchitecture(product, path("64.bat"), script32);
        disconnect(connection);

        QCOMPARE(QFile::exists(script32), !before);
        QTEST(displayNames(found), "names");
        QCOMPARE(log.lines(), (QStringList{path("64.bat found"), path(report)}));
    }

    void directoryIsNoScript()
    {
        QVERIFY(QDir().mkdir(path("64.bat")));
        QVERIFY(QDir().mkdir(path("32.bat")));
        const LogLines log;
        QCOMPARE(displayNames(recordsPerArchitecture(product, path("64.bat"), path("32.bat"))),
                 QStringList{"Visual Studio 14.0 (A)"});
        QCOMPARE(log.lines(), (QStringList{path("64.bat NOT found"), path("32.bat NOT found")}));
    }

private:
    QString path(const QString &name) const { return directory->filePath(name); }
    static bool addFile(const QString &path) { return QFile(path).open(QFile::WriteOnly); }

    VisualStudioVersion product;
    QScopedPointer<QTemporaryDir> directory;
};

QTEST_GUILESS_MAIN(BuildScriptsTest)

#include "BuildScriptsTest.moc"
