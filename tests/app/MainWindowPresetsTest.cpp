#include "base/ApplicationIdentity.h"
#include "tests/app/UpdateMachine.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"

#include <QtTest>

#include <memory>

using WindowMachine::click;
using WindowMachine::settingsKey;
using WindowMachine::updateCheckCorvanta;
using WindowMachine::updateCheckHalcon;

namespace {

const QString machineKey = R"(HKEY_LOCAL_MACHINE\Software\Quorvik Solutions\Corvanta for HALCON)";

/// Each value of @p key with its data, in order.
QStringList valuesOf(const QString &key)
{
    const QSettings settings(key, QSettings::NativeFormat);
    QStringList values;
    for (const QString &name : settings.allKeys()) {
        values.append(name + '=' + settings.value(name).toString());
    }
    values.sort();
    return values;
}

bool isTicked(const MainWindow &window, const QString &box)
{
    return window.findChild<QCheckBox *>(box)->isChecked();
}

} // namespace

/// Settings that an administrator makes for all users of the machine.
class MainWindowPresetsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<UpdateMachine> machine;

private slots:
    void initTestCase() { setApplicationIdentity(); }

    void init()
    {
        machine = std::make_unique<UpdateMachine>();
        Registry::removeTree(machineKey);
    }

    void cleanup() { machine.reset(); }

    void presetHoldsUntilTheUserChooses_data()
    {
        columns<QString, QString, bool>("preset", "own", "ticked");

        row("nothing", QString(), QString(), false);
        row("preset on", "true", QString(), true);
        row("preset off", "false", QString(), false);
        row("preset on, user's own off", "true", "false", false);
        row("preset off, user's own on", "false", "true", true);
    }

    void presetHoldsUntilTheUserChooses()
    {
        QFETCH(QString, preset);
        QFETCH(QString, own);
        QFETCH(bool, ticked);
        for (const QString &option : {updateCheckHalcon, updateCheckCorvanta}) {
            if (!preset.isNull()) {
                Registry::setString(machineKey, option, preset);
            }
            if (!own.isNull()) {
                Registry::setString(settingsKey, option, own);
            }
        }
        const QStringList before = valuesOf(settingsKey);
        {
            const MainWindow window;
            QCOMPARE(isTicked(window, halconBox), ticked);
            QCOMPARE(isTicked(window, corvantaBox), ticked);
        }
        // A preset stays in the machine's settings and can be changed there.
        QCOMPARE(valuesOf(settingsKey), before);
        QCOMPARE(Registry::exists(machineKey), !preset.isNull());
    }

    void presetNumberCounts()
    {
        Registry::setDword(machineKey, updateCheckHalcon, 1);
        Registry::setDword(machineKey, updateCheckCorvanta, 0);
        const MainWindow window;
        QVERIFY(isTicked(window, halconBox));
        QVERIFY(!isTicked(window, corvantaBox));
    }

    void presetChecksAtStart()
    {
        Registry::setString(machineKey, updateCheckHalcon, "true");
        const MainWindow window;
        EVENTUALLY_COMPARE(machine->server.targets(), QList<QByteArray>{releaseList});
    }

    void choiceIsStoredForTheUserAlone_data()
    {
        columns<QString, QString>("preset", "chosen");

        row("switched off", "true", "false");
        row("switched on", "false", "true");
    }

    void choiceIsStoredForTheUserAlone()
    {
        QFETCH(QString, preset);
        QFETCH(QString, chosen);
        Registry::setString(machineKey, updateCheckHalcon, preset);
        {
            const Shown<MainWindow> window;
            click(window, halconBox);
        }
        QCOMPARE(valuesOf(machineKey), QStringList{updateCheckHalcon + '=' + preset});
        QCOMPARE(valuesOf(settingsKey), QStringList{updateCheckHalcon + '=' + chosen});
        const MainWindow again;
        QCOMPARE(isTicked(again, halconBox), chosen == "true");
    }
};

QTEST_MAIN(MainWindowPresetsTest)
#include "MainWindowPresetsTest.moc"
