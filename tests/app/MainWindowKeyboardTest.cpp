#include "app/KeyboardFocusFrame.h"
#include "app/MainWindow.h"
#include "base/ApplicationIdentity.h"
#include "base/MakerAddresses.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/app/TabStops.h"
#include "tests/app/WindowMachine.h"
#include "tests/card/CardShape.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/Patience.h"

#include <QTemporaryDir>
#include <QtTest>

/// The whole window, used without a mouse.
class MainWindowKeyboardTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void init() { WindowMachine::clear(); }

    void tabStops()
    {
        const QTemporaryDir directory;
        WindowMachine::install("13.0");
        WindowMachine::install("20.05-Progress", QDir::toNativeSeparators(directory.path()));
        MainWindow window;
        window.show();
        QVERIFY(eventuallyActive(&window));
        QStringList unseen;
        const QStringList stops = TabStops::walk(window, Qt::Key_Tab, &unseen);

        const QString link = "Details > " + QDir::toNativeSeparators(directory.path());
        const QStringList expected =
            TabStops::ofCard("13.0.0", {}, false) + TabStops::ofCard("20.5.0 Progress", {link}, false) +
            QStringList{"Enable HALCON Update Checks",
                        "Enable Corvanta for HALCON Update Checks",
                        "About this program",
                        "About this program > http://www." + MakerAddresses::webDomain() + "/",
                        "About this program > " + MakerAddresses::shop(),
                        "About this program > feedback"};
        QCOMPARE(stops.join('|'), expected.join('|'));
        QCOMPARE(unseen.join(", "), QString());
    }

    /// At first the focus is where Space starts nothing.
    void startsOutsideTheCards()
    {
        WindowMachine::install("13.0");
        MainWindow window;
        window.show();
        QVERIFY(eventuallyActive(&window));
        QCOMPARE(QApplication::focusWidget(), window.findChild<QWidget *>("saHalconVersions"));
        QVERIFY(!window.findChild<KeyboardFocusFrame *>()->isVisible());
    }

    void controlsHaveNames()
    {
        WindowMachine::install("13.0");
        WindowMachine::install("20.11-Progress");
        MainWindow window;
        window.show();
        QVERIFY(eventuallyActive(&window));
        QTest::keyClick(&window, Qt::Key_F4);
        const QStringList names = accessibleControls(window);
        QCOMPARE(names.filter(QRegularExpression("^<")).join(", "), QString());
        constexpr int stopsOfCard = 16;
        constexpr int others = 2 + 1 + 3; // options, footer, recent programs
        QCOMPARE(names.size(), 2 * stopsOfCard + others);
    }

    void cardsKeepTheirShape()
    {
        const QStringList versions{"9.0", "10.0", "11.0", "12.0", "13.0", "17.12", "18.11", "20.05-Progress"};
        for (const QString &version : versions) {
            WindowMachine::install(version);
        }
        MainWindow window;
        window.showNormal();
        window.resize(1366, 700);
        QVERIFY(eventuallyExposed(&window));
        QCoreApplication::processEvents();
        const auto cards = window.findChildren<SingleHalconVersionFrame *>();
        QCOMPARE(cards.size(), versions.size());
        for (const SingleHalconVersionFrame *card : cards) {
            QCOMPARE(CardShape::faults(*card).join('\n'), QString());
        }
        QCOMPARE(cards.first()->geometry().top(), 0);
        QVERIFY(cards.at(1)->geometry().top() < 200);
    }
};

QTEST_MAIN(MainWindowKeyboardTest)
#include "MainWindowKeyboardTest.moc"
