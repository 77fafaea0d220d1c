#include "card/DocumentationTitles.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

class DocumentationTitlesTest : public QObject {
    Q_OBJECT

private slots:
    void directory_data()
    {
        columns<QString>("title");

        row("manuals", "Manuals");
        row("reference", "Reference");
        row("solution_guide", "Solution Guide");
    }

    void directory()
    {
        const CaughtMessages messages;
        QTEST(beautifyDir(QTest::currentDataTag()), "title");
        QCOMPARE(messages.warnings(), QStringList());
    }

    void file_data()
    {
        columns<QString>("title");

        row("extension_package_programmers_manual", "Extension Package Interface Programmer's Manual");
        row("gray_value_interpolation", "Gray Value Interpolation");
        row("hdevelop_users_guide", "HDevelop User's Guide");
        row("image_acquisition_interface_programmers_manual",
            "Image Acquisition Interface Programmer's Manual");
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

    void file()
    {
        const CaughtMessages messages;
        QTEST(beautifyFilename(QTest::currentDataTag()), "title");
        QCOMPARE(messages.warnings(), QStringList());
    }

    void unknown_data()
    {
        columns<QString>("quotedName");

        for (const char *name :
             {"examples", "reference_c", "release_notes", "Manuals", "SOLUTION_GUIDE", "Quick_Guide",
              "Solution Guide", "Quick Guide", "manual", "solution_guide_ii", "manuals ", " quick_guide",
              "quick_guide.pdf", "a & b 100%1", "Größe 検査", ""}) {
            row(name, '"' + QString(name) + '"');
        }
        row("a \"b\"", "\"a \\\"b\\\"\"");
    }

    /// Neither function changes the name, and each warns every time.
    void unknown()
    {
        QFETCH(QString, quotedName);
        const QString name = QTest::currentDataTag();
        const CaughtMessages messages;
        QStringList warnings;
        for (int time = 0; time < 2; ++time) {
            QCOMPARE(beautifyDir(name), name);
            QCOMPARE(beautifyFilename(name), name);
            warnings << "cannot beautify unknown directory name " + quotedName + " in beautifyDir()"
                     << "cannot beautify unknown file name " + quotedName + " in beautifyFilename()";
        }
        QCOMPARE(messages.warnings(), warnings);
    }

    void eachHasItsOwnTable()
    {
        const CaughtMessages messages;
        QCOMPARE(beautifyDir("quick_guide"), QString("quick_guide"));
        QCOMPARE(beautifyFilename("manuals"), QString("manuals"));
        QCOMPARE(messages.warnings().size(), 2);
    }
};

QTEST_GUILESS_MAIN(DocumentationTitlesTest)
#include "DocumentationTitlesTest.moc"
