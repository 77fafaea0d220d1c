#include "companions/helper/LibraryRegistration.h"

#include "tests/helper/WideText.h"

#include <QtTest>

#include <new>

class LibraryRegistrationTest : public QObject {
    Q_OBJECT

private slots:
    void environment_data();
    void environment();
    void registersInOrder();
    void goesOnAfterAFailure();
    void goesOnAfterAnException();
    void noLibraries();
};

void LibraryRegistrationTest::environment_data()
{
    QTest::addColumn<QString>("windowsDirectory");
    QTest::addColumn<QString>("systemDirectory");
    QTest::addColumn<QStringList>("variables");

    QTest::newRow("usual") << "C:\\Windows"
                           << "C:\\Windows\\system32"
                           << QStringList{"ComSpec=C:\\Windows\\system32\\cmd.exe",
                                          "OS=Windows_NT",
                                          "Path=C:\\Windows\\system32;C:\\Windows",
                                          "PATHEXT=.COM;.EXE;.BAT;.CMD",
                                          "SystemDrive=C:",
                                          "SystemRoot=C:\\Windows",
                                          "TEMP=C:\\Windows\\Temp",
                                          "TMP=C:\\Windows\\Temp",
                                          "windir=C:\\Windows"};
    QTest::newRow("another drive") << "D:\\W 10"
                                   << "D:\\W 10\\System32"
                                   << QStringList{"ComSpec=D:\\W 10\\System32\\cmd.exe",
                                                  "OS=Windows_NT",
                                                  "Path=D:\\W 10\\System32;D:\\W 10",
                                                  "PATHEXT=.COM;.EXE;.BAT;.CMD",
                                                  "SystemDrive=D:",
                                                  "SystemRoot=D:\\W 10",
                                                  "TEMP=D:\\W 10\\Temp",
                                                  "TMP=D:\\W 10\\Temp",
                                                  "windir=D:\\W 10"};
}

/// Each variable ends with a 0, and all of them with one more.
void LibraryRegistrationTest::environment()
{
    QFETCH(QString, windowsDirectory);
    QFETCH(QString, systemDirectory);
    QFETCH(QStringList, variables);

    const QString block =
        fromWide(registrationEnvironment(toWide(windowsDirectory), toWide(systemDirectory)));

    QCOMPARE(block, variables.join(QChar()) + QChar() + QChar());
}

void LibraryRegistrationTest::registersInOrder()
{
    QStringList tried;

    const RegistrationSummary summary =
        registerLibraries({L"C:\\a.dll", L"C:\\b.dll"}, [&tried](const std::wstring &library) {
            tried.append(fromWide(library));
            return RegistrationResult::registered;
        });

    QVERIFY(summary.complete);
    QCOMPARE(fromWide(summary.reason), QString());
    QCOMPARE(tried, (QStringList{"C:\\a.dll", "C:\\b.dll"}));
}

void LibraryRegistrationTest::goesOnAfterAFailure()
{
    QStringList tried;

    const RegistrationSummary summary =
        registerLibraries({L"C:\\a.dll", L"C:\\b.dll", L"C:\\c.dll"}, [&tried](const std::wstring &library) {
            tried.append(fromWide(library));
            const RegistrationResult results[] = {RegistrationResult::failed, RegistrationResult::registered,
                                                  RegistrationResult::timedOut};
            return results[tried.size() - 1];
        });

    QVERIFY(!summary.complete);
    QCOMPARE(fromWide(summary.reason), QString("The registration of C:\\a.dll failed.\r\n"
                                               "The registration of C:\\c.dll took too long and was ended."));
    QCOMPARE(tried.size(), 3);
}

/// The variables are set by then, which only the result can tell.
void LibraryRegistrationTest::goesOnAfterAnException()
{
    QStringList tried;

    const RegistrationSummary summary = registerLibraries(
        {L"C:\\a.dll", L"C:\\b.dll"}, [&tried](const std::wstring &library) -> RegistrationResult {
            tried.append(fromWide(library));
            if (tried.size() == 1) {
                throw std::bad_alloc();
            }
            return RegistrationResult::registered;
        });

    QVERIFY(!summary.complete);
    QCOMPARE(fromWide(summary.reason), QString());
    QCOMPARE(tried.size(), 2);
}

void LibraryRegistrationTest::noLibraries()
{
    const RegistrationSummary summary =
        registerLibraries({}, [](const std::wstring &) { return RegistrationResult::failed; });

    QVERIFY(summary.complete);
}

QTEST_APPLESS_MAIN(LibraryRegistrationTest)

#include "LibraryRegistrationTest.moc"
