#include "app/MainWindow.h"
#include "app/DebugDialog.h"
#include "base/ApplicationIdentity.h"
#include "base/MakerAddresses.h"
#include "card/SingleHalconVersionFrame.h"
#include "recent/RecentProgramsFrame.h"
#include "tests/app/WindowMachine.h"
#include "tests/recent/HDevelopSettings.h"
#include "tests/recent/ShownPrograms.h"
#include "tests/support/Patience.h"
#include "tests/support/ProjectVersion.h"
#include "tests/support/Registry.h"
#include "tests/support/RichText.h"
#include "tests/support/WebServer.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScrollArea>
#include <QSettings>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolBar>
#include <QtTest>
#include <QVBoxLayout>

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
    void initTestCase();
    void init();
    void titleAndState();
    void widgetTree();
    void bars();
    void footer();
    void cardsInOrder();
    void cardIsOfItsInstallationAndInTheWindow();
    void optionsAreOffAtFirst();
    void storedOptionsAreRestored_data();
    void storedOptionsAreRestored();
    void restoringDoesNotWrite_data() { storedOptionsAreRestored_data(); }
    void restoringDoesNotWrite();
    void changingAnOptionStoresIt_data();
    void changingAnOptionStoresIt();
    void unreadableOptionIsOff();
    void f12ShowsOneDebugDialog();
    void f12IsTaken_data();
    void f12IsTaken();
    void f4ShowsOneListOfRecentPrograms();
    void f4IsTaken_data() { f12IsTaken_data(); }
    void f4IsTaken();
    void f4PutsTheListInTheMiddle();
    void f4LeadsToTheSearchLine_data();
    void f4LeadsToTheSearchLine();
    void f4ReadsTheListOnce();
    void otherKeysArePassedOn_data();
    void otherKeysArePassedOn();
};

void MainWindowTest::initTestCase()
{
    setApplicationIdentity();
    // The requests are not this test's subject.
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, "127.0.0.1", WebServer::closedPort()));
}

void MainWindowTest::init()
{
    clear();
    install("13.0");
}

void MainWindowTest::titleAndState()
{
    const MainWindow window;
    QCOMPARE(window.windowTitle(), "Quorvik Solutions - Corvanta for HALCON " + projectVersion());
    QCOMPARE(window.windowState(), Qt::WindowStates(Qt::WindowMaximized));
    QCOMPARE(window.objectName(), QString("MainWindow"));
    QCOMPARE(window.size(), QSize(834, 621));
}

void MainWindowTest::widgetTree()
{
    const MainWindow window;
    QCOMPARE(window.centralWidget()->objectName(), QString("centralWidget"));
    const auto *column = qobject_cast<QVBoxLayout *>(window.centralWidget()->layout());
    QVERIFY(column != nullptr);
    QCOMPARE(column->objectName(), QString("verticalLayout"));
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(column->count(), 3);

    const auto *area = qobject_cast<QScrollArea *>(column->itemAt(0)->widget());
    QVERIFY(area != nullptr);
    QCOMPARE(area->objectName(), QString("saHalconVersions"));
    QCOMPARE(area->sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(area->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(area->minimumSize(), QSize(150, 150));
    QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(area->sizeAdjustPolicy(), QAbstractScrollArea::AdjustToContentsOnFirstShow);
    QVERIFY(area->widgetResizable());
    QVERIFY(qobject_cast<QVBoxLayout *>(area->widget()->layout()) != nullptr);
    QCOMPARE(area->widget()->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(window.findChild<QWidget *>("scrollAreaWidgetContents") == nullptr);

    const auto *row = qobject_cast<QHBoxLayout *>(column->itemAt(1)->layout());
    QVERIFY(row != nullptr);
    QCOMPARE(row->objectName(), QString("horizontalLayout"));
    QCOMPARE(row->spacing(), 6);
    QCOMPARE(row->contentsMargins(), QMargins(10, 2, 10, 2));
    QCOMPARE(row->count(), 3);
    const auto *halcon = qobject_cast<QCheckBox *>(row->itemAt(0)->widget());
    QCOMPARE(halcon->objectName(), QString("cbUpdateCheckHalcon"));
    QCOMPARE(halcon->text(), QString("Enable HALCON Update Checks"));
    const auto *corvanta = qobject_cast<QCheckBox *>(row->itemAt(1)->widget());
    QCOMPARE(corvanta->objectName(), QString("cbUpdateCheckCorvanta"));
    QCOMPARE(corvanta->text(), QString("Enable Corvanta for HALCON Update Checks"));
    QCOMPARE(row->itemAt(2)->spacerItem()->sizeHint(), QSize(40, 20));
    QCOMPARE(row->itemAt(2)->spacerItem()->sizePolicy(),
             QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));

    QCOMPARE(column->itemAt(2)->widget()->objectName(), QString("textBrowser"));
}

void MainWindowTest::bars()
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

void MainWindowTest::footer()
{
    const MainWindow window;
    const auto *browser = window.findChild<QWidget *>("centralWidget")
                              ->findChild<QTextBrowser *>("textBrowser", Qt::FindDirectChildrenOnly);
    QVERIFY(browser != nullptr);
    QCOMPARE(browser->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(browser->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(browser->minimumSize(), QSize(0, 50));
    QCOMPARE(browser->maximumSize(), QSize(16777215, 32));
    QVERIFY(browser->openExternalLinks());
    QCOMPARE(browser->styleSheet(),
             QString("background-color: rgb(57, 159, 255, 100);\nmargin: 4px 10px 0 10px;"));
    const auto link = [](const QString &text, const QString &target) {
        return '"' + text + "\" underlined #0000ff -> " + target;
    };
    const QString home = "http://www." + MakerAddresses::webDomain() + "/";
    QCOMPARE(
        richTextRuns(*browser->document()),
        (QStringList{"\"Quorvik Solutions Corvanta for HALCON (" + projectVersion() +
                         ") - Please find more information about "
                         "our HALCON services at \"",
                     link(home, home), "\" or our products at \"",
                     link(MakerAddresses::shop(), MakerAddresses::shop()), "\". We are happy to receive \"",
                     link("feedback", "mailto:" + MakerAddresses::feedbackAddress() +
                                          "?subject=Feedback Corvanta%20for%20HALCON%20" + projectVersion()),
                     "\" from you.\""}));
    for (auto run = browser->document()->begin().begin(); !run.atEnd(); ++run) {
        QCOMPARE(run.fragment().charFormat().fontPointSize(), 8.0);
    }
}

void MainWindowTest::cardsInOrder()
{
    install("20.11-Progress");
    install("9.0");
    QCOMPARE(cardTexts(MainWindow()),
             (QStringList{"9.0.0 (x64-win64)", "13.0.0 (x64-win64)", "20.11.0 Progress (x64-win64)"}));
}

void MainWindowTest::cardIsOfItsInstallationAndInTheWindow()
{
    const MainWindow window;
    const auto *card = window.findChild<SingleHalconVersionFrame *>();
    QCOMPARE(card->installation().installDir, QString("C:\\13.0"));
    QCOMPARE(card->window(), &window);
}

void MainWindowTest::optionsAreOffAtFirst()
{
    const MainWindow window;
    QVERIFY(!window.findChild<QCheckBox *>("cbUpdateCheckHalcon")->isChecked());
    QVERIFY(!window.findChild<QCheckBox *>("cbUpdateCheckCorvanta")->isChecked());
    QVERIFY(!stored(updateCheckHalcon).isValid());
    QVERIFY(!stored(updateCheckCorvanta).isValid());
}

void MainWindowTest::storedOptionsAreRestored_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("checkBox");
    QTest::addColumn<QString>("otherCheckBox");

    QTest::newRow("HALCON") << updateCheckHalcon << "cbUpdateCheckHalcon"
                            << "cbUpdateCheckCorvanta";
    QTest::newRow("program") << updateCheckCorvanta << "cbUpdateCheckCorvanta"
                             << "cbUpdateCheckHalcon";
}

void MainWindowTest::storedOptionsAreRestored()
{
    QFETCH(QString, key);
    QFETCH(QString, checkBox);
    QFETCH(QString, otherCheckBox);
    Registry::setString(settingsKey, key, "true");
    const MainWindow window;
    QVERIFY(window.findChild<QCheckBox *>(checkBox)->isChecked());
    QVERIFY(!window.findChild<QCheckBox *>(otherCheckBox)->isChecked());
}

void MainWindowTest::restoringDoesNotWrite()
{
    QFETCH(QString, key);
    QFETCH(QString, checkBox);
    // A string that reads as true but differs from what the program writes.
    Registry::setString(settingsKey, key, "yes");
    {
        const MainWindow window;
        QVERIFY(window.findChild<QCheckBox *>(checkBox)->isChecked());
    }
    QCOMPARE(stored(key), QVariant("yes"));
    QCOMPARE(QSettings(settingsKey, QSettings::NativeFormat).allKeys(), QStringList{key});
}

void MainWindowTest::changingAnOptionStoresIt_data()
{
    storedOptionsAreRestored_data();
}

void MainWindowTest::changingAnOptionStoresIt()
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

void MainWindowTest::unreadableOptionIsOff()
{
    Registry::setString(settingsKey, updateCheckHalcon, "");
    const MainWindow window;
    QVERIFY(!window.findChild<QCheckBox *>("cbUpdateCheckHalcon")->isChecked());
}

void MainWindowTest::f12ShowsOneDebugDialog()
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

void MainWindowTest::f12IsTaken_data()
{
    QTest::addColumn<int>("modifiers");

    QTest::newRow("alone") << int(Qt::NoModifier);
    QTest::newRow("with Ctrl") << int(Qt::ControlModifier);
}

void MainWindowTest::f12IsTaken()
{
    QFETCH(int, modifiers);
    MainWindow window;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F12, Qt::KeyboardModifiers(modifiers));
    QApplication::sendEvent(&window, &press);
    QVERIFY(press.isAccepted());
    QVERIFY(window.findChild<DebugDialog *>() != nullptr);
}

void MainWindowTest::f4ShowsOneListOfRecentPrograms()
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

void MainWindowTest::f4IsTaken()
{
    QFETCH(int, modifiers);
    MainWindow window;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F4, Qt::KeyboardModifiers(modifiers));
    QApplication::sendEvent(&window, &press);
    QVERIFY(press.isAccepted());
    QVERIFY(window.findChild<RecentProgramsFrame *>() != nullptr);
}

void MainWindowTest::f4PutsTheListInTheMiddle()
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

void MainWindowTest::f4LeadsToTheSearchLine_data()
{
    QTest::addColumn<QString>("from");

    for (const char *name :
         {"cbUpdateCheckHalcon", "textBrowser", "lwVsVersion", "pbHDevelop", "cbRegCom", "pbOK"}) {
        QTest::newRow(name) << name;
    }
}

void MainWindowTest::f4LeadsToTheSearchLine()
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

void MainWindowTest::f4ReadsTheListOnce()
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

void MainWindowTest::otherKeysArePassedOn_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("F11") << int(Qt::Key_F11);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("letter") << int(Qt::Key_D);
}

/// The base class ignores a key that it does not use; an accepted event would hide that.
void MainWindowTest::otherKeysArePassedOn()
{
    QFETCH(int, key);
    MainWindow window;
    window.show();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&window, &press);
    QVERIFY(!press.isAccepted());
    QVERIFY(window.findChild<DebugDialog *>() == nullptr);
    QVERIFY(window.isVisible());
}

QTEST_MAIN(MainWindowTest)

#include "MainWindowTest.moc"
