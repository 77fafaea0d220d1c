#pragma once

#include "tests/support/Patience.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTest>

/// What a program leaves behind: its exit code and what it wrote to its standard output and standard error.
struct ProgramResult {
    int exitCode = 0;
    QByteArray output;
    QByteArray errors;

    friend bool operator==(const ProgramResult &one, const ProgramResult &other)
    {
        return one.exitCode == other.exitCode && one.output == other.output && one.errors == other.errors;
    }

    /// For the message of QCOMPARE.
    friend char *toString(const ProgramResult &result)
    {
        return QTest::toString(QByteArray::number(result.exitCode) + ", output: " + result.output +
                               ", errors: " + result.errors);
    }
};

/// Runs @p program to its end as @p process, with exactly these arguments after its name. The exit code is -1
/// when it did not start or did not end. Windows only.
inline ProgramResult runProgram(QProcess &process, const QString &program, const QString &arguments)
{
    process.setProgram(program);
    process.setNativeArguments(arguments);
    process.start();
    if (!process.waitForFinished(patienceMilliseconds)) {
        return {-1, {}, process.errorString().toUtf8()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
