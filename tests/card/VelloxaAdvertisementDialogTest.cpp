#include "card/VelloxaAdvertisementDialog.h"

#include "base/MakerAddresses.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Patience.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QPointer>
#include <QTextBlock>
#include <QTextBrowser>
#include <QtTest>
#include <QVBoxLayout>

namespace {

const QString picturePath = ":/velloxa-256.png";

/// The runs of equally formatted text, in order.
QList<QTextFragment> fragments(const QTextDocument &document)
{
    QList<QTextFragment> result;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            result.append(piece.fragment());
        }
    }
    return result;
}

/// The runs that are a link.
QList<QTextFragment> links(const QTextDocument &document)
{
    QList<QTextFragment> result;
    for (const QTextFragment &piece : fragments(document)) {
        if (piece.charFormat().isAnchor()) {
            result.append(piece);
        }
    }
    return result;
}

} // namespace

/// Receives addresses instead of the system's browser.
class AddressReceiver : public QObject {
    Q_OBJECT

public:
    AddressReceiver() { QDesktopServices::setUrlHandler("http", this, "receive"); }
    ~AddressReceiver() override { QDesktopServices::unsetUrlHandler("http"); }

    QList<QUrl> addresses;

public slots:
    void receive(const QUrl &address) { addresses.append(address); }
};

class VelloxaAdvertisementDialogTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void window();
    void contents();
    void text();
    void textIsOfNinePoints();
    void picture();
    void link();
    void linkOpensInTheSystemsBrowser();
    void modelessAndGoneWithItsWindow();
    void translated();

private:
    QTextBrowser *browser() const;

    QScopedPointer<VelloxaAdvertisementDialog> dialog;
};

void VelloxaAdvertisementDialogTest::init()
{
    dialog.reset(new VelloxaAdvertisementDialog);
    QVERIFY(browser() != nullptr);
}

void VelloxaAdvertisementDialogTest::cleanup()
{
    dialog.reset();
}

QTextBrowser *VelloxaAdvertisementDialogTest::browser() const
{
    return dialog->findChild<QTextBrowser *>("textBrowser");
}

void VelloxaAdvertisementDialogTest::window()
{
    QVERIFY2(QDialog().windowFlags().testFlag(Qt::WindowContextHelpButtonHint),
             "dialogs have it of themselves");
    QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    QVERIFY(dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QCOMPARE(dialog->windowTitle(), "Velloxa");
    QCOMPARE(dialog->size(), QSize(701, 526));
    dialog->show();
    QCOMPARE(accessibleControls(*dialog), QStringList{"About Velloxa"});
}

void VelloxaAdvertisementDialogTest::contents()
{
    auto *const layout = qobject_cast<QVBoxLayout *>(dialog->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->objectName(), "verticalLayout");
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), browser());
    QVERIFY(browser()->isReadOnly());
}

void VelloxaAdvertisementDialogTest::text()
{
    const QString picture(QChar::ObjectReplacementCharacter);
    const QString firstReason =
        "Velloxa is the perfect combination for MVTec HALCON to deploy your algorithms "
        "fast and easy to customer machines.";
    const QString lastReason =
        "In addition, the Professional Edition runs your scripts on multiple images during "
        "development, leading to an unprecedented speed in evaluating your algorithm.";
    const QStringList lines{
        picture + "It seems that Velloxa is not available on this machine.",
        "",
        firstReason,
        "No more C++ or C# development needed.",
        lastReason,
        "",
        "Quorvik Solutions Velloxa Demo can be downloaded for free at",
        MakerAddresses::velloxaDownloads(),
        "",
        "Please restart this program after the installation of Velloxa has finished.",
    };
    QCOMPARE(browser()->toPlainText().split('\n'), lines);
}

void VelloxaAdvertisementDialogTest::textIsOfNinePoints()
{
    const QList<QTextFragment> pieces = fragments(*browser()->document());
    // Text of another size would be a run of its own.
    QVERIFY(pieces.size() >= 4);
    for (const QTextFragment &piece : pieces) {
        QVERIFY2(piece.charFormat().isImageFormat() || piece.charFormat().fontPointSize() == 9.0,
                 qPrintable(piece.text()));
    }
}

void VelloxaAdvertisementDialogTest::picture()
{
    QCOMPARE(QImage(picturePath).size(), QSize(256, 256));

    const QTextFragment first = fragments(*browser()->document()).constFirst();
    QVERIFY(first.charFormat().isImageFormat());
    QCOMPARE(first.charFormat().toImageFormat().name(), picturePath);

    // A picture that cannot be loaded is shown as a small symbol.
    dialog->show();
    QVERIFY(eventuallyExposed(dialog.data()));
    const QTextDocument &document = *browser()->document();
    QVERIFY(document.documentLayout()->blockBoundingRect(document.begin()).height() > 256);
    QVERIFY(document.begin().layout()->lineAt(0).height() >= 256);
}

void VelloxaAdvertisementDialogTest::link()
{
    QVERIFY(MakerAddresses::velloxaDownloads().endsWith("/downloads.html"));

    const QList<QTextFragment> found = links(*browser()->document());
    QCOMPARE(found.size(), 1);
    const QTextCharFormat format = found.constFirst().charFormat();
    QCOMPARE(found.constFirst().text(), MakerAddresses::velloxaDownloads());
    QCOMPARE(format.anchorHref(), MakerAddresses::velloxaDownloads());
    QCOMPARE(format.foreground().color(), QColor("#0000ff"));
    QVERIFY(format.fontUnderline());
}

void VelloxaAdvertisementDialogTest::linkOpensInTheSystemsBrowser()
{
    const AddressReceiver systemsBrowser;
    dialog->show();
    QVERIFY(eventuallyExposed(dialog.data()));
    const QString before = browser()->toPlainText();

    const QTextFragment link = links(*browser()->document()).constFirst();
    QTextCursor cursor(browser()->document());
    cursor.setPosition(link.position() + link.length() / 2);
    browser()->setTextCursor(cursor);
    browser()->ensureCursorVisible();
    QTest::mouseClick(browser()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      browser()->cursorRect(cursor).center());

    EVENTUALLY_COMPARE(systemsBrowser.addresses, QList<QUrl>{QUrl(MakerAddresses::velloxaDownloads())});
    QCOMPARE(browser()->toPlainText(), before);
}

void VelloxaAdvertisementDialogTest::modelessAndGoneWithItsWindow()
{
    const QPointer<VelloxaAdvertisementDialog> shown = dialog.take();
    QVERIFY(shown->parent() == nullptr);
    shown->setAttribute(Qt::WA_DeleteOnClose);

    shown->show();
    QVERIFY(eventuallyExposed(shown.data()));
    QVERIFY(!shown->isModal());

    shown->close();
    EVENTUALLY_VERIFY(shown.isNull());
}

void VelloxaAdvertisementDialogTest::translated()
{
    const MarkingTranslator translator;
    dialog.reset(new VelloxaAdvertisementDialog);
    QVERIFY(browser()->toPlainText().contains("[No more C++ or C# development needed.]"));
}

QTEST_MAIN(VelloxaAdvertisementDialogTest)

#include "VelloxaAdvertisementDialogTest.moc"
