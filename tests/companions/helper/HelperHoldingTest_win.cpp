#include "companions/helper/HeldPath.h"

#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/Rows.h"
#include "tests/support/WideText.h"
#include "tests/support/WineFiles.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

using namespace HelperMachine;
using namespace WineFiles;

namespace {

const QString top = "C:\\Holding test";

DWORD errorOf(BOOL success)
{
    return success != 0 ? DWORD(ERROR_SUCCESS) : GetLastError();
}

DWORD errorOfOpening(const QString &path, DWORD access)
{
    const HANDLE file =
        CreateFileW(wide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    CloseHandle(file);
    return ERROR_SUCCESS;
}

} // namespace

class HelperHoldingTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QDir(top).removeRecursively();
        QVERIFY(!QFileInfo::exists(top));
    }

    /// Holds the license directory and those above. Others may still create files there.
    void directoriesAreHeld()
    {
        const QString license = top + "\\H\\license";
        QVERIFY(QDir().mkpath(license));
        {
            const HeldPath directory(toWide(license));
            QCOMPARE(fromWide(directory.refusal()), QString());

            QCOMPARE(errorOf(RemoveDirectoryW(wide(license))), DWORD(ERROR_SHARING_VIOLATION));
            for (const QString &each : {top, top + "\\H", license}) {
                QCOMPARE(errorOf(MoveFileW(wide(each), wide(each + " moved"))),
                         DWORD(ERROR_SHARING_VIOLATION));
                QCOMPARE(errorOfOpening(each, DELETE), DWORD(ERROR_SHARING_VIOLATION));
            }
            makeFile(license + "\\new.dat", "new");
            QVERIFY(QFile::remove(license + "\\new.dat"));
        }

        QCOMPARE(errorOf(RemoveDirectoryW(wide(license))), DWORD(ERROR_SUCCESS));
    }

    void endsAtTheFirstDoubt_data()
    {
        columns<QString, QString>("path", "refusal");
        // Wine opens what a link leads to.
        const QString elsewhere = "\" lies elsewhere than its path says.";

        row("directory", top + "\\H\\license", "");
        row("link", top + "\\link\\license", '"' + top + "\\link" + elsewhere);
        row("link at the end", top + "\\H\\link", '"' + top + "\\H\\link" + elsewhere);
        // The drive with the whole file system also leads to drive C.
        const QString root = onAnotherDrive("C:\\");
        row("another drive", root + "\\Holding test\\H\\license", '"' + root + elsewhere);
        row("missing", top + "\\G\\license", '"' + top + "\\G\" does not exist.");
        row("file", top + "\\file\\license", '"' + top + "\\file\" is not a directory.");
    }

    /// Its target is not opened: an attacker may have chosen it, even on a server.
    void endsAtTheFirstDoubt()
    {
        QFETCH(QString, path);
        QFETCH(QString, refusal);
        QVERIFY(QDir().mkpath(top + "\\H\\license"));
        makeFile(top + "\\file", "file");
        makeSymbolicLink("H", top + "\\link");
        makeSymbolicLink("license", top + "\\H\\link");
        QVERIFY(QFileInfo::exists(top + "\\link\\license"));
        QString stopped;
        {
            const HeldPath directory(toWide(path));
            stopped = fromWide(directory.refusal());
        }
        removeSymbolicLink(top + "\\link");
        removeSymbolicLink(top + "\\H\\link");

        QCOMPARE(stopped, refusal);
    }
};

QTEST_GUILESS_MAIN(HelperHoldingTest)

#include "HelperHoldingTest_win.moc"
