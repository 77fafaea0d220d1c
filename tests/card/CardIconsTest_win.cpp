#include "card/CardIcons.h"
#include "card/ProgramIcon.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardButtons.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"

#include <QPainter>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(QIcon::Mode)

/// Which icon the card's HDevelop buttons show. One of the programs here has an icon of its own.
class CardIconsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Wine lacks this registry entry of every Windows, and without it shows no program's own icon.
        Registry::setString(R"(HKEY_LOCAL_MACHINE\Software\Classes\.exe)", QString(), "exefile");
    }

    void icon_data()
    {
        // plain: a program without an icon of its own
        // shown: whose icon
        columns<QString, QString, QString, QString>("pictured", "plain", "arch", "shown");

        const QString program = "bin/x64-win64/hdevelop.exe";
        const QString xl = "bin/x64-win64/hdevelopxl.exe";
        const QString program32 = "bin/x86sse2-win32/hdevelop.exe";
        row("its own", program, xl, "x64-win64", program);
        row("XL has none of its own", xl, "", "x64-win64", "missing.exe");
        row("of the architecture", program32, program, "x86sse2-win32", program32);
        row("of the other architecture", program32, program, "x64-win64", program);
        row("missing", "", "", "x64-win64", "missing.exe");
    }

    void icon()
    {
        QFETCH(QString, pictured);
        QFETCH(QString, plain);
        QFETCH(QString, arch);
        QFETCH(QString, shown);
        const QTemporaryDir directory;
        if (!pictured.isEmpty()) {
            QVERIFY(QDir().mkpath(QFileInfo(directory.filePath(pictured)).path()));
            QVERIFY(QFile::copy(QStringLiteral(PICTURED_PROGRAM), directory.filePath(pictured)));
        }
        if (!plain.isEmpty()) {
            EchoChild::copyTo(directory.filePath(plain));
        }
        const QSize size(64, 52);
        const QImage expected = shown == pictured ? programIcon(PICTURED_PROGRAM, 48).toImage()
                                                  : fileIcon(directory.filePath("missing.exe"), size);
        QVERIFY(!expected.isNull());

        const SingleHalconVersionFrame card(installationIn(QDir::toNativeSeparators(directory.path()), arch));

        QCOMPARE(shownIcon(*button(card, "pbHDevelop")), expected);
        QCOMPARE(shownIcon(*button(card, "pbHDevelopXL")), expected);
    }

    void programsOwnIcon()
    {
        const QTemporaryDir directory;
        const QString plain = directory.filePath("plain.exe");
        const QString text = directory.filePath("text.exe");
        EchoChild::copyTo(plain);
        QFile noProgram(text);
        QVERIFY(noProgram.open(QIODevice::WriteOnly) && noProgram.write("no program") > 0);
        noProgram.close();

        QCOMPARE(programIcon(PICTURED_PROGRAM, 32).toImage(), fileIcon(PICTURED_PROGRAM, QSize(32, 32)));
        for (const int size : {48, 96}) {
            QCOMPARE(programIcon(PICTURED_PROGRAM, size).size(), QSize(size, size));
            for (const QString &without :
                 {plain, text, directory.path(), directory.filePath("missing.exe")}) {
                QVERIFY2(programIcon(without, size).isNull(), qPrintable(without));
            }
        }
    }

    /// From a large picture, and not from one of 48 pixels.
    void sharpBeyond48Pixels()
    {
        const QImage large = programIcon(PICTURED_PROGRAM, 256).toImage();
        QCOMPARE(large.size(), QSize(256, 256));
        for (const int size : {60, 72, 96}) {
            const QImage expected = large.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            QCOMPARE(programIcon(PICTURED_PROGRAM, size).toImage(), expected);
        }
    }

    void sizeOnAnyScreen()
    {
        const qreal ratio = qEnvironmentVariable("TEST_SCALE", "1").toDouble();
        const QPixmap picture = programPicture(PICTURED_PROGRAM);
        QCOMPARE(picture.devicePixelRatio(), ratio);
        QCOMPARE(picture.size(), QSize(48, 48) * ratio);
    }

    void lateIconIsLikeAnyOther_data()
    {
        columns<QSize, QIcon::Mode>("size", "mode");

        row("shown", QSize(64, 52), QIcon::Normal);
        row("larger", QSize(100, 100), QIcon::Normal);
        row("smaller", QSize(32, 20), QIcon::Normal);
        row("disabled", QSize(64, 52), QIcon::Disabled);
        row("smaller and selected", QSize(20, 32), QIcon::Selected);
    }

    void lateIconIsLikeAnyOther()
    {
        QFETCH(QSize, size);
        QFETCH(QIcon::Mode, mode);
        const QSize shownSize(64, 52);
        const QIcon late = lateProgramIcon(PICTURED_PROGRAM, shownSize);
        const QIcon other = iconOfItsOwnSize(programPicture(PICTURED_PROGRAM), shownSize);

        const QImage expected = other.pixmap(size, mode).toImage();
        QVERIFY(!expected.isNull());
        QCOMPARE(late.pixmap(size, mode).toImage(), expected);
        QCOMPARE(QIcon(late).pixmap(size, mode).toImage(), expected);

        QImage paintedLate(size, QImage::Format_ARGB32_Premultiplied);
        paintedLate.fill(Qt::white);
        QImage paintedOther = paintedLate;
        QPainter latePainter(&paintedLate);
        late.paint(&latePainter, paintedLate.rect(), Qt::AlignCenter, mode);
        QPainter otherPainter(&paintedOther);
        other.paint(&otherPainter, paintedOther.rect(), Qt::AlignCenter, mode);
        QCOMPARE(paintedLate, paintedOther);
    }
};

QTEST_MAIN(CardIconsTest)
#include "CardIconsTest_win.moc"
