#include "companions/common/WindowsHandle.h"
#include "license/InstallLicenseDialog.h"
#include "license/InstallLicenseDropFrame.h"
#include "license/LicenseCopy.h"
#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QSignalSpy>
#include <QtTest>

#include <windows.h>

/// A licence file from the drop to the installation.
class DroppedLicenseTest : public QObject {
    Q_OBJECT

private slots:
    void fileThatNobodyElseMayRead()
    {
        const LicenseFiles files;
        files.write("license.dat", "x");
        DropArea frame;
        const QList<QUrl> urls{files.url("license.dat")};
        {
            const WindowsHandle locked(CreateFileW(wide(files.native("license.dat")), GENERIC_READ, 0,
                                                   nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
            QVERIFY(locked);
            QVERIFY(dropFiles(frame, urls));
            QCOMPARE(frame.dropped.size(), 0);
        }
        QVERIFY(dropFiles(frame, urls));
        QCOMPARE(frame.dropped.size(), 1);
    }

    void fileThatVanished_data()
    {
        // installedFromMemory: when the file itself has vanished
        const auto row = columns<QByteArray, QByteArray>("dropped", "installedFromMemory");

        row("CR LF", "one\r\ntwo\r\n", "one\r\ntwo\r\n");
        row("mixed", "one\ntwo\r\n", "one\r\ntwo\r\n");
        row("lone CR", "one\rtwo\r", "onetwo");
        // The system's code page is 1252 here, which lacks five characters.
        QByteArray page;
        for (int byte = ' '; byte < 256; ++byte) {
            page.append(char(byte));
        }
        row("code page", page, page);
        row("UTF-8 with a byte order mark", "\xef\xbb\xbf# Gr\xc3\xb6\xc3\x9f\r\n", "# Gr\xf6\xdf\r\n");
        row("UTF-16 with a byte order mark", QByteArray("\xff\xfe#\0\xf6\0\r\0\n\0", 10), "#\xf6\r\n");
    }

    void fileThatVanished()
    {
        QFETCH(QByteArray, dropped);
        const LicenseFiles files;
        files.write("license.dat", dropped);
        files.makeDirectory("H/license");
        const InstallLicenseDialog dialog("C:\\H\\license");
        QVERIFY(
            dropFiles(*dialog.findChild<InstallLicenseDropFrame *>("labelDrop"), {files.url("license.dat")}));
        QVERIFY(QFile::remove(files.path("license.dat")));

        QVERIFY(copyLicenseFile(dialog.selectedFile(), dialog.droppedContents(),
                                files.path("H/license/license.dat"), nullptr));

        QTEST(files.read("H/license/license.dat"), "installedFromMemory");
    }
};

QTEST_MAIN(DroppedLicenseTest)
#include "DroppedLicenseTest_win.moc"
