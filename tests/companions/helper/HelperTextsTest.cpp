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

    void registrationCommandLine()
    {
        QCOMPARE(
            fromWide(::registrationCommandLine(L"C:\\w\\regsvr32.exe", L"C:\\R&D 100% (a)^\\halconx.dll")),
            R"("C:\w\regsvr32.exe" /s "C:\R&D 100% (a)^\halconx.dll")");
    }
};

QTEST_APPLESS_MAIN(HelperTextsTest)

#include "HelperTextsTest.moc"
