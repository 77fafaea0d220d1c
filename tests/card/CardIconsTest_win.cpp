#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardButtons.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Registry.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A program with an icon of its own.
const QString picturedProgram = QStringLiteral(PICTURED_PROGRAM);
const QSize shownSize(64, 52);

void copyTo(const QString &path)
{
    if (!QDir().mkpath(QFileInfo(path).path()) || !QFile::copy(picturedProgram, path)) {
        qFatal("could not copy %s to %s", qPrintable(picturedProgram), qPrintable(path));
    }
}

HalconInstallation installation(const QTemporaryDir &directory, const QString &arch)
{
    HalconInstallation result(12, 0, 0, 0);
    result.arch = arch;
    result.installDir = QDir::toNativeSeparators(directory.path());
    return result;
}

/// The icons of the card's buttons, HDevelop first, then HDevelop XL.
QList<QImage> hdevelopIcons(const HalconInstallation &installation)
{
    const SingleHalconVersionFrame card(installation);
    return {shownIcon(*button(card, "pbHDevelop")), shownIcon(*button(card, "pbHDevelopXL"))};
}

} // namespace

class CardIconsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void iconOfHDevelop();
    void xlHasNoIconOfItsOwn();
    void iconOfTheArchitecture();
    void missing();

private:
    QImage ofProgram;
    QImage ofAnyProgram;
};

void CardIconsTest::initTestCase()
{
    // Wine lacks this registry entry of every Windows, and without it shows no program's own icon.
    Registry::setString(R"(HKEY_LOCAL_MACHINE\Software\Classes\.exe)", QString(), "exefile");
    ofProgram = fileIcon(picturedProgram, shownSize);
    ofAnyProgram = fileIcon("C:\\no such directory\\hdevelop.exe", shownSize);
    QVERIFY(!ofProgram.isNull());
    QVERIFY(!ofAnyProgram.isNull());
    QVERIFY(ofProgram != ofAnyProgram);
}

void CardIconsTest::iconOfHDevelop()
{
    const QTemporaryDir directory;
    copyTo(directory.filePath("bin/x64-win64/hdevelop.exe"));
    // Without an icon of its own.
    EchoChild::copyTo(directory.filePath("bin/x64-win64/hdevelopxl.exe"));
    QCOMPARE(hdevelopIcons(installation(directory, "x64-win64")), (QList<QImage>{ofProgram, ofProgram}));
}

void CardIconsTest::xlHasNoIconOfItsOwn()
{
    const QTemporaryDir directory;
    copyTo(directory.filePath("bin/x64-win64/hdevelopxl.exe"));
    QCOMPARE(hdevelopIcons(installation(directory, "x64-win64")),
             (QList<QImage>{ofAnyProgram, ofAnyProgram}));
}

void CardIconsTest::iconOfTheArchitecture()
{
    const QTemporaryDir directory;
    copyTo(directory.filePath("bin/x86sse2-win32/hdevelop.exe"));
    EchoChild::copyTo(directory.filePath("bin/x64-win64/hdevelop.exe"));
    QCOMPARE(hdevelopIcons(installation(directory, "x86sse2-win32")), (QList<QImage>{ofProgram, ofProgram}));
    const QImage withoutPicture = fileIcon(directory.filePath("bin/x64-win64/hdevelop.exe"), shownSize);
    QVERIFY(withoutPicture != ofProgram);
    QCOMPARE(hdevelopIcons(installation(directory, "x64-win64")),
             (QList<QImage>{withoutPicture, withoutPicture}));
}

void CardIconsTest::missing()
{
    const QTemporaryDir directory;
    QCOMPARE(hdevelopIcons(installation(directory, "x64-win64")),
             (QList<QImage>{ofAnyProgram, ofAnyProgram}));
}

QTEST_MAIN(CardIconsTest)

#include "CardIconsTest_win.moc"
