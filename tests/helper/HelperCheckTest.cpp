#include "companions/helper/HelperCheck.h"
#include "companions/helper/HelperPath.h"

#include "tests/helper/WideText.h"

#include <QtTest>

namespace {

FileFacts directory()
{
    FileFacts facts;
    facts.kind = FileFacts::Kind::directory;
    facts.links = 1;
    facts.volume = 7;
    facts.index = 100;
    return facts;
}

FileFacts file(quint64 index)
{
    FileFacts facts;
    facts.kind = FileFacts::Kind::file;
    facts.size = 2000;
    facts.links = 1;
    facts.volume = 7;
    facts.index = index;
    return facts;
}

FileFacts missing()
{
    FileFacts facts;
    facts.kind = FileFacts::Kind::missing;
    return facts;
}

/// A copy that is all right: the start of each row.
struct Copy {
    WayFacts source{directory(), directory(), file(1)};
    WayFacts licenseDirectory{directory(), directory(), directory()};
    FileFacts destination = file(2);
};

using Change = void (*)(Copy &);

} // namespace

Q_DECLARE_METATYPE(Change)

class HelperCheckTest : public QObject {
    Q_OBJECT

private slots:
    void copy_data();
    void copy();
    void library_data();
    void library();
    void partsOfPaths();
};

void HelperCheckTest::copy_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("refusal");
    const QString source = "The source is no file that is reached without a detour.";
    const QString size = "The source is empty or too large for a licence file.";
    const QString place = "The destination's directory is none that is reached without a detour.";
    const QString same = "The source is the destination.";
    const QString destination = "The destination is there and no ordinary file.";
    const auto row = [](const char *name, Change change, const QString &refusal) {
        QTest::newRow(name) << change << refusal;
    };
    using Kind = FileFacts::Kind;

    row(
        "good", [](Copy &) {}, "");
    row(
        "no destination yet", [](Copy &c) { c.destination = missing(); }, "");
    row(
        "source on the drive itself", [](Copy &c) { c.source = {file(1)}; }, "");
    row(
        "smallest source", [](Copy &c) { c.source.back().size = 1; }, "");
    row(
        "largest source", [](Copy &c) { c.source.back().size = 1048576; }, "");
    row(
        "source with two names", [](Copy &c) { c.source.back().links = 2; }, "");
    row(
        "same index on another volume", [](Copy &c) { c.destination.index = 1, c.destination.volume = 8; },
        "");

    row(
        "no facts of the source", [](Copy &c) { c.source.clear(); }, source);
    row(
        "source missing", [](Copy &c) { c.source.back() = missing(); }, source);
    row(
        "source unknown", [](Copy &c) { c.source.back() = FileFacts(); }, source);
    row(
        "source is a directory", [](Copy &c) { c.source.back() = directory(); }, source);
    row(
        "source is a link", [](Copy &c) { c.source.back().reparsePoint = true; }, source);
    row(
        "source lies elsewhere", [](Copy &c) { c.source.back().elsewhere = true; }, source);
    row(
        "link on the way to the source", [](Copy &c) { c.source[0].reparsePoint = true; }, source);
    row(
        "detour on the way to the source", [](Copy &c) { c.source[1].elsewhere = true; }, source);
    row(
        "file on the way to the source", [](Copy &c) { c.source[1] = file(3); }, source);
    row(
        "gap on the way to the source", [](Copy &c) { c.source[1] = FileFacts(); }, source);
    row(
        "source empty", [](Copy &c) { c.source.back().size = 0; }, size);
    row(
        "source too large", [](Copy &c) { c.source.back().size = 1048577; }, size);
    row(
        "source huge", [](Copy &c) { c.source.back().size = quint64(1) << 32 | 5; }, size);

    row(
        "no facts of the license directory", [](Copy &c) { c.licenseDirectory.clear(); }, place);
    row(
        "license directory missing", [](Copy &c) { c.licenseDirectory.back() = missing(); }, place);
    row(
        "license directory unknown", [](Copy &c) { c.licenseDirectory.back() = FileFacts(); }, place);
    row(
        "license directory is a file", [](Copy &c) { c.licenseDirectory.back() = file(3); }, place);
    row(
        "license directory is a link", [](Copy &c) { c.licenseDirectory.back().reparsePoint = true; }, place);
    row(
        "license directory lies elsewhere", [](Copy &c) { c.licenseDirectory.back().elsewhere = true; },
        place);
    row(
        "link on the way to the license directory",
        [](Copy &c) { c.licenseDirectory[0].reparsePoint = true; }, place);
    row(
        "detour on the way to the license directory", [](Copy &c) { c.licenseDirectory[1].elsewhere = true; },
        place);
    row(
        "file on the way to the license directory", [](Copy &c) { c.licenseDirectory[1] = file(3); }, place);

    row(
        "same file", [](Copy &c) { c.destination = c.source.back(); }, same);
    row(
        "destination is a directory", [](Copy &c) { c.destination = directory(); }, destination);
    row(
        "destination unknown", [](Copy &c) { c.destination.kind = Kind::unknown; }, destination);
    row(
        "destination is a link", [](Copy &c) { c.destination.reparsePoint = true; }, destination);
    row(
        "destination lies elsewhere", [](Copy &c) { c.destination.elsewhere = true; }, destination);
    row(
        "destination with two names", [](Copy &c) { c.destination.links = 2; }, destination);
    row(
        "destination with an unknown number of names", [](Copy &c) { c.destination.links = 0; }, destination);
}

void HelperCheckTest::copy()
{
    QFETCH(Change, change);
    Copy copy;
    change(copy);

    QTEST(fromWide(refusalOfCopy(copy.source, copy.licenseDirectory, copy.destination)), "refusal");
}

void HelperCheckTest::library_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("refused");
    const auto row = [](const char *name, Change change, bool refused) {
        QTest::newRow(name) << change << refused;
    };

    row(
        "good", [](Copy &) {}, false);
    row(
        "large", [](Copy &c) { c.source.back().size = quint64(1) << 30; }, false);
    row(
        "with two names", [](Copy &c) { c.source.back().links = 2; }, false);
    row(
        "missing", [](Copy &c) { c.source.back() = missing(); }, true);
    row(
        "unknown", [](Copy &c) { c.source.back() = FileFacts(); }, true);
    row(
        "directory", [](Copy &c) { c.source.back() = directory(); }, true);
    row(
        "link", [](Copy &c) { c.source.back().reparsePoint = true; }, true);
    row(
        "elsewhere", [](Copy &c) { c.source.back().elsewhere = true; }, true);
    row(
        "link on the way", [](Copy &c) { c.source[1].reparsePoint = true; }, true);
    row(
        "detour on the way", [](Copy &c) { c.source[0].elsewhere = true; }, true);
    row(
        "file on the way", [](Copy &c) { c.source[0] = file(3); }, true);
    row(
        "gap on the way",
        [](Copy &c) {
            c.source = {directory(), missing()};
        },
        true);
}

void HelperCheckTest::library()
{
    QFETCH(Change, change);
    QFETCH(bool, refused);
    Copy copy;
    change(copy);

    QCOMPARE(fromWide(refusalOfLibrary(copy.source)),
             QString(refused ? "A library is no file that is reached without a detour." : ""));
}

void HelperCheckTest::partsOfPaths()
{
    QCOMPARE(fromWide(withSingleBackslashes(L"C:\\\\H\\bin\\\\\\halconx.dll")),
             QString("C:\\H\\bin\\halconx.dll"));
    QCOMPARE(fromWide(withSingleBackslashes(L"C:/T/H\\bin//x64-win64/\\halconx.dll")),
             QString("C:\\T\\H\\bin\\x64-win64\\halconx.dll"));
    QCOMPARE(fromWide(withSingleBackslashes(L"C:\\a")), QString("C:\\a"));
    QCOMPARE(fromWide(fileNameOf(L"C:\\H\\halconx.dll")), QString("halconx.dll"));
    QCOMPARE(fromWide(directoryOf(L"C:\\H\\halconx.dll")), QString("C:\\H"));
    QCOMPARE(fromWide(directoryOf(L"C:\\a")), QString("C:"));
    QVERIFY(sameName(L"License", L"lICENSE"));
    QVERIFY(!sameName(L"license", L"licens"));
    QVERIFY(!sameName(L"licens", L"license"));
    QVERIFY(!sameName(toWide("lıcense"), L"license"));
    QVERIFY(!sameName(toWide("Ä"), toWide("ä")));
}

QTEST_APPLESS_MAIN(HelperCheckTest)

#include "HelperCheckTest.moc"
