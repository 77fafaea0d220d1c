#include "card/DocumentationTitles.h"
#include "tests/support/Messages.h"

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

    QTest::newRow("manuals") << "Manuals";
    QTest::newRow("reference") << "Reference";
    QTest::newRow("solution_guide") << "Solution Guide";
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

    QTest::newRow("not in the table") << "examples"
                                      << R"("examples")";
    QTest::newRow("other letter case") << "Manuals"
                                       << R"("Manuals")";
    QTest::newRow("upper case") << "SOLUTION_GUIDE"
                                << R"("SOLUTION_GUIDE")";
    QTest::newRow("a title") << "Solution Guide"
                             << R"("Solution Guide")";
    QTest::newRow("beginning of a name") << "manual"
                                         << R"("manual")";
    QTest::newRow("trailing space") << "manuals "
                                    << R"("manuals ")";
    QTest::newRow("a file's name") << "quick_guide"
                                   << R"("quick_guide")";
    QTest::newRow("ampersand and percent signs") << "a & b 100%1"
                                                 << R"("a & b 100%1")";
    QTest::newRow("quote") << R"(a "b")"
                           << R"("a \"b\"")";
    QTest::newRow("not ASCII") << "Größe 検査"
                               << R"("Größe 検査")";
    QTest::newRow("empty") << ""
                           << R"("")";
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

    QTest::newRow("extension_package_programmers_manual")
        << "Extension Package Interface Programmer's Manual";
    QTest::newRow("gray_value_interpolation") << "Gray Value Interpolation";
    QTest::newRow("hdevelop_users_guide") << "HDevelop User's Guide";
    QTest::newRow("image_acquisition_interface_programmers_manual")
        << "Image Acquisition Interface Programmer's Manual";
    QTest::newRow("installation_guide") << "Installation Guide";
    QTest::newRow("programmers_guide") << "Programmer's Guide";
    QTest::newRow("quick_guide") << "Quick Guide";
    QTest::newRow("reference_hdevelop") << "HALCON/HDevelop Reference";
    QTest::newRow("solution_guide_i") << "Solution Guide I - Basics";
    QTest::newRow("solution_guide_ii_a_image_acquisition") << "Solution Guide II-A - Image Acquisition";
    QTest::newRow("solution_guide_ii_b_matching") << "Solution Guide II-B - Matching";
    QTest::newRow("solution_guide_ii_c_2d_data_codes") << "Solution Guide II-C - 2D Data Codes";
    QTest::newRow("solution_guide_ii_d_classification") << "Solution Guide II-D - Classification";
    QTest::newRow("solution_guide_iii_a_1d_measuring") << "Solution Guide III-A - 1D Measuring";
    QTest::newRow("solution_guide_iii_b_2d_measuring") << "Solution Guide III-B - 2D Measuring";
    QTest::newRow("solution_guide_iii_c_3d_vision") << "Solution Guide III-C - 3D Vision";
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

    QTest::newRow("not in the table") << "reference_c"
                                      << R"("reference_c")";
    QTest::newRow("release notes") << "release_notes"
                                   << R"("release_notes")";
    QTest::newRow("other letter case") << "Quick_Guide"
                                       << R"("Quick_Guide")";
    QTest::newRow("a title") << "Quick Guide"
                             << R"("Quick Guide")";
    QTest::newRow("with its extension") << "quick_guide.pdf"
                                        << R"("quick_guide.pdf")";
    QTest::newRow("beginning of a name") << "solution_guide_ii"
                                         << R"("solution_guide_ii")";
    QTest::newRow("leading space") << " quick_guide"
                                   << R"(" quick_guide")";
    QTest::newRow("a directory's name") << "manuals"
                                        << R"("manuals")";
    QTest::newRow("ampersand and percent signs") << "a & b 100%1"
                                                 << R"("a & b 100%1")";
    QTest::newRow("quote") << R"(a "b")"
                           << R"("a \"b\"")";
    QTest::newRow("not ASCII") << "Größe 検査"
                               << R"("Größe 検査")";
    QTest::newRow("empty") << ""
                           << R"("")";
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
