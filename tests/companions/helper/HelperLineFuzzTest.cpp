#include "companions/helper/HelperLine.h"

#include "tests/companions/helper/HostileLines.h"
#include "tests/companions/helper/PrintedRequest.h"
#include "tests/support/WideText.h"

#include <QtTest>

#include <algorithm>
#include <random>

namespace {

/// Lines that are accepted as they stand.
const QStringList goodLines{
    R"(--env HALCONROOT="C:\H & Co" )",
    R"(--env HALCONEXAMPLES="%TEMP%\寸" --env HALCONIMAGES="" --env HALCONARCH="x=^-<>|?*" --x86)",
    R"(--env HALCONROOT="" --x64 "C:\H\halconx.dll" "z:/a/\b\HalconXXL.DLL" "D:\.x\hdevenginex.dll")",
    R"(--copy="C:\H%1\license\my license.dat" "D:\new (2).dat")",
    R"(--copy="c:/Ж\\license\l" "\\server\share$\a/b.dat")",
};

/// Random damage, the same in every run.
class Damage {
public:
    /// @p line with random parts removed, doubled, replaced or inserted.
    std::wstring damaged(const QString &text)
    {
        std::wstring line = toWide(text);
        for (std::size_t count = 1 + number(4); count > 0; --count) {
            damage(line);
        }
        return line;
    }

private:
    std::size_t number(std::size_t below) { return random() % below; }

    void damage(std::wstring &line)
    {
        static const std::vector<std::wstring> pieces{
            L"\"",         L" ",       L"\\",     L"=",  L"--env ", L"--x64",
            L"--x86",      L"--copy=", L"--help", L"\t", L"\n",     L"\"\"",
            L"HALCONROOT", L"PATH",    L"..\\",   L"/",  L":",      L"C:\\halconx.dll",
            L"license\\",  L"x",       L"\xD800"};
        const std::wstring &piece = pieces[number(pieces.size())];
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
            line.insert(begin, piece);
            break;
        default:
            line.replace(begin, std::min(length, line.size() - begin), piece);
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
    void damagedLinesAreRefusedOrReadAsTheyAre()
    {
        Damage damage;
        accepted = 0;
        constexpr int rounds = 10000;
        for (int round = 0; round < rounds && !QTest::currentTestFailed(); ++round) {
            for (const QString &line : goodLines) {
                check(damage.damaged(line));
            }
        }
        // Both must happen, or the damage would prove nothing.
        const int count = rounds * goodLines.size();
        QVERIFY2(accepted > count / 50, qPrintable(QString::number(accepted)));
        QVERIFY2(accepted < count / 2, qPrintable(QString::number(accepted)));
    }

    void damagedHostileLinesAreRefusedOrReadAsTheyAre()
    {
        Damage damage;
        for (int round = 0; round < 50 && !QTest::currentTestFailed(); ++round) {
            for (const HostileLine &line : hostileLines()) {
                check(damage.damaged(line.arguments));
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
