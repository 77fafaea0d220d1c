#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardButtons.h"
#include "tests/card/CardStudios.h"

#include <QListWidget>
#include <QPushButton>
#include <QtTest>

namespace {

/// A shown card's Visual Studio list and buttons.
struct Shell {
    explicit Shell(const QString &arch) : card(progressInstallation(arch))
    {
        list = card.findChild<QListWidget *>("lwVsVersion");
        shell = card.findChild<QPushButton *>("pbShell");
        devEnv = card.findChild<QPushButton *>("pbDevEnv");
        card.show();
    }

    /// The selection and the visible buttons, such as "row 0: shell, IDE".
    QString state() const
    {
        QStringList rows;
        for (const QModelIndex &index : list->selectionModel()->selectedRows()) {
            rows.append(QString::number(index.row()));
        }
        QStringList shown;
        if (shell->isVisible()) {
            shown.append("shell");
        }
        if (devEnv->isVisible()) {
            shown.append("IDE");
        }
        return "row " + rows.join('+') + ": " + shown.join(", ");
    }

    SingleHalconVersionFrame card;
    QListWidget *list;
    QPushButton *shell;
    QPushButton *devEnv;
};

} // namespace

class CardVisualStudioTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void rows_data();
    void rows();
    void cardIsMadeWithoutTheIde();
    void ideButtonShowsTheProgramsIcon();
    void shellButtonShowsTheShell();
    void clicksOnRows32();
    void clicksOnRows64();
    void clickSeesWhatIsOnDiskNow();
    void rowNumbers_data();
    void rowNumbers();
    void indexes();
    void cardsAreIndependent();

private:
    CardStudios studios;
};

void CardVisualStudioTest::init()
{
    studios.installIdes();
}

void CardVisualStudioTest::rows_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<QStringList>("texts");

    const QStringList rows64{"Visual Studio 14.0 (Professional) (amd64)",
                             "Visual Studio 11.0 (Express Edition) (amd64)"};
    const QStringList rows32{"Visual Studio 14.0 (Professional) (x86)",
                             "Visual Studio 12.0 (Professional) (x86)",
                             "Visual Studio 11.0 (Express Edition) (x86)"};
    QTest::newRow("x64") << "x64-win64" << rows64;
    QTest::newRow("x86") << "x86-win32" << rows32;
    QTest::newRow("SSE2") << "x86sse2-win32" << rows32;
}

void CardVisualStudioTest::rows()
{
    QFETCH(QString, arch);
    QFETCH(QStringList, texts);
    const Shell shell(arch);
    QCOMPARE(rowTexts(*shell.list), texts);
    QCOMPARE(shell.list->currentRow(), 0);
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
}

void CardVisualStudioTest::cardIsMadeWithoutTheIde()
{
    QVERIFY(QFile::remove(studios.ide14()));
    const Shell shell("x64-win64");
    QCOMPARE(shell.state(), QString("row 0: shell"));
    QVERIFY(shell.devEnv->icon().isNull());
    QCOMPARE(rowTexts(*shell.list).size(), 2);
}

void CardVisualStudioTest::ideButtonShowsTheProgramsIcon()
{
    const Shell shell("x64-win64");
    QVERIFY(!shownIcon(*shell.devEnv).isNull());
    QCOMPARE(shownIcon(*shell.devEnv), fileIcon(studios.ide14(), shell.devEnv->iconSize()));
    QVERIFY(shownIcon(*shell.devEnv) != resource(":/shell.png", shell.devEnv->iconSize()));
}

void CardVisualStudioTest::shellButtonShowsTheShell()
{
    const Shell shell("x64-win64");
    QVERIFY(!shownIcon(*shell.shell).isNull());
    QCOMPARE(shownIcon(*shell.shell), resource(":/shell.png", shell.shell->iconSize()));
    QVERIFY(shownIcon(*shell.shell) != resource(":/shell_no_devenv.png", shell.shell->iconSize()));
}

void CardVisualStudioTest::clicksOnRows32()
{
    const Shell shell("x86-win32");
    clickRow(*shell.list, 1);
    QCOMPARE(shell.state(), QString("row 1: shell"));
    QVERIFY(shell.devEnv->icon().isNull());
    clickRow(*shell.list, 2);
    QCOMPARE(shell.state(), QString("row 2: shell, IDE"));
    QCOMPARE(shownIcon(*shell.devEnv), fileIcon(studios.ide11(), shell.devEnv->iconSize()));
    clickRow(*shell.list, 1);
    QCOMPARE(shell.state(), QString("row 1: shell"));
    clickRow(*shell.list, 0);
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
}

void CardVisualStudioTest::clicksOnRows64()
{
    QVERIFY(QFile::remove(studios.ide11()));
    const Shell shell("x64-win64");
    clickRow(*shell.list, 1);
    QCOMPARE(shell.state(), QString("row 1: shell"));
    clickRow(*shell.list, 0);
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
}

void CardVisualStudioTest::clickSeesWhatIsOnDiskNow()
{
    const Shell shell("x64-win64");
    QVERIFY(QFile::remove(studios.ide14()));
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
    clickRow(*shell.list, 0);
    QCOMPARE(shell.state(), QString("row 0: shell"));
    studios.installIdes();
    clickRow(*shell.list, 0);
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
    QCOMPARE(shownIcon(*shell.devEnv), fileIcon(studios.ide14(), shell.devEnv->iconSize()));
}

void CardVisualStudioTest::rowNumbers_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("state");

    QTest::newRow("none") << -1 << "row 0: shell";
    QTest::newRow("first, with an IDE") << 0 << "row 0: shell, IDE";
    QTest::newRow("second, without an IDE") << 1 << "row 0: shell";
    QTest::newRow("last, with an IDE") << 2 << "row 0: shell, IDE";
    QTest::newRow("as many as there are") << 3 << "row 0: shell";
    QTest::newRow("far too many") << 1000 << "row 0: shell";
    QTest::newRow("far too few") << -1000 << "row 0: shell";
}

/// Only the buttons change: the selection stays.
void CardVisualStudioTest::rowNumbers()
{
    QFETCH(int, row);
    QFETCH(QString, state);
    Shell shell("x86-win32");
    QCOMPARE(shell.list->count(), 3);
    shell.card.updateDevEnvIconIndex(row);
    QCOMPARE(shell.state(), state);
    shell.card.updateDevEnvIconIndex(0);
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
}

void CardVisualStudioTest::indexes()
{
    Shell shell("x86-win32");
    shell.card.updateDevEnvIconModelIndex(shell.list->model()->index(1, 0));
    QCOMPARE(shell.state(), QString("row 0: shell"));
    shell.card.updateDevEnvIconModelIndex(shell.list->model()->index(2, 0));
    QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
    shell.card.updateDevEnvIconModelIndex(QModelIndex());
    QCOMPARE(shell.state(), QString("row 0: shell"));
}

void CardVisualStudioTest::cardsAreIndependent()
{
    const Shell first("x86-win32");
    const Shell second("x86-win32");
    clickRow(*first.list, 1);
    QCOMPARE(first.state(), QString("row 1: shell"));
    QCOMPARE(second.state(), QString("row 0: shell, IDE"));
}

QTEST_MAIN(CardVisualStudioTest)

#include "CardVisualStudioTest_win.moc"
