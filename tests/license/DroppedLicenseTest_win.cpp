#include "companions/common/WindowsHandle.h"
#include "license/InstallLicenseDialog.h"
#include "license/InstallLicenseDropFrame.h"
#include "license/LicenseCopy.h"
#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"

#include <QSignalSpy>
#include <QtTest>

#include <windows.h>

namespace {

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

} // namespace

/// A licence file from the drop to the installation.
class DroppedLicenseTest : public QObject {
    Q_OBJECT

private slots:
    void fileThatNobodyElseMayRead();
    void fileThatIsStillThere_data() { contents(); }
    void fileThatIsStillThere();
    void fileThatVanished_data() { contents(); }
    void fileThatVanished();

private:
    static void contents();
};

void DroppedLicenseTest::fileThatNobodyElseMayRead()
{
    const LicenseFiles files;
    files.write("license.dat", "x");
    InstallLicenseDropFrame frame;
    frame.setAcceptDrops(true);
    const QSignalSpy dropped(&frame, &InstallLicenseDropFrame::file_dropped);
    const QList<QUrl> urls{QUrl::fromLocalFile(files.path("license.dat"))};
    {
        const WindowsHandle locked(CreateFileW(wide(files.native("license.dat")), GENERIC_READ, 0, nullptr,
                                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        QVERIFY(locked);
        QVERIFY(dropFiles(frame, urls));
        QCOMPARE(dropped.size(), 0);
    }
    QVERIFY(dropFiles(frame, urls));
    QCOMPARE(dropped.size(), 1);
}

void DroppedLicenseTest::contents()
{
    QTest::addColumn<QByteArray>("dropped");
    QTest::addColumn<QByteArray>("installedFromMemory"); // when the file itself has vanished

    QTest::newRow("CR LF") << QByteArray("one\r\ntwo\r\n") << QByteArray("one\r\ntwo\r\n");
    QTest::newRow("LF") << QByteArray("one\ntwo\n") << QByteArray("one\r\ntwo\r\n");
    QTest::newRow("mixed") << QByteArray("one\ntwo\r\n") << QByteArray("one\r\ntwo\r\n");
    QTest::newRow("no line break at the end") << QByteArray("one\r\ntwo") << QByteArray("one\r\ntwo");
    QTest::newRow("lone CR") << QByteArray("one\rtwo\r") << QByteArray("onetwo");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("ASCII control characters") << QByteArray("a\0b\x1a\tc", 6) << QByteArray("a\0b\x1a\tc", 6);
    // The system's code page is 1252 here.
    QTest::newRow("code page") << QByteArray("# Gr\xf6\xdf"
                                             "e \x80\r\n")
                               << QByteArray("# Gr\xf6\xdf"
                                             "e \x80\r\n");
    QTest::newRow("bytes without a character in the code page")
        << QByteArray("\x81\x8d\x8f\x90\x9d") << QByteArray("\x81\x8d\x8f\x90\x9d");
    QTest::newRow("UTF-8") << QByteArray("# Gr\xc3\xb6\xc3\x9f"
                                         "e\r\n")
                           << QByteArray("# Gr\xc3\xb6\xc3\x9f"
                                         "e\r\n");
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xef\xbb\xbf# Gr\xc3\xb6\xc3\x9f"
                                                                "e\r\n")
                                                  << QByteArray("# Gr\xf6\xdf"
                                                                "e\r\n");
    QTest::newRow("UTF-16 with a byte order mark")
        << QByteArray("\xff\xfe#\0\xf6\0\r\0\n\0", 10) << QByteArray("#\xf6\r\n");
    QTest::newRow("every byte") <<
        [] {
            QByteArray bytes;
            for (int byte = 0; byte < 256; ++byte) {
                bytes.append(char(byte));
            }
            return bytes;
        }()
                                << [] {
                                       QByteArray bytes;
                                       for (int byte = 0; byte < 256; ++byte) {
                                           if (byte == '\n') {
                                               bytes.append('\r');
                                           }
                                           if (byte != '\r') {
                                               bytes.append(char(byte));
                                           }
                                       }
                                       return bytes;
                                   }();
}

void DroppedLicenseTest::fileThatIsStillThere()
{
    QFETCH(QByteArray, dropped);
    const LicenseFiles files;
    files.write("license.dat", dropped);
    files.makeDirectory("H/license");
    const InstallLicenseDialog dialog("C:\\H\\license");
    QVERIFY(dropFiles(*dialog.findChild<InstallLicenseDropFrame *>("labelDrop"),
                      {QUrl::fromLocalFile(files.path("license.dat"))}));

    QVERIFY(copyLicenseFile(dialog.selectedFile(), dialog.droppedContents(),
                            files.path("H/license/license.dat"), nullptr));

    // From the file, not from memory: byte for byte.
    QCOMPARE(files.read("H/license/license.dat"), dropped);
}

void DroppedLicenseTest::fileThatVanished()
{
    QFETCH(QByteArray, dropped);
    const LicenseFiles files;
    files.write("license.dat", dropped);
    files.makeDirectory("H/license");
    const InstallLicenseDialog dialog("C:\\H\\license");
    QVERIFY(dropFiles(*dialog.findChild<InstallLicenseDropFrame *>("labelDrop"),
                      {QUrl::fromLocalFile(files.path("license.dat"))}));
    QVERIFY(QFile::remove(files.path("license.dat")));

    QVERIFY(copyLicenseFile(dialog.selectedFile(), dialog.droppedContents(),
                            files.path("H/license/license.dat"), nullptr));

    QTEST(files.read("H/license/license.dat"), "installedFromMemory");
}

QTEST_MAIN(DroppedLicenseTest)

#include "DroppedLicenseTest_win.moc"
