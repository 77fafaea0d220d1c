#include "card/VelloxaAdvertisementDialog.h"
#include "base/MakerAddresses.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/Desktop.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/Patience.h"
#include "tests/support/RichText.h"
#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBrowser>

class VelloxaAdvertisementDialogTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        dialog = std::make_unique<VelloxaAdvertisementDialog>();
        browser = dialog->findChild<QTextBrowser *>("textBrowser");
        QVERIFY(browser != nullptr);
    }

    void cleanup() { dialog.reset(); }

    void form()
    {
        COMPARE_SNAPSHOT(describeForm(*dialog), "VelloxaAdvertisementDialog.tree");
        dialog->show();
        QCOMPARE(accessibleControls(*dialog), QStringList{"About Velloxa"});
    }

    void text()
    {
        const QString address = MakerAddresses::velloxaDownloads();
        QVERIFY(address.endsWith("/downloads.html"));
        const QString picture(QChar::ObjectReplacementCharacter);
        const QStringList runs{
            '"' + picture + '"',
            "\"It seems that Velloxa is not available on this machine.\n\n"
            "Velloxa is the perfect combination for MVTec HALCON to deploy your algorithms fast and easy to "
            "customer machines.\n"
            "No more C++ or C# development needed.\n"
            "In addition, the Professional Edition runs your scripts on multiple images during development, "
            "leading to an unprecedented speed in evaluating your algorithm.\n\n"
            "Quorvik Solutions Velloxa Demo can be downloaded for free at\n\"",
            '"' + address + "\" underlined #0000ff -> " + address,
            "\"\n\nPlease restart this program after the installation of Velloxa has finished.\"",
        };
        QCOMPARE(richTextRuns(*browser->document()).join('|'), runs.join('|'));
    }

    void textIsOfNinePoints()
    {
        const QTextBlock block = browser->document()->begin();
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextCharFormat format = run.fragment().charFormat();
            QVERIFY2(format.isImageFormat() || format.fontPointSize() == 9.0,
                     qPrintable(run.fragment().text()));
        }
    }

    void picture()
    {
        const QString path = ":/velloxa-256.png";
        QCOMPARE(QImage(path).size(), QSize(256, 256));
        const QTextBlock block = browser->document()->begin();
        QCOMPARE(block.begin().fragment().charFormat().toImageFormat().name(), path);

        // A picture that cannot be loaded is shown as a small symbol.
        dialog->show();
        QVERIFY(eventuallyExposed(dialog.get()));
        QVERIFY(block.layout()->lineAt(0).height() >= 256);
    }

    void linkOpensInTheSystemsBrowser()
    {
        const Desktop systemsBrowser("http");
        dialog->show();
        QVERIFY(eventuallyExposed(dialog.get()));
        const QString before = browser->toPlainText();

        clickOn(*browser, MakerAddresses::velloxaDownloads());

        EVENTUALLY_COMPARE(systemsBrowser.opened, QList<QUrl>{QUrl(MakerAddresses::velloxaDownloads())});
        QCOMPARE(browser->toPlainText(), before);
    }

    void translated()
    {
        const MarkingTranslator translator;
        const VelloxaAdvertisementDialog marked;
        QVERIFY(marked.findChild<QTextBrowser *>("textBrowser")
                    ->toPlainText()
                    .contains("[No more C++ or C# development needed.]"));
    }

private:
    std::unique_ptr<VelloxaAdvertisementDialog> dialog;
    QTextBrowser *browser = nullptr;
};

QTEST_MAIN(VelloxaAdvertisementDialogTest)
#include "VelloxaAdvertisementDialogTest.moc"
