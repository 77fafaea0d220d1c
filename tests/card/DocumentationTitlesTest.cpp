#include "card/DocumentationTitles.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

class DocumentationTitlesTest : public QObject {
    Q_OBJECT

private slots:
    void directory_data();
    void directory();
    void unknownDirectory_data();
    void unknownDirectory();
    void file_data();
    void file();
    void unknownFile_data();
    void unknownFile();
    void oneWarningPerOccurrence();
};

void DocumentationTitlesTest::directory_data()
{
    QTest::addColumn<QString>("title");

    row("manuals", "Manuals");
    row("reference", "Reference");
    row("solution_guide", "Solution Guide");
}

void DocumentationTitlesTest::directory()
{
    const CaughtMessages messages;
    QTEST(beautifyDir(QTest::currentDataTag()), "title");
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTitlesTest::unknownDirectory_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("quotedName");

    row("not in the table", "examples", R"("examples")");
    row("other letter case", "Manuals", R"("Manuals")");
    row("upper case", "SOLUTION_GUIDE", R"("SOLUTION_GUIDE")");
    row("a title", "Solution Guide", R"("Solution Guide")");
    row("beginning of a name", "manual", R"("manual")");
    row("trailing space", "manuals ", R"("manuals ")");
    row("a file's name", "quick_guide", R"("quick_guide")");
    row("ampersand and percent signs", "a & b 100%1", R"("a & b 100%1")");
    row("quote", R"(a "b")", R"("a \"b\"")");
    row("not ASCII", "Größe 検査", R"("Größe 検査")");
    row("empty", "", R"("")");
}

void DocumentationTitlesTest::unknownDirectory()
{
    QFETCH(QString, name);
    QFETCH(QString, quotedName);
    const CaughtMessages messages;
    QCOMPARE(beautifyDir(name), name);
    QCOMPARE(messages.warnings(),
             QStringList{"cannot beautify unknown directory name " + quotedName + " in beautifyDir()"});
}

void DocumentationTitlesTest::file_data()
{
    QTest::addColumn<QString>("title");

    row("extension_package_programmers_manual", "Extension Package Interface Programmer's Manual");
    row("gray_value_interpolation", "Gray Value Interpolation");
    row("hdevelop_users_guide", "HDevelop User's Guide");
    row("image_acquisition_interface_programmers_manual", "Image Acquisition Interface Programmer's Manual");
    row("installation_guide", "Installation Guide");
    row("programmers_guide", "Programmer's Guide");
    row("quick_guide", "Quick Guide");
    row("reference_hdevelop", "HALCON/HDevelop Reference");
    row("solution_guide_i", "Solution Guide I - Basics");
    row("solution_guide_ii_a_image_acquisition", "Solution Guide II-A - Image Acquisition");
    row("solution_guide_ii_b_matching", "Solution Guide II-B - Matching");
    row("solution_guide_ii_c_2d_data_codes", "Solution Guide II-C - 2D Data Codes");
    row("solution_guide_ii_d_classification", "Solution Guide II-D - Classification");
    row("solution_guide_iii_a_1d_measuring", "Solution Guide III-A - 1D Measuring");
    row("solution_guide_iii_b_2d_measuring", "Solution Guide III-B - 2D Measuring");
    row("solution_guide_iii_c_3d_vision", "Solution Guide III-C - 3D Vision");
}

void DocumentationTitlesTest::file()
{
    const CaughtMessages messages;
    QTEST(beautifyFilename(QTest::currentDataTag()), "title");
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTitlesTest::unknownFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("quotedName");

    row("not in the table", "reference_c", R"("reference_c")");
    row("release notes", "release_notes", R"("release_notes")");
    row("other letter case", "Quick_Guide", R"("Quick_Guide")");
    row("a title", "Quick Guide", R"("Quick Guide")");
    row("with its extension", "quick_guide.pdf", R"("quick_guide.pdf")");
    row("beginning of a name", "solution_guide_ii", R"("solution_guide_ii")");
    row("leading space", " quick_guide", R"(" quick_guide")");
    row("a directory's name", "manuals", R"("manuals")");
    row("ampersand and percent signs", "a & b 100%1", R"("a & b 100%1")");
    row("quote", R"(a "b")", R"("a \"b\"")");
    row("not ASCII", "Größe 検査", R"("Größe 検査")");
    row("empty", "", R"("")");
}

void DocumentationTitlesTest::unknownFile()
{
    QFETCH(QString, name);
    QFETCH(QString, quotedName);
    const CaughtMessages messages;
    QCOMPARE(beautifyFilename(name), name);
    QCOMPARE(messages.warnings(),
             QStringList{"cannot beautify unknown file name " + quotedName + " in beautifyFilename()"});
}

void DocumentationTitlesTest::oneWarningPerOccurrence()
{
    const CaughtMessages messages;
    beautifyDir("x");
    beautifyFilename("x");
    beautifyDir("x");
    beautifyFilename("x");
    const QString directoryWarning = R"(cannot beautify unknown directory name "x" in beautifyDir())";
    const QString fileWarning = R"(cannot beautify unknown file name "x" in beautifyFilename())";
    QCOMPARE(messages.warnings(),
             (QStringList{directoryWarning, fileWarning, directoryWarning, fileWarning}));
}

QTEST_GUILESS_MAIN(DocumentationTitlesTest)

#include "DocumentationTitlesTest.moc"
