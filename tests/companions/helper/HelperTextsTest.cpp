#include "companions/helper/HelperTexts.h"
#include "companions/helper/LibraryRegistration.h"

#include "tests/companions/helper/WideText.h"

#include <QtTest>

Q_DECLARE_METATYPE(HelperExitCode)

class HelperTextsTest : public QObject {
    Q_OBJECT

private slots:
    void exitCodes_data();
    void exitCodes();
    void registrationCommandLine_data();
    void registrationCommandLine();
};

void HelperTextsTest::exitCodes_data()
{
    QTest::addColumn<HelperExitCode>("code");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("done") << HelperExitCode::done << 0 << "";
    QTest::newRow("internal error") << HelperExitCode::internalError << 1
                                    << "An internal error occurred. Nothing was changed.";
    QTest::newRow("refused") << HelperExitCode::refused << 2
                             << "The request was refused. Nothing was changed.";
    QTest::newRow("put back") << HelperExitCode::variablesRestored << 3
                              << "A system variable could not be set. All of them are as they were.";
    QTest::newRow("not put back")
        << HelperExitCode::variablesNotRestored << 4
        << "A system variable could not be set, and not all of them are as they were.";
    QTest::newRow("not registered")
        << HelperExitCode::librariesNotRegistered << 5
        << "The system variables are set, but not every COM library could be registered.";
    QTest::newRow("not copied")
        << HelperExitCode::copyFailed << 6
        << "The licence file could not be copied. The old one, if there was one, holds what it held.";
}

void HelperTextsTest::exitCodes()
{
    QFETCH(HelperExitCode, code);

    QTEST(static_cast<int>(code), "number");
    QTEST(fromWide(textOf(code)), "text");
}

void HelperTextsTest::registrationCommandLine_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("library");
    QTest::addColumn<QString>("commandLine");

    QTest::newRow("64-bit") << "C:\\windows\\system32\\regsvr32.exe"
                            << "C:\\Program Files\\H\\bin\\x64-win64\\halconx.dll"
                            << "\"C:\\windows\\system32\\regsvr32.exe\" /s "
                               "\"C:\\Program Files\\H\\bin\\x64-win64\\halconx.dll\"";
    QTest::newRow("32-bit") << "C:\\windows\\syswow64\\regsvr32.exe"
                            << "C:\\H\\bin\\x86sse2-win32\\hdevenginexxl.dll"
                            << "\"C:\\windows\\syswow64\\regsvr32.exe\" /s "
                               "\"C:\\H\\bin\\x86sse2-win32\\hdevenginexxl.dll\"";
    QTest::newRow("signs") << "C:\\w\\regsvr32.exe"
                           << "C:\\R&D 100% (a)^\\Größe\\halconx.dll"
                           << "\"C:\\w\\regsvr32.exe\" /s \"C:\\R&D 100% (a)^\\Größe\\halconx.dll\"";
}

void HelperTextsTest::registrationCommandLine()
{
    QFETCH(QString, program);
    QFETCH(QString, library);

    QTEST(fromWide(::registrationCommandLine(toWide(program), toWide(library))), "commandLine");
}

QTEST_APPLESS_MAIN(HelperTextsTest)

#include "HelperTextsTest.moc"
