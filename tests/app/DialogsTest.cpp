#include "app/ErrorDialog.h"
#include "app/MessageDialog.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QtTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace {

const QString html = "One <b>two</b> <a href=\"http://corvanta.invalid/x?y=1#z\">three</a>";

/// Records what is opened on the desktop instead of opening it.
class OpenedLinks : public QObject {
    Q_OBJECT

public:
    OpenedLinks() { QDesktopServices::setUrlHandler("http", this, "open"); }
    ~OpenedLinks() override { QDesktopServices::unsetUrlHandler("http"); }

    QList<QUrl> links;

public slots:
    void open(const QUrl &link) { links.append(link); }
};

void clickLink(QTextBrowser *browser)
{
    QTextCursor cursor = browser->document()->find("three");
    cursor.setPosition((cursor.selectionStart() + cursor.selectionEnd()) / 2);
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, Qt::NoModifier,
                      browser->cursorRect(cursor).center());
}

} // namespace

using MakeDialog = std::function<std::unique_ptr<QDialog>(QWidget *parent)>;
Q_DECLARE_METATYPE(MakeDialog)

class DialogsTest : public QObject {
    Q_OBJECT

    static void bothDialogs()
    {
        columns<MakeDialog, QString, QSize, QStringList, QString>("make", "name", "size", "row", "logLine");

        const MakeDialog error = [](QWidget *parent) { return std::make_unique<ErrorDialog>(html, parent); };
        const MakeDialog message = [](QWidget *parent) {
            return std::make_unique<MessageDialog>(html, parent);
        };
        row("error", error, "ErrorDialog", QSize(400, 186), QStringList{"pushButton", "textBrowser"},
            "ErrorDialog: " + html);
        row("message", message, "messagedialog", QSize(535, 290), QStringList{"textBrowser"},
            "MessageDialog: " + html);
    }

private slots:
    void initTestCase() { QApplication::setApplicationName("Dialog test"); }

    void isBuilt_data() { bothDialogs(); }

    void isBuilt()
    {
        QFETCH(MakeDialog, make);
        QWidget window;
        const std::unique_ptr<QDialog> dialog = make(&window);
        QCOMPARE(dialog->parentWidget(), &window);
        QTEST(dialog->objectName(), "name");
        QTEST(dialog->size(), "size");
        QCOMPARE(dialog->windowTitle(), QString("Dialog test"));
        QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowContextHelpButtonHint));

        const auto *column = qobject_cast<QVBoxLayout *>(dialog->layout());
        QVERIFY(column != nullptr);
        QCOMPARE(column->objectName(), QString("verticalLayout"));
        QCOMPARE(column->count(), 2);
        const auto *row = qobject_cast<QHBoxLayout *>(column->itemAt(0)->layout());
        QVERIFY(row != nullptr);
        QCOMPARE(row->objectName(), QString("horizontalLayout"));
        QStringList names;
        for (int i = 0; i < row->count(); ++i) {
            names.append(row->itemAt(i)->widget()->objectName());
        }
        QTEST(names, "row");
        const auto *buttons = qobject_cast<QDialogButtonBox *>(column->itemAt(1)->widget());
        QVERIFY(buttons != nullptr);
        QCOMPARE(buttons->objectName(), QString("buttonBox"));
        QCOMPARE(buttons->orientation(), Qt::Horizontal);
        QCOMPARE(buttons->standardButtons(), QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok));

        const auto *browser = dialog->findChild<QTextBrowser *>("textBrowser");
        QCOMPARE(browser->toPlainText(), QString("One two three"));
        QCOMPARE(browser->styleSheet(), QString("background-color: rgb(255, 255, 255, 0);\nborder: none;"));
        QVERIFY(browser->openExternalLinks());

        dialog->show();
        QCOMPARE(accessibleControls(*dialog), (QStringList{"Message", "OK"}));
    }

    void logsItsHtml_data() { bothDialogs(); }

    void logsItsHtml()
    {
        QFETCH(MakeDialog, make);
        const LogLines log;
        make(nullptr);
        QFETCH(QString, logLine);
        QCOMPARE(log.lines(), QStringList{logLine});
    }

    void linkOpensOutside_data() { bothDialogs(); }

    void linkOpensOutside()
    {
        QFETCH(MakeDialog, make);
        const OpenedLinks opened;
        const std::unique_ptr<QDialog> dialog = make(nullptr);
        dialog->show();
        QVERIFY(eventuallyExposed(dialog.get()));
        auto *browser = dialog->findChild<QTextBrowser *>("textBrowser");
        clickLink(browser);
        EVENTUALLY_COMPARE(opened.links, QList<QUrl>{QUrl("http://corvanta.invalid/x?y=1#z")});
        QVERIFY(dialog->isVisible());
        QCOMPARE(browser->toPlainText(), QString("One two three"));
    }

    void closing_data() { bothDialogs(); }

    void closing()
    {
        QFETCH(MakeDialog, make);
        const std::unique_ptr<QDialog> dialog = make(nullptr);
        const auto resultOf = [&](const std::function<void()> &close) {
            dialog->show();
            dialog->setResult(-1);
            close();
            return dialog->isVisible() ? -2 : dialog->result();
        };
        QPushButton *ok = dialog->findChild<QDialogButtonBox *>("buttonBox")->button(QDialogButtonBox::Ok);
        const int accepted = QDialog::Accepted;
        const int rejected = QDialog::Rejected;
        QCOMPARE(resultOf([&] { QTest::mouseClick(ok, Qt::LeftButton); }), accepted);
        QCOMPARE(resultOf([&] { QTest::keyClick(dialog.get(), Qt::Key_Escape); }), rejected);
        QCOMPARE(resultOf([&] { dialog->close(); }), rejected);
    }

    void placeholderButtonIsHidden()
    {
        ErrorDialog dialog(html);
        dialog.show();
        const auto *button = dialog.findChild<QPushButton *>("pushButton");
        QCOMPARE(button->text(), QString("PushButton"));
        QVERIFY(!button->isVisible());
    }
};

QTEST_MAIN(DialogsTest)

#include "DialogsTest.moc"
