#include "companions/helper/LibraryRegistration.h"

#include "tests/helper/WideText.h"

#include <QtTest>

#include <new>

class LibraryRegistrationTest : public QObject {
    Q_OBJECT

private slots:
    void registersInOrder();
    void goesOnAfterAFailure();
    void goesOnAfterAnException();
    void noLibraries();
};

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
    QCOMPARE(fromWide(summary.reason),
             QString("The registration of \"C:\\a.dll\" failed.\r\n"
                     "The registration of \"C:\\c.dll\" took too long and was ended."));
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
