#pragma once

#include "tests/support/EchoChild.h"
#include "tests/support/Patience.h"

#include <QCoreApplication>
#include <QFile>
#include <QtTest>

/// Where the program looks for the helper, in Qt's notation.
inline QString helperFile()
{
    return QCoreApplication::applicationDirPath() + "/qz_com_helper.exe";
}

/// While it lives, a program stands in for the helper, beside the test program, which therefore has a
/// directory of its own. Windows only.
class ElevatedHelperProgram {
public:
    /// The recording program, see EchoChild.
    ElevatedHelperProgram()
    {
        remove(); // an earlier run may have been broken off
        EchoChild::copyTo(helperFile());
    }
    /// The one at @p program.
    explicit ElevatedHelperProgram(const QString &program)
    {
        remove();
        if (!QFile::copy(program, helperFile())) {
            qFatal("could not copy %s", qPrintable(program));
        }
    }
    ElevatedHelperProgram(const ElevatedHelperProgram &) = delete;
    ElevatedHelperProgram &operator=(const ElevatedHelperProgram &) = delete;
    ~ElevatedHelperProgram() { remove(); }

    /// Leaves the program without a helper.
    static void remove()
    {
        // As long as a child is ending, its program cannot be removed.
        if (!QTest::qWaitFor([] { return QFile::remove(helperFile()) || !QFile::exists(helperFile()); },
                             patienceMilliseconds)) {
            qFatal("could not remove %s", qPrintable(helperFile()));
        }
    }
};
