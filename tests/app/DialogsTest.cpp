#include "app/ErrorDialog.h"
#include "app/MessageDialog.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/Desktop.h"
#include "tests/support/DialogUser.h"
#include "tests/support/Messages.h"
#include "tests/support/RichText.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"
#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QDialogButtonBox>
#include <QPushButton>

namespace {

const QString html = "One <b>two</b> <a href=\"http://corvanta.invalid/x?y=1#z\">three</a>";

using MakeDialog = std::unique_ptr<QDialog> (*)();

template <typename Dialog>
std::unique_ptr<QDialog> shownDialog()
{
    return std::make_unique<Shown<Dialog>>(html);
}

} // namespace

Q_DECLARE_METATYPE(MakeDialog)

class DialogsTest : public QObject {
    Q_OBJECT

    static void bothDialogs()
    {
        columns<MakeDialog>("make");

        row<MakeDialog>("ErrorDialog", &shownDialog<ErrorDialog>);
        row<MakeDialog>("MessageDialog", &shownDialog<MessageDialog>);
    }

private slots:
    void initTestCase() { QApplication::setApplicationName("Dialog test"); }

    void forms()
    {
        QWidget window;
        ErrorDialog error(html, &window);
        MessageDialog message(html, &window);
        QCOMPARE(error.parentWidget(), &window);
        QCOMPARE(message.parentWidget(), &window);
        COMPARE_SNAPSHOT(describeForm(error) + describeForm(message), "dialogs.tree");
    }

    void message_data() { bothDialogs(); }

    void message()
    {
        QFETCH(MakeDialog, make);
        const LogLines log;
        const std::unique_ptr<QDialog> dialog = make();
        QCOMPARE(log.lines(), QStringList{QTest::currentDataTag() + (": " + html)});
        QCOMPARE(dialog->findChild<QTextBrowser *>("textBrowser")->toPlainText(), QString("One two three"));
        // The button without a use is not among them.
        QCOMPARE(accessibleControls(*dialog), (QStringList{"Message", "OK"}));
    }

    void linkOpensOutside_data() { bothDialogs(); }

    void linkOpensOutside()
    {
        QFETCH(MakeDialog, make);
        const Desktop desktop("http");
        const std::unique_ptr<QDialog> dialog = make();
        auto *browser = dialog->findChild<QTextBrowser *>("textBrowser");
        clickOn(*browser, "three");
        EVENTUALLY_COMPARE(desktop.opened, QList<QUrl>{QUrl("http://corvanta.invalid/x?y=1#z")});
        QVERIFY(dialog->isVisible());
        QCOMPARE(browser->toPlainText(), QString("One two three"));
    }

    void closing_data() { bothDialogs(); }

    void closing()
    {
        QFETCH(MakeDialog, make);
        const std::unique_ptr<QDialog> dialog = make();
        QPushButton *ok = dialog->findChild<QDialogButtonBox *>("buttonBox")->button(QDialogButtonBox::Ok);
        const int accepted = QDialog::Accepted;
        const int rejected = QDialog::Rejected;
        QCOMPARE(resultOf(*dialog, [&] { QTest::mouseClick(ok, Qt::LeftButton); }), accepted);
        QCOMPARE(resultOf(*dialog, [&] { QTest::keyClick(dialog.get(), Qt::Key_Escape); }), rejected);
        QCOMPARE(resultOf(*dialog, [&] { dialog->close(); }), rejected);
    }
};

QTEST_MAIN(DialogsTest)
#include "DialogsTest.moc"
