#include "companions/helper/HelperLine.h"

#include "tests/companions/helper/HostileLines.h"
#include "tests/companions/helper/PrintedRequest.h"
#include "tests/support/WideText.h"

#include <QtTest>

#include <algorithm>
#include <random>

namespace {

/// Random requests and random damage, the same in every run.
class Generator {
public:
    std::size_t number(std::size_t below) { return random() % below; }

    HelperRequest request() { return number(3) == 0 ? copyRequest() : machineRequest(); }

    /// @p line with random parts removed, doubled, replaced or inserted.
    std::wstring damaged(std::wstring line)
    {
        for (std::size_t count = 1 + number(4); count > 0; --count) {
            damage(line);
        }
        return line;
    }

private:
    template <typename List>
    const typename List::value_type &oneOf(const List &list)
    {
        return list[number(list.size())];
    }

    std::wstring text(const std::wstring &characters, std::size_t longest)
    {
        std::wstring result;
        for (std::size_t length = number(longest + 1); length > 0; --length) {
            result += oneOf(characters);
        }
        return result;
    }

    /// The middle of a path: names that begin and end with a letter.
    std::wstring directories()
    {
        static const std::wstring letters = L"abzABZ09äÖ寸Ж";
        static const std::wstring within = letters + L" .-=&%^();,'!~$#@{}[]+`_";
        static const std::vector<std::wstring> separators{L"\\", L"\\", L"\\", L"\\\\", L"/", L"/\\"};
        std::wstring result;
        for (std::size_t count = number(4); count > 0; --count) {
            result += L"x" + text(within, 12) + oneOf(letters) + oneOf(separators);
        }
        return result;
    }

    std::wstring drive() { return std::wstring(1, oneOf(std::wstring(L"CDZcz"))) + L":\\"; }

    std::wstring share() { return L"\\\\s" + text(L"abc.-1", 5) + L"x\\" + text(L"abc $.", 5) + L"z/"; }

    HelperRequest machineRequest()
    {
        static const std::wstring characters = L"abcXYZ019 \\\\\\=&%^();:/.-'<>|?*äÖ寸Ж\U0001F600";
        std::vector<std::wstring> names{L"HALCONROOT", L"HALCONARCH", L"HALCONIMAGES", L"HALCONEXAMPLES"};
        HelperRequest request;
        request.action = HelperAction::setMachine;
        std::shuffle(names.begin(), names.end(), random);
        names.resize(1 + number(4));
        for (const std::wstring &name : names) {
            request.environment.push_back({name, text(characters, 40)});
        }
        if (number(2) == 0) {
            request.architecture = number(2) == 0 ? LibraryArchitecture::x86 : LibraryArchitecture::x64;
            request.libraries = libraries();
        }
        return request;
    }

    std::vector<std::wstring> libraries()
    {
        std::vector<std::wstring> result{L"halconx.dll", L"HalconXXL.DLL", L"hdevenginex.dll",
                                         L"hdevenginexxl.dll"};
        std::shuffle(result.begin(), result.end(), random);
        result.resize(number(5));
        for (std::wstring &library : result) {
            library.insert(0, drive() + directories());
        }
        return result;
    }

    HelperRequest copyRequest()
    {
        HelperRequest request;
        request.action = HelperAction::copyLicense;
        request.destination = drive() + directories() + L"license\\a" + text(L"abc .", 5) + L"z";
        request.source =
            (number(3) == 0 ? share() : drive()) + directories() + L"a" + text(L"abc .", 5) + L"z";
        return request;
    }

    void damage(std::wstring &line)
    {
        static const std::vector<std::wstring> pieces{
            L"\"",         L" ",       L"\\",     L"=",  L"--env ", L"--x64",
            L"--x86",      L"--copy=", L"--help", L"\t", L"\n",     L"\"\"",
            L"HALCONROOT", L"PATH",    L"..\\",   L"/",  L":",      L"C:\\halconx.dll",
            L"license\\",  L"x",       L"\xD800"};
        const std::size_t begin = number(line.size() + 1);
        const std::size_t length = number(number(2) == 0 ? 3 : 30);
        switch (number(4)) {
        case 0:
            line.erase(begin, length);
            break;
        case 1:
            line.insert(number(line.size() + 1), line.substr(begin, length));
            break;
        case 2:
            line.insert(begin, oneOf(pieces));
            break;
        default:
            line.replace(begin, std::min(length, line.size() - begin), oneOf(pieces));
            break;
        }
    }

    // Deliberately a fixed seed.
    std::mt19937 random{20111u};
};

/// The helper reads a line with and without a trailing space alike.
std::wstring withoutLastSpace(std::wstring line)
{
    if (!line.empty() && line.back() == L' ') {
        line.pop_back();
    }
    return line;
}

} // namespace

class HelperLineFuzzTest : public QObject {
    Q_OBJECT

private slots:
    void validRequestsAreReadBack()
    {
        Generator generator;
        for (int i = 0; i < 20000; ++i) {
            const HelperRequest request = generator.request();
            const std::wstring line = printedRequest(request);

            const HelperReading reading =
                readHelperArguments(argumentsOf(L"\"C:\\a b\\helper.exe\" " + line));

            QVERIFY2(reading.request, qPrintable(fromWide(line + L": " + reading.refusal)));
            QVERIFY2(sameRequest(*reading.request, request), qPrintable(fromWide(line)));
        }
    }

    void damagedLinesAreRefusedOrReadAsTheyAre()
    {
        Generator generator;
        accepted = 0;
        constexpr int count = 50000;
        for (int i = 0; i < count; ++i) {
            check(generator.damaged(printedRequest(generator.request())));
            if (QTest::currentTestFailed()) {
                return;
            }
        }
        // Both must happen, or the damage would prove nothing.
        QVERIFY2(accepted > count / 50, qPrintable(QString::number(accepted)));
        QVERIFY2(accepted < count / 2, qPrintable(QString::number(accepted)));
    }

    void damagedHostileLinesAreRefusedOrReadAsTheyAre()
    {
        Generator generator;
        for (int round = 0; round < 50; ++round) {
            for (const HostileLine &line : hostileLines()) {
                check(generator.damaged(toWide(line.arguments)));
                if (QTest::currentTestFailed()) {
                    return;
                }
            }
        }
    }

private:
    /// Counts the lines that were accepted.
    void check(const std::wstring &line)
    {
        const HelperReading reading = readHelperArguments(line);
        QCOMPARE(reading.refusal.empty(), reading.request.has_value());
        if (!reading.request || reading.request->action == HelperAction::showHelp ||
            reading.request->action == HelperAction::showVersion) {
            return;
        }
        ++accepted;
        QCOMPARE(fromWide(withoutLastSpace(printedRequest(*reading.request))),
                 fromWide(withoutLastSpace(line)));
    }

    int accepted = 0;
};

QTEST_APPLESS_MAIN(HelperLineFuzzTest)

#include "HelperLineFuzzTest.moc"
