#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QProcess>
#include <QtTest>

namespace {

/// STATUS_STACK_BUFFER_OVERRUN, with which Windows ends a program that has detected an overflow.
constexpr auto overrun = static_cast<int>(0xC0000409U);
/// The exit code of the C library's abort().
constexpr int aborted = 3;

/// Runs the careless program to its end. Its exit code is -1 when it did not start or did not end.
int runCareless(const QStringList &arguments, QByteArray *output = nullptr, QByteArray *errors = nullptr)
{
    QProcess process;
    process.start(CARELESS_EXECUTABLE, arguments);
    if (!process.waitForFinished(patienceMilliseconds)) {
        return -1;
    }
    if (output != nullptr) {
        *output = process.readAllStandardOutput();
    }
    if (errors != nullptr) {
        *errors = process.readAllStandardError();
    }
    return process.exitCode();
}

} // namespace

class BufferGuardTest : public QObject {
    Q_OBJECT

private slots:
    void mistakesEndTheProgram_data()
    {
        columns<QString, int>("mistake", "exitCode");
        row("past the end of a buffer on the stack", "stack", overrun);
        row("more copied than fits", "copy", overrun);
        row("element that is not there", "element", aborted);
    }

    void mistakesEndTheProgram()
    {
        QFETCH(QString, mistake);
        QFETCH(int, exitCode);
        QCOMPARE(runCareless({mistake, "within bounds"}), 0);
        QCOMPARE(runCareless({mistake}), exitCode);
    }

    void missingElementIsNamed()
    {
        QByteArray errors;
        runCareless({"element"}, nullptr, &errors);
        QVERIFY2(errors.contains("Assertion '__n < this->size()' failed."), errors.constData());
    }

    void guardDiffersFromRunToRun()
    {
        QByteArray first;
        QByteArray second;
        QCOMPARE(runCareless({"guard"}, &first), 0);
        QCOMPARE(runCareless({"guard"}, &second), 0);
        QVERIFY2(first != second, first.constData());
        // The byte that stops reading or copying a string.
        QVERIFY2(first.endsWith("00"), first.constData());
    }
};

QTEST_GUILESS_MAIN(BufferGuardTest)

#include "BufferGuardTest_win.moc"
