#include "companions/helper/HelperTexts.h"
#include "companions/helper/LibraryRegistration.h"

#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QtTest>

Q_DECLARE_METATYPE(HelperExitCode)

class HelperTextsTest : public QObject {
    Q_OBJECT

private slots:
    void exitCodes_data()
    {
        columns<HelperExitCode, int, QString>("code", "number", "text");

        row("done", HelperExitCode::done, 0, "");
        row("internal error", HelperExitCode::internalError, 1,
            "An internal error occurred. Nothing was changed.");
        row("refused", HelperExitCode::refused, 2, "The request was refused. Nothing was changed.");
        row("put back", HelperExitCode::variablesRestored, 3,
            "A system variable could not be set. All of them are as they were.");
        row("not put back", HelperExitCode::variablesNotRestored, 4,
            "A system variable could not be set, and not all of them are as they were.");
        row("not registered", HelperExitCode::librariesNotRegistered, 5,
            "The system variables are set, but not every COM library could be registered.");
        row("not copied", HelperExitCode::copyFailed, 6,
            "The licence file could not be copied. The old one, if there was one, holds what it held.");
    }

    void exitCodes()
    {
        QFETCH(HelperExitCode, code);

        QTEST(static_cast<int>(code), "number");
        QTEST(fromWide(textOf(code)), "text");
    }

    void registrationCommandLine_data()
    {
        columns<QString, QString, QString>("program", "library", "commandLine");

        row("64-bit", "C:\\windows\\system32\\regsvr32.exe",
            "C:\\Program Files\\H\\bin\\x64-win64\\halconx.dll",
            "\"C:\\windows\\system32\\regsvr32.exe\" /s "
            "\"C:\\Program Files\\H\\bin\\x64-win64\\halconx.dll\"");
        row("signs", "C:\\w\\regsvr32.exe", "C:\\R&D 100% (a)^\\Größe\\halconx.dll",
            "\"C:\\w\\regsvr32.exe\" /s \"C:\\R&D 100% (a)^\\Größe\\halconx.dll\"");
    }

    void registrationCommandLine()
    {
        QFETCH(QString, program);
        QFETCH(QString, library);

        QTEST(fromWide(::registrationCommandLine(toWide(program), toWide(library))), "commandLine");
    }
};

QTEST_APPLESS_MAIN(HelperTextsTest)

#include "HelperTextsTest.moc"
