#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardButtons.h"
#include "tests/card/CardStudios.h"
#include "tests/support/Rows.h"

namespace {

/// A shown card with its Visual Studio list and buttons.
struct Shell {
    explicit Shell(const QString &arch) : card(progressInstallation(arch)) { card.show(); }

    /// The selection and the visible buttons, such as "row 0: shell, IDE".
    QString state() const
    {
        QStringList rows;
        for (const QModelIndex &index : list.selectionModel()->selectedRows()) {
            rows.append(QString::number(index.row()));
        }
        QStringList shown;
        if (button(card, "pbShell")->isVisible()) {
            shown.append("shell");
        }
        if (ide.isVisible()) {
            shown.append("IDE");
        }
        return "row " + rows.join('+') + ": " + shown.join(", ");
    }

    SingleHalconVersionFrame card;
    QListWidget &list = studioList(card);
    QPushButton &ide = *button(card, "pbDevEnv");
};

} // namespace

class CardVisualStudioTest : public QObject {
    Q_OBJECT

private slots:
    void init() { studios.installIdes(); }

    void rows_data()
    {
        columns<QString, QStringList>("arch", "texts");

        const QStringList rows32{"Visual Studio 14.0 (Professional) (x86)",
                                 "Visual Studio 12.0 (Professional) (x86)",
                                 "Visual Studio 11.0 (Express Edition) (x86)"};
        row("x64", "x64-win64",
            QStringList{"Visual Studio 14.0 (Professional) (amd64)",
                        "Visual Studio 11.0 (Express Edition) (amd64)"});
        row("x86", "x86-win32", rows32);
        row("SSE2", "x86sse2-win32", rows32);
    }

    void rows()
    {
        QFETCH(QString, arch);
        const Shell shell(arch);
        QTEST(rowTexts(shell.list), "texts");
        QCOMPARE(shell.list.currentRow(), 0);
        QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
        const QPushButton &shellButton = *button(shell.card, "pbShell");
        QCOMPARE(shownIcon(shellButton), resource(":/shell.png", shellButton.iconSize()));
        QCOMPARE(shownIcon(shell.ide), fileIcon(studios.ide14(), shell.ide.iconSize()));
    }

    void clicksOnRows()
    {
        const Shell shell("x86-win32");
        clickRow(shell.list, 1);
        QCOMPARE(shell.state(), QString("row 1: shell"));
        QVERIFY(shell.ide.icon().isNull());
        clickRow(shell.list, 2);
        QCOMPARE(shell.state(), QString("row 2: shell, IDE"));
        QCOMPARE(shownIcon(shell.ide), fileIcon(studios.ide11(), shell.ide.iconSize()));
        clickRow(shell.list, 0);
        QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
    }

    void clickSeesWhatIsOnDiskNow()
    {
        const Shell shell("x64-win64");
        QVERIFY(QFile::remove(studios.ide14()));
        QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
        clickRow(shell.list, 0);
        QCOMPARE(shell.state(), QString("row 0: shell"));
    }

    /// Only the buttons change: the selection stays.
    void rowNumbers()
    {
        Shell shell("x86-win32");
        shell.card.updateDevEnvIconIndex(1);
        QCOMPARE(shell.state(), QString("row 0: shell"));
        shell.card.updateDevEnvIconModelIndex(shell.list.model()->index(2, 0));
        QCOMPARE(shell.state(), QString("row 0: shell, IDE"));
        shell.card.updateDevEnvIconModelIndex(QModelIndex());
        QCOMPARE(shell.state(), QString("row 0: shell"));
    }

    void cardsAreIndependent()
    {
        const Shell first("x86-win32");
        const Shell second("x86-win32");
        clickRow(first.list, 1);
        QCOMPARE(first.state(), QString("row 1: shell"));
        QCOMPARE(second.state(), QString("row 0: shell, IDE"));
    }

private:
    CardStudios studios;
};

QTEST_MAIN(CardVisualStudioTest)
#include "CardVisualStudioTest_win.moc"
