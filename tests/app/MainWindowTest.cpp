#include "app/MainWindow.h"
#include "app/DebugDialog.h"
#include "base/ApplicationIdentity.h"
#include "card/SingleHalconVersionFrame.h"
#include "recent/RecentProgramsFrame.h"
#include "tests/app/WindowMachine.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/ProjectVersion.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"
#include "tests/support/WebServer.h"
#include "tests/support/WidgetTree.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLayout>
#include <QMenuBar>
#include <QScrollArea>
#include <QSettings>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolBar>
#include <QtTest>

using WindowMachine::clear;
using WindowMachine::click;
using WindowMachine::install;
using WindowMachine::settingsKey;
using WindowMachine::stored;
using WindowMachine::updateCheckCorvanta;
using WindowMachine::updateCheckHalcon;

namespace {

QStringList cardTexts(const MainWindow &window)
{
    QStringList texts;
    const QWidget *cards = window.findChild<QScrollArea *>("saHalconVersions")->widget();
    for (int i = 0; i < cards->layout()->count(); ++i) {
        const auto *card = qobject_cast<SingleHalconVersionFrame *>(cards->layout()->itemAt(i)->widget());
        texts.append(card == nullptr ? "no card" : card->installation().versionArchText());
    }
    return texts;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        setApplicationIdentity();
        // The requests are not this test's subject.
        QNetworkProxy::setApplicationProxy(
            QNetworkProxy(QNetworkProxy::HttpProxy, "127.0.0.1", WebServer::closedPort()));
    }

    void init()
    {
        clear();
        install("13.0");
    }

    void titleAndState()
    {
        const MainWindow window;
        QCOMPARE(window.windowTitle(), "Quorvik Solutions - Corvanta for HALCON " + projectVersion());
        QCOMPARE(window.windowState(), Qt::WindowStates(Qt::WindowMaximized));
        QCOMPARE(window.objectName(), QString("MainWindow"));
        QCOMPARE(window.size(), QSize(834, 621));
    }

    void widgetTree()
    {
        const MainWindow window;
        QCOMPARE(window.centralWidget()->objectName(), QString("centralWidget"));
        QCOMPARE(
            describeLayouts(*window.centralWidget()->layout()),
            (QStringList{"QVBoxLayout verticalLayout spacing 0 margins 0,0,0,0: saHalconVersions | "
                         "horizontalLayout | textBrowser",
                         "QHBoxLayout horizontalLayout spacing 6 margins 10,2,10,2: cbUpdateCheckHalcon | "
                         "cbUpdateCheckCorvanta | spacer 40x20 Expanding/Minimum"}));
        const QStringList widgets = describeWidgets(*window.centralWidget());
        for (const char *line :
             {"QScrollArea saHalconVersions min 150x150 MinimumExpanding/MinimumExpanding in verticalLayout "
              "at 0",
              "QCheckBox cbUpdateCheckHalcon \"Enable HALCON Update Checks\" Minimum/Fixed in "
              "horizontalLayout "
              "at 0",
              "QCheckBox cbUpdateCheckCorvanta \"Enable Corvanta for HALCON Update Checks\" Minimum/Fixed in "
              "horizontalLayout at 1",
              "QTextBrowser textBrowser min 0x50 max 16777215x32 Expanding/MinimumExpanding in "
              "verticalLayout at "
              "2"}) {
            QVERIFY2(widgets.contains(line), qPrintable(widgets.join('\n')));
        }

        const auto *area = window.findChild<QScrollArea *>("saHalconVersions");
        QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(area->sizeAdjustPolicy(), QAbstractScrollArea::AdjustToContentsOnFirstShow);
        QVERIFY(area->widgetResizable());
        QCOMPARE(area->widget()->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
        QVERIFY(window.findChild<QWidget *>("scrollAreaWidgetContents") == nullptr);
    }

    void bars()
    {
        MainWindow window;
        QCOMPARE(window.menuBar()->objectName(), QString("menuBar"));
        QVERIFY(window.menuBar()->actions().isEmpty());
        QCOMPARE(window.statusBar()->objectName(), QString("statusBar"));
        auto *toolBar = window.findChild<QToolBar *>("mainToolBar");
        QCOMPARE(window.toolBarArea(toolBar), Qt::TopToolBarArea);
        window.show();
        QVERIFY(!toolBar->isVisible());
    }

    void footer()
    {
        const MainWindow window;
        const auto *browser = window.findChild<QWidget *>("centralWidget")
                                  ->findChild<QTextBrowser *>("textBrowser", Qt::FindDirectChildrenOnly);
        QVERIFY(browser->openExternalLinks());
        QCOMPARE(browser->styleSheet(),
                 QString("background-color: rgb(57, 159, 255, 100);\nmargin: 4px 10px 0 10px;"));
        QVERIFY(browser->toPlainText().startsWith("Quorvik Solutions Corvanta for HALCON (" +
                                                  projectVersion() + ") - "));
    }

    void cardsInOrder()
    {
        install("20.11-Progress");
        install("9.0");
        QCOMPARE(cardTexts(MainWindow()),
                 (QStringList{"9.0.0 (x64-win64)", "13.0.0 (x64-win64)", "20.11.0 Progress (x64-win64)"}));
    }

    void twoHundredInstallations()
    {
        QStringList expected;
        for (int major = 1; major <= 200; ++major) {
            install(QString("%1.0").arg(major));
            expected.append(QString("%1.0.0 (x64-win64)").arg(major));
        }
        MainWindow window;
        window.show();
        QVERIFY(eventuallyExposed(&window));
        QCOMPARE(cardTexts(window), expected);
        // The last one can be reached and used.
        auto *area = window.findChild<QScrollArea *>("saHalconVersions");
        auto *last = area->widget()->layout()->itemAt(199)->widget();
        area->ensureWidgetVisible(last->findChild<QWidget *>("pbHDevelop"));
        QVERIFY(!last->findChild<QWidget *>("pbHDevelop")->visibleRegion().isEmpty());
    }

    void cardIsOfItsInstallationAndInTheWindow()
    {
        const MainWindow window;
        const auto *card = window.findChild<SingleHalconVersionFrame *>();
        QCOMPARE(card->installation().installDir, QString("C:\\13.0"));
        QCOMPARE(card->window(), &window);
    }

    void optionsAreOffAtFirst()
    {
        const MainWindow window;
        QVERIFY(!window.findChild<QCheckBox *>("cbUpdateCheckHalcon")->isChecked());
        QVERIFY(!window.findChild<QCheckBox *>("cbUpdateCheckCorvanta")->isChecked());
        QVERIFY(!stored(updateCheckHalcon).isValid());
        QVERIFY(!stored(updateCheckCorvanta).isValid());
    }

    void restoringDoesNotWrite_data()
    {
        columns<QString, QString, QString>("key", "checkBox", "otherCheckBox");

        row("HALCON", updateCheckHalcon, "cbUpdateCheckHalcon", "cbUpdateCheckCorvanta");
        row("program", updateCheckCorvanta, "cbUpdateCheckCorvanta", "cbUpdateCheckHalcon");
    }

    void restoringDoesNotWrite()
    {
        QFETCH(QString, key);
        QFETCH(QString, checkBox);
        QFETCH(QString, otherCheckBox);
        // A string that reads as true but differs from what the program writes.
        Registry::setString(settingsKey, key, "yes");
        {
            const MainWindow window;
            QVERIFY(window.findChild<QCheckBox *>(checkBox)->isChecked());
            QVERIFY(!window.findChild<QCheckBox *>(otherCheckBox)->isChecked());
        }
        QCOMPARE(stored(key), QVariant("yes"));
        QCOMPARE(QSettings(settingsKey, QSettings::NativeFormat).allKeys(), QStringList{key});
    }

    void changingAnOptionStoresIt_data() { restoringDoesNotWrite_data(); }

    void changingAnOptionStoresIt()
    {
        QFETCH(QString, key);
        QFETCH(QString, checkBox);
        MainWindow window;
        window.show();
        QVERIFY(eventuallyExposed(&window));
        click(window, checkBox);
        QCOMPARE(stored(key), QVariant("true"));
        click(window, checkBox);
        QCOMPARE(stored(key), QVariant("false"));
        QCOMPARE(QSettings(settingsKey, QSettings::NativeFormat).allKeys(), QStringList{key});
    }

    void settingsThatCannotBeWritten_data() { restoringDoesNotWrite_data(); }

    /// The choice counts until the program ends, and nothing interrupts the user.
    void settingsThatCannotBeWritten()
    {
        QFETCH(QString, key);
        QFETCH(QString, checkBox);
        Registry::createKey(settingsKey);
        const Registry::Lock lock(settingsKey, Registry::Lock::Allows::reading);
        const MessageBoxes boxes;
        const LogLines log;
        MainWindow window;
        window.show();
        QVERIFY(eventuallyExposed(&window));

        click(window, checkBox);

        QVERIFY(window.findChild<QCheckBox *>(checkBox)->isChecked());
        QVERIFY(!stored(key).isValid());
        // The download has been asked for, in vain: there is no server.
        EVENTUALLY_VERIFY(!log.lines().filter("Could not fetch ").isEmpty());
        QCOMPARE(boxes.shown().size(), 0);
    }

    /// Neither overwrites what the other one has stored.
    void twoProgramsShareTheSettings()
    {
        MainWindow one;
        MainWindow other;
        for (MainWindow *window : {&one, &other}) {
            window->show();
            QVERIFY(eventuallyExposed(window));
        }

        click(one, "cbUpdateCheckHalcon");
        click(other, "cbUpdateCheckCorvanta");

        QCOMPARE(stored(updateCheckHalcon), QVariant("true"));
        QCOMPARE(stored(updateCheckCorvanta), QVariant("true"));
        // Each goes on showing what was chosen in it.
        QVERIFY(!other.findChild<QCheckBox *>("cbUpdateCheckHalcon")->isChecked());
        click(one, "cbUpdateCheckHalcon");
        QCOMPARE(stored(updateCheckHalcon), QVariant("false"));
        QCOMPARE(stored(updateCheckCorvanta), QVariant("true"));
        const MainWindow next;
        QVERIFY(!next.findChild<QCheckBox *>("cbUpdateCheckHalcon")->isChecked());
        QVERIFY(next.findChild<QCheckBox *>("cbUpdateCheckCorvanta")->isChecked());
    }

    void f12ShowsOneDebugDialog()
    {
        MainWindow window;
        window.show();
        QVERIFY(window.findChild<DebugDialog *>() == nullptr);

        QTest::keyClick(&window, Qt::Key_F12);
        auto *dialog = window.findChild<DebugDialog *>();
        QVERIFY(dialog != nullptr);
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->isModal());

        dialog->close();
        QTest::keyClick(&window, Qt::Key_F12, Qt::ControlModifier);
        QCOMPARE(window.findChildren<DebugDialog *>(), QList<DebugDialog *>{dialog});
        QVERIFY(dialog->isVisible());
        QTest::keyClick(&window, Qt::Key_F12);
        QCOMPARE(window.findChildren<DebugDialog *>(), QList<DebugDialog *>{dialog});
        QVERIFY(dialog->isVisible());
    }

    void keyIsTaken_data()
    {
        columns<int, int, bool>("key", "modifiers", "isTaken");

        row("F12", int(Qt::Key_F12), int(Qt::NoModifier), true);
        row("F12 with Ctrl", int(Qt::Key_F12), int(Qt::ControlModifier), true);
        row("F4", int(Qt::Key_F4), int(Qt::NoModifier), true);
        row("F4 with Ctrl", int(Qt::Key_F4), int(Qt::ControlModifier), true);
        row("F11", int(Qt::Key_F11), int(Qt::NoModifier), false);
        row("Escape", int(Qt::Key_Escape), int(Qt::NoModifier), false);
        row("letter", int(Qt::Key_D), int(Qt::NoModifier), false);
    }

    /// The base class ignores a key that it does not use; an accepted event would hide that.
    void keyIsTaken()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        MainWindow window;
        QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
        QApplication::sendEvent(&window, &press);
        QTEST(press.isAccepted(), "isTaken");
        QCOMPARE(window.findChild<DebugDialog *>() != nullptr, key == Qt::Key_F12);
        QCOMPARE(window.findChild<RecentProgramsFrame *>() != nullptr, key == Qt::Key_F4);
    }

    void f4ShowsOneListOfRecentPrograms()
    {
        MainWindow window;
        window.show();
        QVERIFY(window.findChild<RecentProgramsFrame *>() == nullptr);

        QTest::keyClick(&window, Qt::Key_F4);
        auto *frame = window.findChild<RecentProgramsFrame *>();
        QVERIFY(frame != nullptr);
        QVERIFY(frame->isVisible());
        QVERIFY(!frame->isWindow());
        QCOMPARE(frame->parentWidget(), &window);

        frame->hide();
        QTest::keyClick(&window, Qt::Key_F4, Qt::ControlModifier);
        QCOMPARE(window.findChildren<RecentProgramsFrame *>(), QList<RecentProgramsFrame *>{frame});
        QVERIFY(frame->isVisible());
        QTest::keyClick(&window, Qt::Key_F4);
        QCOMPARE(window.findChildren<RecentProgramsFrame *>(), QList<RecentProgramsFrame *>{frame});
        QVERIFY(frame->isVisible());
    }

    void f4PutsTheListInTheMiddle()
    {
        MainWindow window;
        window.showNormal();
        for (const QSize &size : {QSize(900, 700), QSize(1200, 800)}) {
            window.resize(size);
            EVENTUALLY_COMPARE(window.size(), size);
            QTest::keyClick(&window, Qt::Key_F4);
            const auto *frame = window.findChild<RecentProgramsFrame *>();
            QCOMPARE(frame->size(), QSize(400, 178));
            QCOMPARE(frame->geometry().center(), window.rect().center());
        }
    }

    void f4LeadsToTheSearchLine_data()
    {
        columns<QString>("from");

        for (const char *name :
             {"cbUpdateCheckHalcon", "textBrowser", "lwVsVersion", "pbHDevelop", "cbRegCom", "pbOK"}) {
            row(name, name);
        }
    }

    void f4LeadsToTheSearchLine()
    {
        MainWindow window;
        window.show();
        QVERIFY(eventuallyActive(&window));
        // As from the window system: the key goes to the control with the focus.
        const auto press = [&](int key) { QTest::keyClick(window.windowHandle(), Qt::Key(key)); };
        press(Qt::Key_F4);
        auto *frame = window.findChild<RecentProgramsFrame *>();
        const QWidget *line = searchLine(*frame);
        QCOMPARE(QApplication::focusWidget(), line);
        QFETCH(QString, from);
        auto *elsewhere = window.findChild<QWidget *>(from);
        elsewhere->setFocus();
        QCOMPARE(QApplication::focusWidget(), elsewhere);

        press(Qt::Key_F4);

        QCOMPARE(QApplication::focusWidget(), line);
        press(Qt::Key_Escape);
        QVERIFY(!frame->isVisible());
        press(Qt::Key_F4);
        QVERIFY(frame->isVisible());
        QCOMPARE(QApplication::focusWidget(), line);
    }

    void f4ReadsTheListOnce()
    {
        const HDevelopSettings settings;
        settings.writePrograms({"C:\\a.hdev", "C:\\b.hdev"});
        MainWindow window;
        window.show();
        settings.writePrograms({"C:\\b.hdev"});
        QTest::keyClick(&window, Qt::Key_F4);
        auto *frame = window.findChild<RecentProgramsFrame *>();
        QCOMPARE(shownPaths(*frame), QStringList{"C:\\b.hdev"});

        settings.writePrograms({"C:\\c.hdev"});
        QTest::keyClick(&window, Qt::Key_F4);
        frame->hide();
        QTest::keyClick(&window, Qt::Key_F4);
        QCOMPARE(shownPaths(*frame), QStringList{"C:\\b.hdev"});
    }
};

QTEST_MAIN(MainWindowTest)

#include "MainWindowTest.moc"
