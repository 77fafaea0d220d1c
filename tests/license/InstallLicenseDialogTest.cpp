#include "license/InstallLicenseDialog.h"
#include "base/ApplicationIdentity.h"
#include "license/InstallLicenseDropFrame.h"
#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/DialogUser.h"
#include "tests/support/Rows.h"
#include "tests/support/WidgetTree.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSettings>
#include <QTextBlock>
#include <QTextEdit>
#include <QtTest>

namespace {

const QString lastDirectoryKey = "lastdir_license";

QString lastDirectory()
{
    return QSettings().value(lastDirectoryKey, "(none)").toString();
}

QString shownFile(const InstallLicenseDialog &dialog)
{
    return dialog.findChild<QLabel *>("labelSelectedFile")->text();
}

QPushButton *button(const InstallLicenseDialog &dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>("buttonBox")->button(which);
}

/// The parts of the explanation in italics.
QString italics(const QTextEdit &textEdit)
{
    QString text;
    const QTextBlock paragraph = textEdit.document()->firstBlock();
    for (auto part = paragraph.begin(); !part.atEnd(); ++part) {
        if (part.fragment().charFormat().fontItalic()) {
            text += part.fragment().text();
        }
    }
    return text;
}

} // namespace

class InstallLicenseDialogTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        setApplicationIdentity();
        // Only Qt's own file dialog has widgets that a test can use.
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    void init() { QSettings().remove(lastDirectoryKey); }

    void widgets()
    {
        const InstallLicenseDialog dialog("C:\\H\\license");
        // The button box creates its buttons itself.
        QCOMPARE(
            describeWidgets(dialog).mid(0, 8).join('\n'),
            QString("InstallLicenseDialog InstallLicenseDialog Preferred/Preferred\n"
                    "QTextEdit textEdit Expanding/Expanding in verticalLayout at 0\n"
                    "QPushButton pbSelectFile \"Select file...\" Minimum/Fixed in horizontalLayout_2 at 0\n"
                    "QLabel label \"or\" Preferred/Preferred in verticalLayout at 2\n"
                    "InstallLicenseDropFrame labelDrop \"Drop license file here\" min 0x80 "
                    "Preferred/Expanding in verticalLayout at 3\n"
                    "QLabel label_2 \"Selected file:\" Preferred/Preferred in horizontalLayout at 0\n"
                    "QLabel labelSelectedFile \"(none)\" Expanding/Preferred in horizontalLayout at 1\n"
                    "QDialogButtonBox buttonBox Expanding/Fixed in verticalLayout at 5"));
        QCOMPARE(dialog.findChildren<QPushButton *>().size(), 3);
        QCOMPARE(dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 7);
    }

    void layouts()
    {
        const InstallLicenseDialog dialog("C:\\H\\license");
        // Defaults of the style differ between machines.
        for (QLayout *layout : dialog.findChildren<QLayout *>()) {
            layout->setSpacing(0);
            layout->setContentsMargins(0, 0, 0, 0);
        }
        QCOMPARE(
            describeLayouts(*dialog.layout()).mid(0, 3).join('\n'),
            QString("QVBoxLayout verticalLayout spacing 0 margins 0,0,0,0: "
                    "textEdit | horizontalLayout_2 | label | labelDrop | horizontalLayout | buttonBox\n"
                    "QHBoxLayout horizontalLayout_2 spacing 0 margins 0,0,0,0: pbSelectFile\n"
                    "QHBoxLayout horizontalLayout spacing 0 margins 0,0,0,0: label_2 | labelSelectedFile"));
    }

    void appearance()
    {
        QWidget window;
        const InstallLicenseDialog dialog("C:\\H\\license", &window);
        QCOMPARE(dialog.parentWidget(), &window);
        QCOMPARE(dialog.size(), QSize(400, 339));
        QCOMPARE(dialog.windowTitle(), QString("Install HALCON license"));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
        QVERIFY(dialog.windowFlags().testFlag(Qt::Dialog));

        const auto *textEdit = dialog.findChild<QTextEdit *>("textEdit");
        QVERIFY(textEdit->isReadOnly());
        QCOMPARE(
            textEdit->styleSheet(),
            QString("border-color: qlineargradient(spread:pad, x1:0, y1:0, x2:1, y2:0, stop:0 rgba(0, 0, 0, "
                    "255), stop:1 rgba(255, 255, 255, 255));"));
        const auto *labelDrop = dialog.findChild<InstallLicenseDropFrame *>("labelDrop");
        QCOMPARE(labelDrop->font().pointSize(), 14);
        QCOMPARE(labelDrop->styleSheet(), QString("background-color: #DDFFDD;"));
        QCOMPARE(labelDrop->frameShape(), QFrame::Box);
        QVERIFY(labelDrop->acceptDrops());
        QCOMPARE(dialog.findChild<QLabel *>("labelSelectedFile")->styleSheet(),
                 QString("font-weight: bold;"));
        const auto *buttonBox = dialog.findChild<QDialogButtonBox *>("buttonBox");
        QCOMPARE(buttonBox->orientation(), Qt::Horizontal);
        QCOMPARE(buttonBox->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    }

    void explanation_data()
    {
        columns<QString>("targetDirectory");

        row("spaces", "C:\\Program Files\\HALCON 20.11\\license");
        row("ampersand", "C:\\Black & White\\license");
        row("what looks like a tag", "C:\\<b>HALCON<br>\\<license>");
        row("what looks like a placeholder", "C:\\%1\\%2\\license");
        row("forward slashes", "C:/H/license");
    }

    void explanation()
    {
        QFETCH(QString, targetDirectory);
        const InstallLicenseDialog dialog(targetDirectory);
        const auto *textEdit = dialog.findChild<QTextEdit *>("textEdit");
        QCOMPARE(textEdit->toPlainText(),
                 "You are about to install a HALCON license file. These files are usually named like "
                 "license_1234567.dat. A copy of the license file will be put into directory \"" +
                     QDir::toNativeSeparators(targetDirectory) + "\".");
        QCOMPARE(textEdit->document()->blockCount(), 1);
        QCOMPARE(italics(*textEdit), QString("license_1234567.dat"));
    }

    void setPath_data()
    {
        columns<QString, QString>("name", "directoryName");

        row("plain", "licences/license.dat", "licences");
        row("signs", "a & <b>/%1 &amp; <c>.dat", "a & <b>");
    }

    void setPath()
    {
        QFETCH(QString, name);
        QFETCH(QString, directoryName);
        InstallLicenseDialog dialog("C:\\H\\license");

        dialog.set_path(files.path(name));

        QCOMPARE(dialog.selectedFile(), files.native(name));
        QCOMPARE(shownFile(dialog), files.native(name));
        // The name is shown unchanged, whatever it looks like.
        QCOMPARE(dialog.findChild<QLabel *>("labelSelectedFile")->textFormat(), Qt::PlainText);
        QCOMPARE(dialog.droppedContents(), QString());
        QCOMPARE(lastDirectory(), files.native(directoryName));
    }

    void fileDialogStartsInTheLastDirectory_data()
    {
        columns<bool, bool>("stored", "exists");

        row("stored", true, true);
        row("none", false, false);
    }

    void fileDialogStartsInTheLastDirectory()
    {
        QFETCH(bool, stored);
        QFETCH(bool, exists);
        const QString last = files.native("my licences");
        if (exists) {
            QVERIFY(QDir().mkpath(files.path("my licences")));
        }
        if (stored) {
            QSettings().setValue(lastDirectoryKey, last);
        }
        // Without a stored directory Qt chooses one.
        const QString expected = exists
                                     ? files.path("my licences")
                                     : QFileDialog(nullptr, "", stored ? last : QString()).directory().path();
        InstallLicenseDialog dialog("C:\\H\\license");
        QString started;
        const DialogUser<QFileDialog> user([&](QFileDialog &fileDialog) {
            started = fileDialog.directory().path();
            fileDialog.reject();
        });
        QTest::ignoreMessage(QtDebugMsg, "\"Quorvik Solutions\" \"Corvanta for HALCON\"");

        dialog.show();
        QTest::mouseClick(dialog.findChild<QPushButton *>("pbSelectFile"), Qt::LeftButton);

        QVERIFY(user.wasUsed());
        QCOMPARE(started, expected);
    }

    void fileChosenInTheFileDialog()
    {
        files.write("my licences/license_1.dat", "x");
        InstallLicenseDialog dialog("C:\\H\\license");
        dialog.set_path_and_content(files.path("dropped.dat"), "contents");
        QWidget *parent = nullptr;
        QString title;
        QStringList filters;
        const DialogUser<QFileDialog> user([&](QFileDialog &fileDialog) {
            parent = fileDialog.parentWidget();
            title = fileDialog.windowTitle();
            filters = fileDialog.nameFilters();
            fileDialog.setDirectory(files.path("my licences"));
            fileDialog.selectFile(files.path("my licences/license_1.dat"));
            QTest::mouseClick(
                fileDialog.findChild<QDialogButtonBox *>("buttonBox")->button(QDialogButtonBox::Open),
                Qt::LeftButton);
        });

        dialog.show();
        QTest::mouseClick(dialog.findChild<QPushButton *>("pbSelectFile"), Qt::LeftButton);

        QVERIFY(user.wasUsed());
        QCOMPARE(parent, &dialog);
        QCOMPARE(title, QString("Open license file"));
        QCOMPARE(filters, QStringList{"License files (*.dat)"});
        QCOMPARE(dialog.selectedFile(), files.native("my licences/license_1.dat"));
        QCOMPARE(shownFile(dialog), files.native("my licences/license_1.dat"));
        QCOMPARE(dialog.droppedContents(), QString());
        QCOMPARE(lastDirectory(), files.native("my licences"));
    }

    void fileDialogCancelled()
    {
        InstallLicenseDialog dialog("C:\\H\\license");
        dialog.set_path_and_content(files.path("dropped.dat"), "contents");
        const DialogUser<QFileDialog> user([](QFileDialog &fileDialog) {
            QTest::mouseClick(
                fileDialog.findChild<QDialogButtonBox *>("buttonBox")->button(QDialogButtonBox::Cancel),
                Qt::LeftButton);
        });

        dialog.show();
        QTest::mouseClick(dialog.findChild<QPushButton *>("pbSelectFile"), Qt::LeftButton);

        QVERIFY(user.wasUsed());
        QCOMPARE(dialog.selectedFile(), files.native("dropped.dat"));
        QCOMPARE(shownFile(dialog), files.native("dropped.dat"));
        QCOMPARE(dialog.droppedContents(), QString("contents"));
        QCOMPARE(lastDirectory(), QString("(none)"));
    }

    void drop()
    {
        files.write("dropped/license.dat", "one\ntwo\n");
        InstallLicenseDialog dialog("C:\\H\\license");
        dialog.set_path(files.path("chosen/license.dat"));
        dialog.show();

        QVERIFY(dropFiles(*dialog.findChild<InstallLicenseDropFrame *>("labelDrop"),
                          {QUrl::fromLocalFile(files.path("dropped/license.dat"))}));

        QCOMPARE(dialog.selectedFile(), files.native("dropped/license.dat"));
        QCOMPARE(shownFile(dialog), files.native("dropped/license.dat"));
        QCOMPARE(dialog.droppedContents(), QString("one\ntwo\n"));
        QCOMPARE(lastDirectory(), files.native("chosen"));
        QVERIFY(dialog.isVisible());

        // When the file cannot be read, the one dropped before stays.
        QVERIFY(dropFiles(*dialog.findChild<InstallLicenseDropFrame *>("labelDrop"),
                          {QUrl::fromLocalFile(files.path("missing.dat"))}));
        QCOMPARE(dialog.selectedFile(), files.native("dropped/license.dat"));
        QCOMPARE(dialog.droppedContents(), QString("one\ntwo\n"));
    }

    void okAndCancel()
    {
        InstallLicenseDialog dialog("C:\\H\\license");
        const auto resultOf = [&](const std::function<void()> &close) {
            dialog.show();
            dialog.setResult(-1);
            close();
            return dialog.isVisible() ? -2 : dialog.result();
        };
        const int accepted = QDialog::Accepted;
        const int rejected = QDialog::Rejected;
        // A file need not be selected.
        QCOMPARE(resultOf([&] { QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton); }),
                 accepted);
        QCOMPARE(
            resultOf([&] { QTest::mouseClick(button(dialog, QDialogButtonBox::Cancel), Qt::LeftButton); }),
            rejected);
        QCOMPARE(resultOf([&] { QTest::keyClick(&dialog, Qt::Key_Escape); }), rejected);
    }

    void controlsHaveNames()
    {
        InstallLicenseDialog dialog("C:\\HALCON\\license");
        dialog.show();
        QStringList names = accessibleControls(dialog);
        // The order of the two buttons at the bottom is the platform's.
        names.sort();
        QCOMPARE(names.replaceInStrings("&", "").join(", "),
                 QString("About license files, Cancel, OK, Select file..."));
    }

private:
    const LicenseFiles files;
};

QTEST_MAIN(InstallLicenseDialogTest)

#include "InstallLicenseDialogTest.moc"
