#include "companions/helper/EnvironmentChange.h"

#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QtTest>

#include <map>
#include <new>
#include <set>

namespace {

constexpr quint32 regSz = 1;
constexpr quint32 regExpandSz = 2;
constexpr quint32 regDword = 4;

/// The UTF-16 bytes of @p text with a terminating 0.
QByteArray stored(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), (text.size() + 1) * 2);
}

/// A fake store in memory that can be made to fail.
class FakeStore : public EnvironmentStore {
public:
    using Values = std::map<std::wstring, std::pair<quint32, QByteArray>>;

    Values values;
    std::set<std::wstring> unreadable;
    std::set<int> failingChanges; ///< the numbers, from 1, of the writes and removals that fail
    bool throws = false;          ///< whether a failing call throws
    QStringList calls;

    bool read(const std::wstring &name, std::optional<StoredValue> &value) override
    {
        calls.append("read " + fromWide(name));
        const auto found = values.find(name);
        value.reset();
        if (found != values.end()) {
            const QByteArray &bytes = found->second.second;
            value = StoredValue{found->second.first, {bytes.begin(), bytes.end()}};
        }
        return unreadable.count(name) == 0 || fail();
    }

    bool write(const std::wstring &name, const std::optional<StoredValue> &value) override
    {
        calls.append((value ? "write " : "remove ") + fromWide(name));
        if (failingChanges.count(++changes) != 0) {
            return fail();
        }
        if (!value) {
            return values.erase(name) == 1;
        }
        values[name] = {value->type, QByteArray(reinterpret_cast<const char *>(value->bytes.data()),
                                                static_cast<int>(value->bytes.size()))};
        return true;
    }

private:
    bool fail() const
    {
        if (throws) {
            throw std::bad_alloc();
        }
        return false;
    }

    int changes = 0;
};

const std::vector<EnvironmentAssignment> assignments{{L"HALCONROOT", L"C:\\New\\"},
                                                     {L"HALCONARCH", L"x64-win64"},
                                                     {L"HALCONIMAGES", L""},
                                                     {L"HALCONEXAMPLES", L"%ProgramData%\\Größe 寸法"}};

/// One value of each type, and one name, HALCONIMAGES, without a value.
FakeStore::Values mixedValues()
{
    return {{L"HALCONROOT", {regExpandSz, stored("%ProgramFiles%\\Old")}},
            {L"HALCONARCH", {regDword, QByteArray("\1\2\3\4", 4)}},
            {L"HALCONEXAMPLES", {regSz, stored("C:\\Old")}},
            {L"Path", {regExpandSz, stored("C:\\Windows")}}};
}

/// The mixed values after the assignments.
FakeStore::Values changedValues()
{
    return {{L"HALCONROOT", {regExpandSz, stored("C:\\New\\")}},
            {L"HALCONARCH", {regSz, stored("x64-win64")}},
            {L"HALCONIMAGES", {regSz, stored("")}},
            {L"HALCONEXAMPLES", {regSz, stored("%ProgramData%\\Größe 寸法")}},
            {L"Path", {regExpandSz, stored("C:\\Windows")}}};
}

} // namespace

class EnvironmentChangeTest : public QObject {
    Q_OBJECT

private slots:
    void setsAll()
    {
        FakeStore store;
        store.values = mixedValues();

        QCOMPARE(changeEnvironment(store, assignments), HelperExitCode::done);

        QVERIFY(store.values == changedValues());
        // All are read before one is written.
        QCOMPARE(store.calls, (QStringList{"read HALCONROOT", "read HALCONARCH", "read HALCONIMAGES",
                                           "read HALCONEXAMPLES", "write HALCONROOT", "write HALCONARCH",
                                           "write HALCONIMAGES", "write HALCONEXAMPLES"}));
    }

    void types_data()
    {
        columns<quint32, quint32>("before", "after");

        row("string", regSz, regSz);
        row("expandable string", regExpandSz, regExpandSz);
        row("none", quint32(0), regSz);
        row("number", regDword, regSz);
        row("unknown", quint32(77), regSz);
    }

    void types()
    {
        QFETCH(quint32, before);
        FakeStore store;
        store.values[L"HALCONROOT"] = {before, stored("old")};

        QCOMPARE(changeEnvironment(store, {{L"HALCONROOT", L"new"}}), HelperExitCode::done);

        QTEST(store.values[L"HALCONROOT"].first, "after");
        QCOMPARE(store.values[L"HALCONROOT"].second, stored("new"));
    }

    /// When reading throws, the caller may report that nothing was changed.
    void nothingIsWrittenWhenAValueCannotBeRead()
    {
        for (const EnvironmentAssignment &assignment : assignments) {
            FakeStore store;
            store.values = mixedValues();
            store.unreadable = {assignment.name};

            QCOMPARE(changeEnvironment(store, assignments), HelperExitCode::variablesRestored);
            store.throws = true;
            QVERIFY_EXCEPTION_THROWN(changeEnvironment(store, assignments), std::bad_alloc);

            QVERIFY(store.values == mixedValues());
            QVERIFY(store.calls.filter("write").isEmpty());
            QVERIFY(store.calls.filter("remove").isEmpty());
        }
    }

    /// Restores value, type and absence, the last change first, whether the failure is returned or thrown.
    void putsBack()
    {
        const QStringList changes{"write HALCONROOT", "write HALCONARCH", "write HALCONIMAGES",
                                  "write HALCONEXAMPLES"};
        const QStringList restored{"remove HALCONIMAGES", "write HALCONARCH", "write HALCONROOT"};
        for (const int failing : {1, 2, 3, 4}) {
            for (const bool throws : {false, true}) {
                FakeStore store;
                store.values = mixedValues();
                store.failingChanges = {failing};
                store.throws = throws;

                QCOMPARE(changeEnvironment(store, assignments), HelperExitCode::variablesRestored);

                QVERIFY(store.values == mixedValues());
                QCOMPARE(QStringList(store.calls.mid(4)),
                         changes.mid(0, failing) + restored.mid(4 - failing));
            }
        }
    }

    /// Neither an absence, nor a number, nor a string. The others are still restored.
    void cannotPutBack()
    {
        const std::map<int, std::wstring> failures{
            {5, L"HALCONIMAGES"}, {6, L"HALCONARCH"}, {7, L"HALCONROOT"}};
        for (const auto &[failing, changed] : failures) {
            for (const bool throws : {false, true}) {
                FakeStore store;
                store.values = mixedValues();
                store.failingChanges = {4, failing};
                store.throws = throws;

                QCOMPARE(changeEnvironment(store, assignments), HelperExitCode::variablesNotRestored);

                FakeStore::Values expected = mixedValues();
                expected[changed] = changedValues()[changed];
                QVERIFY(store.values == expected);
            }
        }
    }
};

QTEST_APPLESS_MAIN(EnvironmentChangeTest)

#include "EnvironmentChangeTest.moc"
