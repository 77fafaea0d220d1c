#include "companions/helper/LibraryRegistration.h"

#include "tests/support/WideText.h"

#include <QtTest>

#include <new>

class LibraryRegistrationTest : public QObject {
    Q_OBJECT

private slots:
    void registersInOrder()
    {
        QStringList tried;

        const HelperOutcome outcome =
            registerLibraries({L"C:\\a.dll", L"C:\\b.dll"}, [&tried](const std::wstring &library) {
                tried.append(fromWide(library));
                return std::wstring();
            });

        QCOMPARE(outcome.code, HelperExitCode::done);
        QCOMPARE(fromWide(outcome.reason), QString());
        QCOMPARE(tried, (QStringList{"C:\\a.dll", "C:\\b.dll"}));
    }

    void goesOnAfterAFailure()
    {
        QStringList tried;

        const HelperOutcome outcome = registerLibraries(
            {L"C:\\a.dll", L"C:\\b.dll", L"C:\\\x202E.dll"}, [&tried](const std::wstring &library) {
                tried.append(fromWide(library));
                const std::wstring results[] = {L"failed", L"", L"took too long and was ended"};
                return results[tried.size() - 1];
            });

        QCOMPARE(outcome.code, HelperExitCode::librariesNotRegistered);
        QCOMPARE(fromWide(outcome.reason),
                 QString("The registration of \"C:\\a.dll\" failed.\r\n"
                         "The registration of \"C:\\?.dll\" took too long and was ended."));
        QCOMPARE(tried.size(), 3);
    }

    /// The variables are already set, which only the result can report.
    void goesOnAfterAnException()
    {
        QStringList tried;
        const auto fail = [&tried](const std::wstring &library) -> std::wstring {
            tried.append(fromWide(library));
            return tried.size() == 1 ? throw std::bad_alloc() : std::wstring();
        };

        const HelperOutcome outcome = registerLibraries({L"C:\\a.dll", L"C:\\b.dll"}, fail);

        QCOMPARE(outcome.code, HelperExitCode::librariesNotRegistered);
        QCOMPARE(fromWide(outcome.reason), QString());
        QCOMPARE(tried.size(), 2);
    }

    void noLibraries()
    {
        const HelperOutcome outcome =
            registerLibraries({}, [](const std::wstring &) { return std::wstring(L"failed"); });

        QCOMPARE(outcome.code, HelperExitCode::done);
    }
};

QTEST_APPLESS_MAIN(LibraryRegistrationTest)

#include "LibraryRegistrationTest.moc"
