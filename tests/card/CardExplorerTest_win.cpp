#include "card/SingleHalconVersionFrame.h"
#include "tests/support/Desktop.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/RichText.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

#include <shellapi.h>

namespace {

/// A command line as the child splits it, without the program's name.
QStringList argumentsOf(const QString &commandLine)
{
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> arguments(
        CommandLineToArgvW(reinterpret_cast<LPCWSTR>(commandLine.utf16()), &count), &LocalFree);
    QStringList result;
    for (int i = 1; i < count; ++i) {
        result.append(QString::fromWCharArray(arguments.get()[i]));
    }
    return result;
}

} // namespace

/// Windows first looks for a program in the directory of the one that starts it: a recording program named
/// explorer.exe is there. This test program therefore has a directory of its own.
class CardExplorerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // An aborted run may have left it.
        QFile::remove(explorer());
        EchoChild::copyTo(explorer());
    }

    void cleanupTestCase()
    {
        // The program cannot be removed until the child has ended.
        EVENTUALLY_VERIFY(QFile::remove(explorer()) || !QFile::exists(explorer()));
    }

    void directoryLinks_data()
    {
        columns<QString, QString, QString, QString>("link", "installDir", "exampleRoot", "opened");

        row("installation", "file:///installDir", "C:\\windows", "C:\\users", "C:\\windows");
        row("examples, with spaces and a backslash at the end", "file:///exampleRoot", "C:\\windows",
            "C:\\my examples\\", "C:\\my examples\\");
        row("missing, with signs that mean something to a shell", "file:///installDir",
            "C:\\A & B 100% %PATH% ^ (x86)", "", "C:\\A & B 100% %PATH% ^ (x86)");
        row("not ASCII", "file:///installDir", "C:\\Gr\u00f6\u00dfe \u691c\u67fb", "",
            "C:\\Gr\u00f6\u00dfe \u691c\u67fb");
        row("forward slashes stay", "file:///exampleRoot", "", "C:/users/Public", "C:/users/Public");
        row("link with encoded letters", "file:///install%44ir", "C:\\windows", "", "C:\\windows");
    }

    void directoryLinks()
    {
        QFETCH(QString, link);
        QFETCH(QString, installDir);
        QFETCH(QString, exampleRoot);
        QFETCH(QString, opened);
        SingleHalconVersionFrame card(installationIn(installDir, "x64-win64", exampleRoot));
        const EchoChild child;
        const Desktop desktop("file");
        const MessageBoxes boxes;

        card.textBrowserClick(QUrl(link));

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(QDir::fromNativeSeparators(found.executable), explorer());
        QCOMPARE(argumentsOf(found.commandLine), QStringList{opened});
        QCOMPARE(desktop.opened, QList<QUrl>());
        QCOMPARE(boxes.shown().size(), 0);
    }

    void clickOnLink()
    {
        const QTemporaryDir machine;
        const QString directory = QDir::toNativeSeparators(machine.path());
        const Shown<SingleHalconVersionFrame> card(installationIn(directory));
        auto *details = card.findChild<QTextBrowser *>("textBrowser");
        const QString html = details->toHtml();
        const EchoChild child;
        const Desktop desktop("file");

        clickOn(*details, directory);

        EchoRecord found;
        QVERIFY(child.waitForRecord(found));
        QCOMPARE(QDir::fromNativeSeparators(found.executable), explorer());
        QCOMPARE(argumentsOf(found.commandLine), QStringList{directory});
        // The text browser has not followed the link itself.
        QCOMPARE(details->toHtml(), html);
        QCOMPARE(details->source(), QUrl());
        QCOMPARE(desktop.opened, QList<QUrl>());
    }

private:
    QString explorer() const { return QCoreApplication::applicationDirPath() + "/explorer.exe"; }
};

QTEST_MAIN(CardExplorerTest)
#include "CardExplorerTest_win.moc"
