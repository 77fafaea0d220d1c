#include "tests/support/ProgramResult.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

/// STATUS_STACK_BUFFER_OVERRUN, with which Windows ends a program that has detected an overflow.
constexpr auto overrun = static_cast<int>(0xC0000409U);
/// The exit code of the C library's abort().
constexpr int aborted = 3;

ProgramResult runCareless(const QString &arguments)
{
    QProcess process;
    return runProgram(process, CARELESS_EXECUTABLE, arguments);
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
        QCOMPARE(runCareless(mistake + " within-bounds").exitCode, 0);
        QCOMPARE(runCareless(mistake).exitCode, exitCode);
    }

    void missingElementIsNamed()
    {
        const QByteArray errors = runCareless("element").errors;
        QVERIFY2(errors.contains("Assertion '__n < this->size()' failed."), errors.constData());
    }

    void guardDiffersFromRunToRun()
    {
        const ProgramResult first = runCareless("guard");
        const ProgramResult second = runCareless("guard");
        QCOMPARE(first.exitCode, 0);
        QVERIFY2(first.output != second.output, first.output.constData());
        // The byte that stops reading or copying a string.
        QVERIFY2(first.output.endsWith("00"), first.output.constData());
    }
};

QTEST_GUILESS_MAIN(BufferGuardTest)

#include "BufferGuardTest_win.moc"
