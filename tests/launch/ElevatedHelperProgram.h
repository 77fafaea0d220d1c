#pragma once

#include "tests/support/EchoChild.h"
#include "tests/support/Patience.h"

#include <QCoreApplication>
#include <QFile>
#include <QtTest>

/// The path at which the program looks for the helper, with slashes.
inline QString helperFile()
{
    return QCoreApplication::applicationDirPath() + "/qz_com_helper.exe";
}

/// A fake helper, beside the test program while this object lives. The test program therefore has a directory
/// of its own. Windows only.
class ElevatedHelperProgram {
public:
    /// The recording program, see EchoChild.
    ElevatedHelperProgram()
    {
        remove(); // an aborted run may have left it
        EchoChild::copyTo(helperFile());
    }
    /// A copy of @p program.
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
        // The program cannot be removed until the child has ended.
        if (!QTest::qWaitFor([] { return QFile::remove(helperFile()) || !QFile::exists(helperFile()); },
                             patienceMilliseconds)) {
            qFatal("could not remove %s", qPrintable(helperFile()));
        }
    }
};
