#include "card/SingleHalconVersionFrame.h"
#include "tests/card/Advertisement.h"
#include "tests/card/CardButtons.h"
#include "tests/card/Desktop.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Patience.h"

#include <QPointer>
#include <QtTest>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 0);
    result.setSuffix("Progress");
    result.arch = "x64-win64";
    result.installDir = "C:\\H";
    return result;
}

} // namespace

class CardLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { ProcessStartFake::reset(); }
    void hdevelopButtons_data();
    void hdevelopButtons();
    void failureIsShown_data();
    void failureIsShown();
    void missingVelloxaIsAdvertised();
    void otherLinksGoToTheDesktop();
};

void CardLaunchTest::hdevelopButtons_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("executable");

    const QString plain = R"(C:\H\bin\x64-win64\hdevelop.exe)";
    const QString xl = R"(C:\H\bin\x64-win64\hdevelopxl.exe)";
    QTest::newRow("HDevelop") << "pbHDevelop" << plain;
    QTest::newRow("version number") << "pbMajor" << plain;
    QTest::newRow("architecture badge") << "x64" << plain;
    QTest::newRow("HDevelop XL") << "pbHDevelopXL" << xl;
    QTest::newRow("XL badge") << "XL" << xl;
}

void CardLaunchTest::hdevelopButtons()
{
    QFETCH(QString, name);
    const SingleHalconVersionFrame card(installation());
    const MessageBoxes boxes;
    QTest::mouseClick(button(card, name), Qt::LeftButton);

    QCOMPARE(ProcessStartFake::starts().size(), 1);
    const ProcessStartFake::Start &start = ProcessStartFake::starts().first();
    QTEST(start.executable, "executable");
    QCOMPARE(start.arguments, QString());
    QCOMPARE(start.installation.versionArchText(), installation().versionArchText());
    QCOMPARE(boxes.shown().size(), 0);
}

void CardLaunchTest::failureIsShown_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("HDevelop") << "pbHDevelop";
    QTest::newRow("HDevelop XL") << "pbHDevelopXL";
}

void CardLaunchTest::failureIsShown()
{
    QFETCH(QString, name);
    SingleHalconVersionFrame card(installation());
    card.show();
    ProcessStartFake::failWith("CreateProcess failed: no such file");
    const MessageBoxes boxes;
    QTest::mouseClick(button(card, name), Qt::LeftButton);

    QCOMPARE(boxes.shown().size(), 1);
    const ShownBox &box = boxes.shown().first();
    QCOMPARE(box.title, QString("Errors"));
    QCOMPARE(box.text, QString("There were errors when launching HDevelop 20.11.1 Progress (x64-win64):\n"
                               "CreateProcess failed: no such file"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent.data(), &card);
}

void CardLaunchTest::missingVelloxaIsAdvertised()
{
    const SingleHalconVersionFrame card(installation());
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

void CardLaunchTest::otherLinksGoToTheDesktop()
{
    SingleHalconVersionFrame card(installation());
    const Desktop desktop("http");
    card.textBrowserClick(QUrl("http://corvanta.invalid/a%20b?c#d"));
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl("http://corvanta.invalid/a%20b?c#d")});
}

QTEST_MAIN(CardLaunchTest)

#include "CardLaunchTest.moc"
