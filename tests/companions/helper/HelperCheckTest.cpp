#include "companions/helper/HelperCheck.h"
#include "companions/helper/HelperPath.h"

#include "tests/support/Rows.h"
#include "tests/support/WideText.h"

#include <QtTest>

Q_DECLARE_METATYPE(FileFacts)

namespace {

using Kind = FileFacts::Kind;

} // namespace

class HelperCheckTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsThere_data()
    {
        // file: why the file is refused; empty where it is not
        const auto row =
            columns<FileFacts, QString, QString, QString>("facts", "file", "directory", "destination");
        const QString missing = "\"C:\\a b\\x\" does not exist.";
        const QString link = "\"C:\\a b\\x\" is a reparse point, such as a link or a junction.";
        const QString detour = "\"C:\\a b\\x\" lies elsewhere than its path says.";
        const QString isDirectory = "\"C:\\a b\\x\" is a directory.";
        const QString noDirectory = "\"C:\\a b\\x\" is not a directory.";
        const QString unreadable = "\"C:\\a b\\x\" cannot be read (Windows' error 5).";
        const QString unknown = "\"C:\\a b\\x\" cannot be read (Windows' error 0).";
        const QString device = "\"C:\\a b\\x\" is no file on a disk.";

        row("file", FileFacts{Kind::file}, "", noDirectory, "");
        row("directory", FileFacts{Kind::directory}, isDirectory, "", isDirectory);
        row("missing", FileFacts{Kind::unknown, 2}, missing, missing, "");
        row("directory above missing", FileFacts{Kind::unknown, 3}, missing, missing, missing);
        row("unreadable", FileFacts{Kind::unknown, 5}, unreadable, unreadable, unreadable);
        row("nothing is known", FileFacts(), unknown, unknown, unknown);
        row("device", FileFacts{Kind::other}, device, noDirectory, device);
        // For a file that is only read the way does not matter.
        const auto viaLink = [](Kind kind) { return FileFacts{kind, 0, true}; };
        row("link to a file", viaLink(Kind::file), "", link, link);
        row("link to a directory", viaLink(Kind::directory), isDirectory, link, link);
        const auto elsewhere = [](Kind kind) { return FileFacts{kind, 0, false, true}; };
        row("file elsewhere", elsewhere(Kind::file), "", detour, detour);
        row("directory elsewhere", elsewhere(Kind::directory), isDirectory, detour, detour);
    }

    void whatIsThere()
    {
        QFETCH(FileFacts, facts);
        const std::wstring path = L"C:\\a b\\x";

        QTEST(fromWide(refusalOfFile(path, facts)), "file");
        QTEST(fromWide(refusalOfDirectory(path, facts)), "directory");
        QTEST(fromWide(refusalOfDestination(path, facts)), "destination");
    }

    void sizes()
    {
        QCOMPARE(fromWide(refusalOfSize(L"C:\\x", 0)), QString("\"C:\\x\" is empty."));
        QCOMPARE(fromWide(refusalOfSize(L"C:\\x", 1)), QString());
        QCOMPARE(fromWide(refusalOfSize(L"C:\\x", 1048576)), QString());
        const QString tooLarge = "\"C:\\x\" is larger than 1048576 bytes, and no licence file.";
        QCOMPARE(fromWide(refusalOfSize(L"C:\\x", 1048577)), tooLarge);
        QCOMPARE(fromWide(refusalOfSize(L"C:\\x", (qint64(1) << 32) + 5)), tooLarge);
    }

    void shownTexts_data()
    {
        columns<QString, QString>("text", "expected");

        row("plain", "C:\\Größe 寸法 😀", "\"C:\\Größe 寸法 😀\"");
        row("longest", QString(300, 'x'), '"' + QString(300, 'x') + '"');
        row("too long", QString(301, 'x'), '"' + QString(300, 'x') + "...\"");
        row("control characters", "a\nb\tc\x7F\u0080\u009F", "\"a?b?c???\"");
        row("beside control characters", " ~\u00A0", "\" ~\u00A0\"");
        row("quote", "a\" is all right. \"b", "\"a? is all right. ?b\"");
        row("lone surrogate", "a" + QString(QChar(0xD83D)) + "b", "\"a?b\"");
        row("cut within a pair", QString(299, 'x') + "😀", '"' + QString(299, 'x') + "?...\"");
        for (const ushort mark : {0x061C, 0x200E, 0x200F, 0x2028, 0x2029, 0x202A, 0x202B, 0x202C, 0x202D,
                                  0x202E, 0x2066, 0x2067, 0x2068, 0x2069}) {
            QTest::addRow("mark U+%04X", mark) << "שלום" + QString(QChar(mark)) + "😀" << "\"שלום?😀\"";
        }
    }

    void shownTexts()
    {
        QFETCH(QString, text);

        QTEST(fromWide(shown(toWide(text))), "expected");
    }

    void partsOfPaths()
    {
        QCOMPARE(fromWide(withSingleBackslashes(L"C:\\\\H\\bin\\\\\\halconx.dll")),
                 QString("C:\\H\\bin\\halconx.dll"));
        QCOMPARE(fromWide(withSingleBackslashes(L"C:/T/H\\bin//x64-win64/\\halconx.dll")),
                 QString("C:\\T\\H\\bin\\x64-win64\\halconx.dll"));
        QCOMPARE(fromWide(withSingleBackslashes(L"C:\\a")), QString("C:\\a"));
        QCOMPARE(fromWide(withSingleBackslashes(L"\\\\server\\share\\\\a")), QString("\\\\server\\share\\a"));
        QCOMPARE(fromWide(withSingleBackslashes(L"//server/share//a/b")), QString("\\\\server\\share\\a\\b"));
        QCOMPARE(fromWide(fileNameOf(L"C:\\H\\halconx.dll")), QString("halconx.dll"));
        QCOMPARE(fromWide(directoryOf(L"C:\\H\\halconx.dll")), QString("C:\\H"));
        QCOMPARE(fromWide(directoryOf(L"C:\\a")), QString("C:"));
        QVERIFY(sameName(L"License", L"lICENSE"));
        QVERIFY(!sameName(L"license", L"licens"));
        QVERIFY(!sameName(L"licens", L"license"));
        QVERIFY(!sameName(toWide("lıcense"), L"license"));
        QVERIFY(!sameName(toWide("Ä"), toWide("ä")));
    }
};

QTEST_APPLESS_MAIN(HelperCheckTest)

#include "HelperCheckTest.moc"
