#include "tests/support/Rows.h"

#include <QImage>
#include <QtTest>

/// The images that are compiled in, by the names under which the program asks for them.
class ImagesTest : public QObject {
    Q_OBJECT

private slots:
    void image_data()
    {
        columns<QSize>("size");

        for (const char *name :
             {"shell", "shell_no_devenv", "help", "install_license", "permanent", "uac", "velloxa"}) {
            row(name, QSize());
        }
        row("velloxa-48", QSize(48, 48));
        row("velloxa-256", QSize(256, 256));
        // The program's icon.
        row("corvanta", QSize(256, 256));
    }

    void image()
    {
        const QImage image(QString(":/%1.png").arg(QTest::currentDataTag()));
        QVERIFY(!image.isNull());
        QFETCH(QSize, size);
        if (size.isValid()) {
            QCOMPARE(image.size(), size);
        }
    }
};

QTEST_GUILESS_MAIN(ImagesTest)
#include "ImagesTest.moc"
