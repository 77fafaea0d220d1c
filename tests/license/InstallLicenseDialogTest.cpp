#include "license/InstallLicenseDialog.h"
#include "base/ApplicationIdentity.h"
#include "license/InstallLicenseDropFrame.h"
#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/DialogUser.h"
#include "tests/support/RichText.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"
#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
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

/// Presses pbSelectFile, and a button of the file dialog after @p use.
bool selectFile(InstallLicenseDialog &dialog, QDialogButtonBox::StandardButton pressed,
                const std::function<void(QFileDialog &)> &use)
{
    const DialogUser<QFileDialog> user([&](QFileDialog &fileDialog) {
        use(fileDialog);
        QTest::mouseClick(fileDialog.findChild<QDialogButtonBox *>("buttonBox")->button(pressed),
                          Qt::LeftButton);
    });
    QTest::mouseClick(dialog.findChild<QPushButton *>("pbSelectFile"), Qt::LeftButton);
    return user.wasUsed();
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

    void form()
    {
        QWidget window;
        InstallLicenseDialog dialog("C:\\H\\license", &window);
        QCOMPARE(dialog.parentWidget(), &window);
        COMPARE_SNAPSHOT(describeForm(dialog), "InstallLicenseDialog.tree");
    }

    void explanation_data()
    {
        columns<QString>("targetDirectory");

        row("ampersand", "C:\\Black & White\\license");
        row("what looks like a tag", "C:\\<b>HALCON<br>\\<license>");
        row("what looks like a placeholder", "C:\\%1\\%2\\license");
        row("forward slashes", "C:/H/license");
    }

    void explanation()
    {
        QFETCH(QString, targetDirectory);
        const InstallLicenseDialog dialog(targetDirectory);
        const QTextDocument *document = dialog.findChild<QTextEdit *>("textEdit")->document();
        QCOMPARE(
            richTextRuns(*document),
            (QStringList{
                "\"You are about to install a HALCON license file. These files are usually named like \"",
                "\"license_1234567.dat\" italic",
                "\". A copy of the license file will be put into directory \"" +
                    QDir::toNativeSeparators(targetDirectory) + "\".\""}));
        QCOMPARE(document->blockCount(), 1);
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

    void fileDialogStartsInTheLastDirectory()
    {
        // Without a stored directory Qt chooses one.
        QString expected = QFileDialog(nullptr, "").directory().path();
        Shown<InstallLicenseDialog> dialog("C:\\H\\license");
        QString started;
        for (const QString name : {"", "my licences"}) {
            if (!name.isEmpty()) {
                QVERIFY(QDir().mkpath(files.path(name)));
                QSettings().setValue(lastDirectoryKey, files.native(name));
                expected = files.path(name);
            }
            QTest::ignoreMessage(QtDebugMsg, "\"Quorvik Solutions\" \"Corvanta for HALCON\"");
            QVERIFY(selectFile(dialog, QDialogButtonBox::Cancel, [&](const QFileDialog &fileDialog) {
                started = fileDialog.directory().path();
            }));
            QCOMPARE(started, expected);
        }
    }

    void fileChosenInTheFileDialog()
    {
        files.write("my licences/license_1.dat", "x");
        Shown<InstallLicenseDialog> dialog("C:\\H\\license");
        dialog.set_path_and_content(files.path("dropped.dat"), "contents");

        QVERIFY(selectFile(dialog, QDialogButtonBox::Open, [&](QFileDialog &fileDialog) {
            QCOMPARE(fileDialog.parentWidget(), &dialog);
            QCOMPARE(fileDialog.windowTitle(), QString("Open license file"));
            QCOMPARE(fileDialog.nameFilters(), QStringList{"License files (*.dat)"});
            fileDialog.setDirectory(files.path("my licences"));
            fileDialog.selectFile(files.path("my licences/license_1.dat"));
        }));

        QCOMPARE(dialog.selectedFile(), files.native("my licences/license_1.dat"));
        QCOMPARE(shownFile(dialog), files.native("my licences/license_1.dat"));
        QCOMPARE(dialog.droppedContents(), QString());
        QCOMPARE(lastDirectory(), files.native("my licences"));
    }

    void fileDialogCancelled()
    {
        Shown<InstallLicenseDialog> dialog("C:\\H\\license");
        dialog.set_path_and_content(files.path("dropped.dat"), "contents");

        QVERIFY(selectFile(dialog, QDialogButtonBox::Cancel, [](const QFileDialog &) {}));

        QCOMPARE(dialog.selectedFile(), files.native("dropped.dat"));
        QCOMPARE(shownFile(dialog), files.native("dropped.dat"));
        QCOMPARE(dialog.droppedContents(), QString("contents"));
        QCOMPARE(lastDirectory(), QString("(none)"));
    }

    void drop()
    {
        files.write("dropped/license.dat", "one\ntwo\n");
        Shown<InstallLicenseDialog> dialog("C:\\H\\license");
        dialog.set_path(files.path("chosen/license.dat"));
        auto &area = *dialog.findChild<InstallLicenseDropFrame *>("labelDrop");

        // When the second file cannot be read, the first one stays.
        for (const char *name : {"dropped/license.dat", "missing.dat"}) {
            QVERIFY(dropFiles(area, {files.url(name)}));
            QCOMPARE(dialog.selectedFile(), files.native("dropped/license.dat"));
            QCOMPARE(shownFile(dialog), files.native("dropped/license.dat"));
            QCOMPARE(dialog.droppedContents(), QString("one\ntwo\n"));
            QCOMPARE(lastDirectory(), files.native("chosen"));
            QVERIFY(dialog.isVisible());
        }
    }

    void okAndCancel()
    {
        InstallLicenseDialog dialog("C:\\H\\license");
        const auto press = [&](QDialogButtonBox::StandardButton which) {
            QTest::mouseClick(dialog.findChild<QDialogButtonBox *>("buttonBox")->button(which),
                              Qt::LeftButton);
        };
        const int accepted = QDialog::Accepted;
        const int rejected = QDialog::Rejected;
        // A file need not be selected.
        QCOMPARE(resultOf(dialog, [&] { press(QDialogButtonBox::Ok); }), accepted);
        QCOMPARE(resultOf(dialog, [&] { press(QDialogButtonBox::Cancel); }), rejected);
        QCOMPARE(resultOf(dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }), rejected);
    }

    void controlsHaveNames()
    {
        Shown<InstallLicenseDialog> dialog("C:\\H\\license");
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
