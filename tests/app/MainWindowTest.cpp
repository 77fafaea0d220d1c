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
#include "tests/support/ProjectVersion.h"
#include "tests/support/Registry.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"
#include "tests/support/WebServer.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLayout>
#include <QScrollArea>
#include <QSettings>
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

/// What @p key shows: one widget, whether it is the first press, it has been hidden since, or it is there. Null
/// when a press leaves none, two, another one or a hidden one.
template <typename Widget>
Widget *shownOnce(MainWindow &window, Qt::Key key)
{
    Widget *made = nullptr;
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier, Qt::NoModifier}) {
        QTest::keyClick(&window, key, modifier);
        const QList<Widget *> all = window.findChildren<Widget *>();
        if (all.size() != 1 || !all.first()->isVisible() || (made != nullptr && made != all.first())) {
            return nullptr;
        }
        all.first()->setVisible(made != nullptr);
        made = all.first();
    }
    return made;
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

    void window()
    {
        const Shown<MainWindow> window;
        QCOMPARE(window.windowTitle(), "Quorvik Solutions - Corvanta for HALCON " + projectVersion());
        QCOMPARE(window.windowState(), Qt::WindowStates(Qt::WindowMaximized));
        QVERIFY(!window.findChild<QToolBar *>("mainToolBar")->isVisible());
        const auto *area = window.findChild<QScrollArea *>("saHalconVersions");
        QCOMPARE(area->widget()->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
        QVERIFY(window.findChild<QWidget *>("scrollAreaWidgetContents") == nullptr);
        const auto *footer =
            window.centralWidget()->findChild<QTextBrowser *>("textBrowser", Qt::FindDirectChildrenOnly);
        QVERIFY(footer->toPlainText().startsWith("Quorvik Solutions Corvanta for HALCON (" +
                                                 projectVersion() + ") - "));
    }

    void cardsInOrder()
    {
        install("20.11-Progress");
        install("9.0");
        const MainWindow window;
        QCOMPARE(cardTexts(window),
                 (QStringList{"9.0.0 (x64-win64)", "13.0.0 (x64-win64)", "20.11.0 Progress (x64-win64)"}));
        const auto *card = window.findChild<SingleHalconVersionFrame *>();
        QCOMPARE(card->installation().installDir, QString("C:\\9.0"));
        QCOMPARE(card->window(), &window);
    }

    void twoHundredInstallations()
    {
        QStringList expected;
        for (int major = 1; major <= 200; ++major) {
            install(QString("%1.0").arg(major));
            expected.append(QString("%1.0.0 (x64-win64)").arg(major));
        }
        const Shown<MainWindow> window;
        QCOMPARE(cardTexts(window), expected);
        // The last one can be reached and used.
        auto *area = window.findChild<QScrollArea *>("saHalconVersions");
        auto *last = area->widget()->layout()->itemAt(199)->widget();
        area->ensureWidgetVisible(last->findChild<QWidget *>("pbHDevelop"));
        QVERIFY(!last->findChild<QWidget *>("pbHDevelop")->visibleRegion().isEmpty());
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
        const Shown<MainWindow> window;
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
        const Shown<MainWindow> window;

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
        const Shown<MainWindow> one;
        const Shown<MainWindow> other;

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
        Shown<MainWindow> window;
        const auto *dialog = shownOnce<DebugDialog>(window, Qt::Key_F12);
        QVERIFY(dialog != nullptr && !dialog->isModal());
    }

    void keyIsTaken_data()
    {
        columns<Qt::Key, bool>("key", "isTaken");

        row("F12", Qt::Key_F12, true);
        row("F4", Qt::Key_F4, true);
        row("F11", Qt::Key_F11, false);
        row("Escape", Qt::Key_Escape, false);
        row("letter", Qt::Key_D, false);
    }

    /// The base class ignores a key that it does not use; an accepted event would hide that.
    void keyIsTaken()
    {
        QFETCH(Qt::Key, key);
        MainWindow window;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&window, &press);
        QTEST(press.isAccepted(), "isTaken");
        QCOMPARE(window.findChild<DebugDialog *>() != nullptr, key == Qt::Key_F12);
        QCOMPARE(window.findChild<RecentProgramsFrame *>() != nullptr, key == Qt::Key_F4);
    }

    void f4ShowsOneListOfRecentPrograms()
    {
        Shown<MainWindow> window;
        const auto *frame = shownOnce<RecentProgramsFrame>(window, Qt::Key_F4);
        QVERIFY(frame != nullptr && !frame->isWindow());
        QCOMPARE(frame->parentWidget(), &window);
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
        Shown<MainWindow> window;
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
