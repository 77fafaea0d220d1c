#include "card/Documentation.h"
#include "tests/card/DocumentationLines.h"
#include "tests/card/DocumentationTree.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/Messages.h"

#include <QtTest>

namespace {

QString directoryWarning(const QString &name)
{
    return "cannot beautify unknown directory name \"" + name + "\" in beautifyDir()";
}

QString fileWarning(const QString &name)
{
    return "cannot beautify unknown file name \"" + name + "\" in beautifyFilename()";
}

} // namespace

class DocumentationTest : public QObject {
    Q_OBJECT

private slots:
    void completeInstallation();
    void nothingThere();
    void missingDirectory();
    void noDirectory();
    void someHtmlManuals();
    void pdf_data();
    void pdf();
    void pdfsThatAreNone();
    void severalPdfsInUnknownDirectories();
    void releaseNotes_data();
    void releaseNotes();
    void otherFilesAreNoReleaseNotes();
    void namesOfTheInstallation_data();
    void namesOfTheInstallation();
};

void DocumentationTest::completeInstallation()
{
    const DocumentationTree tree;
    tree.addEverything();
    const CaughtMessages messages;
    const Documentation found = findDocumentation(tree.installDir());

    const QStringList pdfManuals{
        "Manuals > Extension Package Interface Programmer's Manual = "
        "doc/pdf/manuals/extension_package_programmers_manual.pdf",
        "Manuals > Gray Value Interpolation = doc/pdf/manuals/gray_value_interpolation.pdf",
        "Manuals > HDevelop User's Guide = doc/pdf/manuals/hdevelop_users_guide.pdf",
        "Manuals > Image Acquisition Interface Programmer's Manual = "
        "doc/pdf/manuals/image_acquisition_interface_programmers_manual.pdf",
        "Manuals > Installation Guide = doc/pdf/manuals/installation_guide.pdf",
        "Manuals > Programmer's Guide = doc/pdf/manuals/programmers_guide.pdf",
        "Manuals > Quick Guide = doc/pdf/manuals/quick_guide.pdf",
        "Reference > HALCON/HDevelop Reference = doc/pdf/reference/reference_hdevelop.pdf",
        "Solution Guide > Solution Guide I - Basics = doc/pdf/solution_guide/solution_guide_i.pdf",
        "Solution Guide > Solution Guide II-A - Image Acquisition = "
        "doc/pdf/solution_guide/solution_guide_ii_a_image_acquisition.pdf",
        "Solution Guide > Solution Guide II-B - Matching = "
        "doc/pdf/solution_guide/solution_guide_ii_b_matching.pdf",
        "Solution Guide > Solution Guide II-C - 2D Data Codes = "
        "doc/pdf/solution_guide/solution_guide_ii_c_2d_data_codes.pdf",
        "Solution Guide > Solution Guide II-D - Classification = "
        "doc/pdf/solution_guide/solution_guide_ii_d_classification.pdf",
        "Solution Guide > Solution Guide III-A - 1D Measuring = "
        "doc/pdf/solution_guide/solution_guide_iii_a_1d_measuring.pdf",
        "Solution Guide > Solution Guide III-B - 2D Measuring = "
        "doc/pdf/solution_guide/solution_guide_iii_b_2d_measuring.pdf",
        "Solution Guide > Solution Guide III-C - 3D Vision = "
        "doc/pdf/solution_guide/solution_guide_iii_c_3d_vision.pdf",
    };
    QCOMPARE(sorted(entryLines(found.pdfManuals, tree)), pdfManuals);

    const QStringList htmlManuals{
        "Operator Reference = doc/html/reference/operators/index.html",
        "Acquistion Reference = doc/html/reference/acquisition/acq-overview.html",
        "I/O Interfaces Reference = doc/html/reference/io/io-overview.html",
        "Codelets Reference = doc/html/reference/codelets/index.html",
        "Extension Package Interface Programmer's Manual = "
        "doc/html/manuals/extension_package_programmers_manual/index.html",
        "Gray Value Interpolation = doc/html/manuals/gray_value_interpolation/index.html",
        "HDevelop User's Guide = doc/html/manuals/hdevelop_users_guide/index.html",
        "Image Acquisition Interface Programmer's Manual = "
        "doc/html/manuals/image_acquisition_interface_programmers_manual/index.html",
        "Programmer's Guide = doc/html/manuals/programmers_guide/index.html",
    };
    QCOMPARE(entryLines(found.htmlManuals, tree), htmlManuals);

    const QStringList releaseNotes{
        "Release Notes 13 = release_notes_13.html",
        "Release Notes 20.05 = release_notes_20_05.html",
        "Release Notes 20.11 = release_notes_20_11.html",
        "Release Notes = release_notes.html, bold",
        "Release Notes foo.bar = release_notes_foo_bar.html",
        "release.notesX = release_notesX.html",
    };
    QCOMPARE(sorted(entryLines(found.releaseNotes, tree)), releaseNotes);

    const QStringList warnings{
        fileWarning("release_notes"),       fileWarning("release_notesX"),
        fileWarning("release_notes_13"),    fileWarning("release_notes_20_05"),
        fileWarning("release_notes_20_11"), fileWarning("release_notes_foo_bar"),
    };
    QCOMPARE(sorted(messages.warnings()), sorted(warnings));
}

void DocumentationTest::nothingThere()
{
    const DocumentationTree tree;
    tree.add({"bin/x64-win64/hdevelop.exe"});
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree), QStringList());
    // Another manual is found, which proves that the installation was searched.
    tree.add({"doc/pdf/manuals/quick_guide.pdf"});
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree),
             QStringList{"Manuals > Quick Guide = doc/pdf/manuals/quick_guide.pdf"});
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTest::missingDirectory()
{
    const DocumentationTree tree;
    tree.addEverything();
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir() + "-missing"), tree), QStringList());
    QCOMPARE(messages.warnings(), QStringList());
}

/// Neither the current directory nor the root of its drive is an installation.
void DocumentationTest::noDirectory()
{
    const DocumentationTree tree;
    tree.addEverything();
    const CurrentDirectory current(tree.installDir());
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(""), tree), QStringList());
    QCOMPARE(allEntryLines(findDocumentation(QString()), tree), QStringList());
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTest::someHtmlManuals()
{
    const DocumentationTree tree;
    tree.add({"doc/html/manuals/programmers_guide/index.html", "doc/html/reference/io/io-overview.html",
              // Names that only resemble a manual's.
              "doc/html/reference/operators/index.htm", "doc/html/reference/acquisition/index.html",
              "doc/html/index.html"});
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree),
             (QStringList{"I/O Interfaces Reference = doc/html/reference/io/io-overview.html",
                          "Programmer's Guide = doc/html/manuals/programmers_guide/index.html"}));
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTest::pdf_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QStringList>("warnings");

    const QStringList none;
    QTest::newRow("known") << "manuals/quick_guide.pdf"
                           << "Manuals > Quick Guide" << none;
    QTest::newRow("in the directory itself") << "quick_guide.pdf"
                                             << "Quick Guide" << none;
    QTest::newRow("in another known directory") << "reference/quick_guide.pdf"
                                                << "Reference > Quick Guide" << none;
    QTest::newRow("unknown directory") << "extra/quick_guide.pdf"
                                       << "extra > Quick Guide" << QStringList{directoryWarning("extra")};
    QTest::newRow("nested unknown directories")
        << "one/two/three/quick_guide.pdf"
        << "one > two > three > Quick Guide"
        << QStringList{directoryWarning("one"), directoryWarning("two"), directoryWarning("three")};
    QTest::newRow("nested known directories") << "manuals/reference/manuals/quick_guide.pdf"
                                              << "Manuals > Reference > Manuals > Quick Guide" << none;
    QTest::newRow("unknown file") << "manuals/my_manual.pdf"
                                  << "Manuals > my_manual" << QStringList{fileWarning("my_manual")};
    QTest::newRow("unknown directory and file")
        << "extra/my_manual.pdf"
        << "extra > my_manual" << QStringList{directoryWarning("extra"), fileWarning("my_manual")};
    QTest::newRow("upper-case extension") << "manuals/quick_guide.PDF"
                                          << "Manuals > Quick Guide" << none;
    QTest::newRow("upper-case name") << "manuals/QUICK_GUIDE.PDF"
                                     << "Manuals > QUICK_GUIDE" << QStringList{fileWarning("QUICK_GUIDE")};
    QTest::newRow("several dots") << "manuals/quick_guide.de.v2.pdf"
                                  << "Manuals > Quick Guide" << none;
    QTest::newRow("name of release notes")
        << "manuals/release_notes_20_11.pdf"
        << "Manuals > release_notes_20_11" << QStringList{fileWarning("release_notes_20_11")};
    QTest::newRow("spaces, #, % and &")
        << "my dir #1 & 50%/a #2 100%41 & b.pdf"
        << "my dir #1 & 50% > a #2 100%41 & b"
        << QStringList{directoryWarning("my dir #1 & 50%"), fileWarning("a #2 100%41 & b")};
    QTest::newRow("not ASCII") << "Größe/検査.pdf"
                               << "Größe > 検査"
                               << QStringList{directoryWarning("Größe"), fileWarning("検査")};
}

void DocumentationTest::pdf()
{
    QFETCH(QString, file);
    QFETCH(QString, place);
    QFETCH(QStringList, warnings);
    const DocumentationTree tree;
    tree.add({"doc/pdf/" + file});
    const CaughtMessages messages;
    const Documentation found = findDocumentation(tree.installDir());
    QCOMPARE(entryLines(found.pdfManuals, tree), QStringList{place + " = doc/pdf/" + file});
    QCOMPARE(allEntryLines(found, tree).size(), 1);
    QCOMPARE(messages.warnings(), warnings);
}

void DocumentationTest::pdfsThatAreNone()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/manuals/quick_guide.txt", "doc/pdf/manuals/quick_guide.pdf.bak",
              "doc/pdf/manuals/quick_guidepdf", "doc/pdf/release_notes.html",
              // Elsewhere.
              "quick_guide.pdf", "doc/quick_guide.pdf", "doc/html/manuals/quick_guide.pdf",
              // A directory's name does not make its files manuals.
              "doc/pdf/folder.pdf/readme.txt"});
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree), QStringList());
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTest::severalPdfsInUnknownDirectories()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/extra/quick_guide.pdf", "doc/pdf/extra/programmers_guide.pdf",
              "doc/pdf/extra/more/installation_guide.pdf"});
    const CaughtMessages messages;
    const Documentation found = findDocumentation(tree.installDir());
    QCOMPARE(sorted(entryLines(found.pdfManuals, tree)),
             (QStringList{"extra > Programmer's Guide = doc/pdf/extra/programmers_guide.pdf",
                          "extra > Quick Guide = doc/pdf/extra/quick_guide.pdf",
                          "extra > more > Installation Guide = doc/pdf/extra/more/installation_guide.pdf"}));
    // One for each file and each unknown directory above it.
    QCOMPARE(sorted(messages.warnings()), (QStringList{directoryWarning("extra"), directoryWarning("extra"),
                                                       directoryWarning("extra"), directoryWarning("more")}));
}

void DocumentationTest::releaseNotes_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<QString>("baseName");

    QTest::newRow("release_notes.html") << "Release Notes" << true << "release_notes";
    QTest::newRow("release_notes_20_11.html") << "Release Notes 20.11" << false << "release_notes_20_11";
    QTest::newRow("release_notes_20_11_1_0.html")
        << "Release Notes 20.11.1.0" << false << "release_notes_20_11_1_0";
    QTest::newRow("release_notes_foo_bar.html")
        << "Release Notes foo.bar" << false << "release_notes_foo_bar";
    QTest::newRow("release_notesX.html") << "release.notesX" << false << "release_notesX";
    QTest::newRow("release_notesX_1.html") << "release.notesX.1" << false << "release_notesX_1";
    QTest::newRow("release_notes_.html") << "Release Notes " << false << "release_notes_";
    QTest::newRow("release_notes_release_notes_1.html")
        << "Release Notes Release Notes 1" << false << "release_notes_release_notes_1";
    // Only the part before the first dot counts.
    QTest::newRow("release_notes.de.html") << "Release Notes" << true << "release_notes";
    QTest::newRow("release_notes_20.11.html") << "Release Notes 20" << false << "release_notes_20";
    QTest::newRow("RELEASE_NOTES.HTML") << "RELEASE.NOTES" << false << "RELEASE_NOTES";
    QTest::newRow("release_notes_a & b #1 100%41.html")
        << "Release Notes a & b #1 100%41" << false << "release_notes_a & b #1 100%41";
    QTest::newRow("release_notes_Größe_検査.html")
        << "Release Notes Größe.検査" << false << "release_notes_Größe_検査";
}

void DocumentationTest::releaseNotes()
{
    QFETCH(QString, title);
    QFETCH(bool, bold);
    QFETCH(QString, baseName);
    const QString file = QTest::currentDataTag();
    const DocumentationTree tree;
    tree.add({file});
    const CaughtMessages messages;
    const Documentation found = findDocumentation(tree.installDir());
    QCOMPARE(entryLines(found.releaseNotes, tree),
             QStringList{title + " = " + file + (bold ? ", bold" : "")});
    QCOMPARE(allEntryLines(found, tree).size(), 1);
    QCOMPARE(messages.warnings(), QStringList{fileWarning(baseName)});
}

void DocumentationTest::otherFilesAreNoReleaseNotes()
{
    const DocumentationTree tree;
    tree.add({"doc/release_notes.html", "doc/html/release_notes_20_11.html", "old/release_notes.html",
              "release_notes.pdf", "release_notes.htm", "release_note.html", "my_release_notes.html",
              // A directory.
              "release_notes_1.html/readme.txt"});
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree), QStringList());
    QCOMPARE(messages.warnings(), QStringList());
}

void DocumentationTest::namesOfTheInstallation_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "Program Files/HALCON 20.11";
    QTest::newRow("parentheses") << "Program Files (x86)/HALCON";
    QTest::newRow("#, % and &") << "H #1 100%41 & more %PATH%";
    QTest::newRow("brackets and braces") << "[a-z]{1}";
    QTest::newRow("not ASCII") << "Größe 検査";
    QTest::newRow("documentation's own names") << "doc/pdf/manuals";
}

void DocumentationTest::namesOfTheInstallation()
{
    QFETCH(QString, name);
    const DocumentationTree tree(name);
    tree.add({"doc/pdf/quick_guide.pdf", "doc/html/reference/io/io-overview.html", "release_notes.html"});
    const CaughtMessages messages;
    QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree),
             (QStringList{"Quick Guide = doc/pdf/quick_guide.pdf",
                          "I/O Interfaces Reference = doc/html/reference/io/io-overview.html",
                          "Release Notes = release_notes.html, bold"}));
    QCOMPARE(messages.warnings(), QStringList{fileWarning("release_notes")});
}

QTEST_GUILESS_MAIN(DocumentationTest)

#include "DocumentationTest.moc"
