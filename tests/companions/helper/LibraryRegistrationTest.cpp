#include "companions/helper/LibraryRegistration.h"

#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QtTest>

#include <new>

Q_DECLARE_METATYPE(HelperExitCode)

class LibraryRegistrationTest : public QObject {
    Q_OBJECT

private slots:
    void outcome_data()
    {
        // results: of the registrations, one after the other; the first may throw an exception
        const auto row = columns<QStringList, HelperExitCode, QString>("results", "code", "reason");

        row("none", {}, HelperExitCode::done, "");
        row("all", {"", ""}, HelperExitCode::done, "");
        row("some fail", {"failed", "", "took too long and was ended"},
            HelperExitCode::librariesNotRegistered,
            "The registration of \"C:\\0?.dll\" failed.\r\n"
            "The registration of \"C:\\2?.dll\" took too long and was ended.");
        // The variables are already set, which only the result can report.
        row("exception", {"exception", ""}, HelperExitCode::librariesNotRegistered, "");
    }

    /// All are tried, in order, whatever becomes of those before.
    void outcome()
    {
        QFETCH(QStringList, results);
        std::vector<std::wstring> libraries(std::size_t(results.size()));
        for (std::size_t i = 0; i < libraries.size(); ++i) {
            libraries[i] = L"C:\\" + std::to_wstring(i) + L"\x202E.dll";
        }
        std::vector<std::wstring> tried;

        const HelperOutcome outcome = registerLibraries(libraries, [&](const std::wstring &library) {
            const std::wstring result = toWide(results.at(int(tried.size())));
            tried.push_back(library);
            return result == L"exception" ? throw std::bad_alloc() : result;
        });

        QVERIFY(tried == libraries);
        QTEST(outcome.code, "code");
        QTEST(fromWide(outcome.reason), "reason");
    }
};

QTEST_APPLESS_MAIN(LibraryRegistrationTest)

#include "LibraryRegistrationTest.moc"
