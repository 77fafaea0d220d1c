#include "card/SingleHalconVersionFrame.h"
#include "launch/CommandShell.h"
#include "launch/IdeLaunch.h"
#include "tests/card/BoxLines.h"
#include "tests/card/CardStudios.h"
#include "tests/card/HalconVariables.h"
#include "tests/support/EchoChild.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/MessageBoxes.h"
#include "tests/support/Messages.h"
#include "tests/support/SystemErrors.h"

#include <QListWidget>
#include <QPushButton>
#include <QStandardItemModel>
#include <QtTest>

namespace {

/// Sets ComSpec to another command interpreter until the end.
class CommandInterpreter {
public:
    explicit CommandInterpreter(const QString &path) : before(qgetenv("ComSpec"))
    {
        qputenv("ComSpec", path.toLocal8Bit());
    }
    CommandInterpreter(const CommandInterpreter &) = delete;
    CommandInterpreter &operator=(const CommandInterpreter &) = delete;
    ~CommandInterpreter() { qputenv("ComSpec", before); }

private:
    QByteArray before;
};

QPushButton *button(const SingleHalconVersionFrame &card, const char *name)
{
    return card.findChild<QPushButton *>(name);
}

QListWidget &rows(const SingleHalconVersionFrame &card)
{
    return *card.findChild<QListWidget *>("lwVsVersion");
}

const QString noRowForShell = "Could not launch shell: No valid Visual Studio version selected.";
const QString noRowForIde = "Could not launch Visual Studio IDE: No valid Visual Studio version selected.";

} // namespace

class CardShellTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void doubleClickOnRow_data();
    void doubleClickOnRow();
    void shellButton_data();
    void shellButton();
    void ideButton_data();
    void ideButton();
    void buttonsWithoutARow();
    void invalidIndex_data();
    void invalidIndex();
    void translatedBoxes();
    void interpreterIsMissing();
    void interpreterIsNoProgram();
    void failedStartCanBeTriedAgain();
    void ideIsRemoved();
    void rowWithoutIde();

private:
    QString interpreter() const { return QDir::toNativeSeparators(directory.filePath("my cmd.exe")); }
    QList<VisualStudioVersion> records(const QString &arch) const
    {
        return arch == "x64-win64" ? studios.records64() : studios.records32();
    }

    QTemporaryDir directory;
    CardStudios studios;
};

void CardShellTest::initTestCase()
{
    EchoChild::copyTo(interpreter());
}

void CardShellTest::init()
{
    studios.installIdes();
}

void CardShellTest::doubleClickOnRow_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<int>("row");

    QTest::newRow("x64, newest") << "x64-win64" << 0;
    QTest::newRow("x64, Express") << "x64-win64" << 1;
    QTest::newRow("x86, newest") << "x86-win32" << 0;
    QTest::newRow("x86, without an IDE") << "x86-win32" << 1;
    QTest::newRow("SSE2, Express") << "x86sse2-win32" << 2;
}

void CardShellTest::doubleClickOnRow()
{
    QFETCH(QString, arch);
    QFETCH(int, row);
    const HalconInstallation installation = progressInstallation(arch);
    const QString arguments = shellArguments(installation, records(arch).at(row));
    const CommandInterpreter changed(interpreter());
    SingleHalconVersionFrame card(installation);
    card.show();
    const EchoChild child;
    const MessageBoxes boxes;
    const LogLines log;

    doubleClickRow(rows(card), row);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, interpreter());
    QCOMPARE(found.commandLine, arguments);
    QCOMPARE(halconVariables(found), halconVariables(installation));
    // Only one start.
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter() + " " + arguments});
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
}

void CardShellTest::shellButton_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<int>("row");

    QTest::newRow("x64, first row without a click") << "x64-win64" << -1;
    QTest::newRow("x64, second row") << "x64-win64" << 1;
    QTest::newRow("x86, third row") << "x86-win32" << 2;
}

void CardShellTest::shellButton()
{
    QFETCH(QString, arch);
    QFETCH(int, row);
    const HalconInstallation installation = progressInstallation(arch);
    const QString arguments = shellArguments(installation, records(arch).at(qMax(row, 0)));
    const CommandInterpreter changed(interpreter());
    SingleHalconVersionFrame card(installation);
    card.show();
    const EchoChild child;
    const MessageBoxes boxes;
    const LogLines log;

    if (row >= 0) {
        clickRow(rows(card), row);
    }
    QCOMPARE(log.lines(), QStringList());
    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, interpreter());
    QCOMPARE(found.commandLine, arguments);
    QCOMPARE(halconVariables(found), halconVariables(installation));
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + interpreter() + " " + arguments});
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
}

void CardShellTest::ideButton_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("first row without a click") << -1;
    QTest::newRow("second row") << 1;
}

void CardShellTest::ideButton()
{
    QFETCH(int, row);
    const HalconInstallation installation = progressInstallation("x64-win64");
    const QString ide = studios.records64().at(qMax(row, 0)).idePath;
    const CommandInterpreter changed(interpreter());
    SingleHalconVersionFrame card(installation);
    card.show();
    const EchoChild child;
    const MessageBoxes boxes;
    const LogLines log;

    if (row >= 0) {
        clickRow(rows(card), row);
    }
    QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(QDir::fromNativeSeparators(found.executable), ide);
    // For an empty command line Windows substitutes the quoted executable: still no arguments.
    const QStringList withoutArguments{"", '"' + ide + '"'};
    QVERIFY2(withoutArguments.contains(found.commandLine), qPrintable(found.commandLine));
    QCOMPARE(halconVariables(found), halconVariables(installation));
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + ide + " "});
    QCOMPARE(boxLines(boxes.shown(), card), QStringList());
}

void CardShellTest::buttonsWithoutARow()
{
    const CommandInterpreter changed(interpreter());
    SingleHalconVersionFrame card(progressInstallation("x64-win64"));
    card.show();
    rows(card).setCurrentRow(-1);
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
    const LogLines log;

    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
    QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);

    QCOMPARE(boxLines(boxes.shown(), card),
             warningLines("Error", noRowForShell) + warningLines("Error", noRowForIde));
    QCOMPARE(log.lines(), QStringList());
    // The card is unchanged, and a row can still be chosen.
    QVERIFY(button(card, "pbDevEnv")->isVisible());
    QCOMPARE(rows(card).currentRow(), -1);
}

void CardShellTest::invalidIndex_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("no row") << -1;
    QTest::newRow("as many as there are") << 2;
    QTest::newRow("more than there are") << 9;
}

void CardShellTest::invalidIndex()
{
    QFETCH(int, row);
    const QStandardItemModel longer(10, 1);
    const CommandInterpreter changed(interpreter());
    SingleHalconVersionFrame card(progressInstallation("x64-win64"));
    QCOMPARE(rows(card).count(), 2);
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
    const LogLines log;

    card.launchShellModelIndex(longer.index(row, 0));
    card.launchDevEnvModelIndex(longer.index(row, 0));

    QCOMPARE(boxLines(boxes.shown(), card),
             warningLines("Error", noRowForShell) + warningLines("Error", noRowForIde));
    QCOMPARE(log.lines(), QStringList());
}

void CardShellTest::translatedBoxes()
{
    const CommandInterpreter changed(QDir::toNativeSeparators(directory.filePath("missing.exe")));
    const MarkingTranslator translator;
    SingleHalconVersionFrame card(progressInstallation("x64-win64"));
    card.show();
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
    QVERIFY(QFile::remove(studios.ide14()));
    QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);
    rows(card).setCurrentRow(-1);
    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
    QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);

    QStringList texts;
    for (const ShownBox &box : boxes.shown()) {
        texts << box.title << box.text.section('\n', 0, 0);
    }
    QCOMPARE(
        texts,
        (QStringList{
            "Errors",
            "[There were errors in launching a CMD shell for HALCON 20.11.1 Progress (x64-win64):", "Errors",
            "[There were errors in launching Visual Studio IDE for HALCON 20.11.1 Progress (x64-win64):",
            "Error", '[' + noRowForShell + ']', "Error", '[' + noRowForIde + ']'}));
}

void CardShellTest::interpreterIsMissing()
{
    const QString missing = QDir::toNativeSeparators(directory.filePath("missing.exe"));
    const CommandInterpreter changed(missing);
    SingleHalconVersionFrame card(progressInstallation("x64-win64"));
    card.show();
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
    const LogLines log;

    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
    doubleClickRow(rows(card), 1);

    const QStringList box = warningLines(
        "Errors", "There were errors in launching a CMD shell for HALCON 20.11.1 Progress (x64-win64):\n" +
                      createProcessErrorLine(WindowsError::fileNotFound));
    QCOMPARE(boxLines(boxes.shown(), card), box + box);
    QCOMPARE(log.lines().size(), 2);
}

void CardShellTest::interpreterIsNoProgram()
{
    QFile text(directory.filePath("text.exe"));
    QVERIFY(text.open(QFile::WriteOnly) && text.write("no program\n") > 0);
    text.close();
    const CommandInterpreter changed(QDir::toNativeSeparators(text.fileName()));
    SingleHalconVersionFrame card(progressInstallation("x86sse2-win32"));
    card.show();
    const MessageBoxes boxes;

    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);

    QCOMPARE(boxLines(boxes.shown(), card),
             warningLines(
                 "Errors",
                 "There were errors in launching a CMD shell for HALCON 20.11.1 Progress (x86sse2-win32):\n" +
                     createProcessErrorLine(WindowsError::badExeFormat)));
}

/// Errors of an earlier attempt are not shown again.
void CardShellTest::failedStartCanBeTriedAgain()
{
    const HalconInstallation installation = progressInstallation("x64-win64");
    SingleHalconVersionFrame card(installation);
    card.show();
    const MessageBoxes boxes({QMessageBox::Ok, QMessageBox::Ok});
    {
        const CommandInterpreter changed(QDir::toNativeSeparators(directory.filePath("missing.exe")));
        QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
        QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
    }
    QCOMPARE(boxes.shown().size(), 2);
    QCOMPARE(boxes.shown().at(0).text, boxes.shown().at(1).text);

    const CommandInterpreter changed(interpreter());
    const EchoChild child;
    QTest::mouseClick(button(card, "pbShell"), Qt::LeftButton);
    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.commandLine, shellArguments(installation, studios.records64().first()));
    QCOMPARE(boxes.shown().size(), 2);
}

void CardShellTest::ideIsRemoved()
{
    SingleHalconVersionFrame card(progressInstallation("x86-win32"));
    card.show();
    QVERIFY(QFile::remove(studios.ide14()));
    const MessageBoxes boxes;
    const LogLines log;

    QTest::mouseClick(button(card, "pbDevEnv"), Qt::LeftButton);

    QCOMPARE(
        boxLines(boxes.shown(), card),
        warningLines(
            "Errors",
            "There were errors in launching Visual Studio IDE for HALCON 20.11.1 Progress (x86-win32):\n" +
                createProcessErrorLine(WindowsError::fileNotFound)));
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + studios.ide14() + " "});
}

/// The IDE's button is hidden for such a row, but its slot tries to start it and reports the system's error.
void CardShellTest::rowWithoutIde()
{
    const HalconInstallation installation = progressInstallation("x86-win32");
    SingleHalconVersionFrame card(installation);
    card.show();
    clickRow(rows(card), 1);
    QVERIFY(!button(card, "pbDevEnv")->isVisible());
    QStringList errors;
    QVERIFY(!startDevEnv(installation, studios.records32().at(1), &errors));
    QCOMPARE(errors.size(), 1);
    const MessageBoxes boxes;
    const LogLines log;

    card.launchDevEnv();

    QCOMPARE(
        boxLines(boxes.shown(), card),
        warningLines(
            "Errors",
            "There were errors in launching Visual Studio IDE for HALCON 20.11.1 Progress (x86-win32):\n" +
                errors.first()));
    QCOMPARE(log.lines(), QStringList{"CreateProcess:  "});
}

QTEST_MAIN(CardShellTest)

#include "CardShellTest_win.moc"
