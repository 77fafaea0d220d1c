#include "card/SingleHalconVersionFrame.h"
#include "tests/card/Advertisement.h"
#include "tests/card/CardButtons.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/Desktop.h"
#include "tests/support/Installations.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QPointer>
#include <QtTest>

class CardLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { ProcessStartFake::reset(); }

    void hdevelopButtons_data()
    {
        columns<QString, QString>("name", "executable");

        const QString plain = R"(C:\H\bin\x64-win64\hdevelop.exe)";
        const QString xl = R"(C:\H\bin\x64-win64\hdevelopxl.exe)";
        row("HDevelop", "pbHDevelop", plain);
        row("version number", "pbMajor", plain);
        row("architecture badge", "x64", plain);
        row("HDevelop XL", "pbHDevelopXL", xl);
        row("XL badge", "XL", xl);
    }

    void hdevelopButtons()
    {
        QFETCH(QString, name);
        const SingleHalconVersionFrame card(installationIn("C:\\H"));
        const MessageBoxes boxes;
        QTest::mouseClick(button(card, name), Qt::LeftButton);

        QCOMPARE(ProcessStartFake::starts().size(), 1);
        const ProcessStartFake::Start &start = ProcessStartFake::starts().first();
        QTEST(start.executable, "executable");
        QCOMPARE(start.arguments, QString());
        QCOMPARE(start.installation.versionArchText(), card.installation().versionArchText());
        QCOMPARE(boxes.shown().size(), 0);
    }

    void missingVelloxaIsAdvertised()
    {
        const SingleHalconVersionFrame card(installationIn("C:\\H"));
        const MessageBoxes boxes;
        QVERIFY(advertisement() == nullptr);
        QTest::mouseClick(button(card, "pbVelloxa"), Qt::LeftButton);

        const QPointer<VelloxaAdvertisementDialog> dialog = advertisement();
        QVERIFY(!dialog.isNull());
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->isModal());
        QVERIFY(dialog->parentWidget() == nullptr);
        QCOMPARE(ProcessStartFake::starts().size(), 0);
        QCOMPARE(boxes.shown().size(), 0);

        dialog->close();
        EVENTUALLY_VERIFY(dialog.isNull());
    }

    void otherLinksGoToTheDesktop()
    {
        SingleHalconVersionFrame card(installationIn("C:\\H"));
        const Desktop desktop("http");
        card.textBrowserClick(QUrl("http://corvanta.invalid/a%20b?c#d"));
        QCOMPARE(desktop.opened, QList<QUrl>{QUrl("http://corvanta.invalid/a%20b?c#d")});
    }
};

QTEST_MAIN(CardLaunchTest)
#include "CardLaunchTest.moc"
