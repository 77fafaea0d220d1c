#include "launch/ElevatedHelper.h"
#include "launch/PermanentSwitch.h"
#include "license/LicenseCopy.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString reason =
    "The program is installed for you alone, and so without its helper: what acts with administrator "
    "rights has to lie where only administrators can write. Install the program for all users to do this.";
const QStringList besideTheProgram{"qz_com_helper.exe", "qz_com_helper.txt"};

QString path(const QString &name)
{
    return QCoreApplication::applicationDirPath() + '/' + name;
}

void put(const QString &name)
{
    QVERIFY(QFile(path(name)).open(QFile::WriteOnly));
}

} // namespace

/// An installation for one user: no helper, and a file that says so.
class MissingHelperTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        cleanup(); // an aborted run may have left files
        ElevatedHelperFake::reset();
    }

    void cleanup()
    {
        for (const QString &name : besideTheProgram) {
            QFile::remove(path(name));
        }
    }

    void reasonIsGiven_data()
    {
        columns<QStringList, QString>("files", "given");

        row("no helper and nothing in its place", QStringList(), "");
        row("helper", QStringList{besideTheProgram.at(0)}, "");
        row("file in its place", QStringList{besideTheProgram.at(1)}, reason);
        row("both, after it was put there by hand", besideTheProgram, "");
    }

    void reasonIsGiven()
    {
        QFETCH(QStringList, files);
        for (const QString &name : files) {
            put(name);
        }

        QTEST(reasonForMissingHelper(), "given");
        // The shell is asked for it unless there is a reason not to.
        QFETCH(QString, given);
        QCOMPARE(runHelper("arguments", false), given.isEmpty() ? 0 : -1);
        QCOMPARE(ElevatedHelperFake::starts().size(), given.isEmpty() ? 1 : 0);
        for (const ElevatedHelperFake::Start &start : ElevatedHelperFake::starts()) {
            QCOMPARE(start.executable, helperExecutablePath());
            QCOMPARE(start.arguments, "arguments");
            QVERIFY(!start.show && start.wait);
        }
    }

    void permanentSwitchSaysSoBeforeAndAfter()
    {
        put(besideTheProgram.at(1));
        const HalconInstallation installation = installationIn("C:\\H");
        const QString broadcast = "broadcast environment updated message (WM_SETTINGCHANGE)";

        QStringList planned;
        QVERIFY(permanentSwitch(installation, false, false, false, &planned));
        QCOMPARE(planned.size(), 7);
        QVERIFY(planned.at(4).startsWith("executing helper process with elevated rights: "));
        QCOMPARE(planned.mid(5), (QStringList{reason, broadcast}));

        QStringList done;
        QVERIFY(!permanentSwitch(installation, true, false, false, &done));
        QCOMPARE(done.mid(0, 6), planned.mid(0, 6));
        QCOMPARE(
            done.mid(6),
            (QStringList{"helper process returned with value -1. This indicates an error in the execution!",
                         broadcast}));
        QCOMPARE(ElevatedHelperFake::starts().size(), 0);
    }

    void licenseCopySaysSo()
    {
        put(besideTheProgram.at(1));
        const QTemporaryDir directory;
        QStringList errors;

        // There is no directory to copy it to.
        QVERIFY(!copyLicenseFile(directory.filePath("gone.dat"), "contents",
                                 directory.filePath("none/gone.dat"), &errors));
        QCOMPARE(
            errors,
            (QStringList{"helper process returned with value -1. This indicates an error in its execution!",
                         reason}));
        QCOMPARE(ElevatedHelperFake::starts().size(), 0);
    }
};

QTEST_GUILESS_MAIN(MissingHelperTest)

#include "MissingHelperTest.moc"
