#include "card/Documentation.h"
#include "tests/card/DocumentationLines.h"
#include "tests/card/DocumentationTree.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

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
    void completeInstallation()
    {
        const DocumentationTree tree;
        tree.addEverything();
        const CaughtMessages messages;
        const Documentation found = findDocumentation(tree.installDir());

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

        QCOMPARE(found.pdfManuals.size(), DocumentationTree::pdfManuals().size());
        QCOMPARE(found.releaseNotes.size(), DocumentationTree::releaseNotes().size());
        QCOMPARE(messages.warnings().size(), found.releaseNotes.size());
    }

    /// Neither the current directory nor the root of its drive is an installation.
    void noInstallation()
    {
        const DocumentationTree tree;
        tree.addEverything();
        const CurrentDirectory current(tree.installDir());
        const CaughtMessages messages;
        for (const QString &directory : {QString(), QString(""), tree.installDir() + "-missing"}) {
            QCOMPARE(allEntryLines(findDocumentation(directory), tree), QStringList());
        }
        QCOMPARE(messages.warnings(), QStringList());
    }

    void pdf_data()
    {
        const auto row = columns<QString, QString, QStringList>("file", "place", "warnings");

        row("known", "manuals/quick_guide.pdf", "Manuals > Quick Guide", {});
        row("known, in another directory", "solution_guide/solution_guide_ii_b_matching.pdf",
            "Solution Guide > Solution Guide II-B - Matching", {});
        row("in the directory itself", "quick_guide.pdf", "Quick Guide", {});
        row("nested unknown directories", "one/two/three/quick_guide.pdf", "one > two > three > Quick Guide",
            {directoryWarning("one"), directoryWarning("two"), directoryWarning("three")});
        row("nested known directories", "manuals/reference/manuals/quick_guide.pdf",
            "Manuals > Reference > Manuals > Quick Guide", {});
        row("unknown directory and file", "extra/my_manual.pdf", "extra > my_manual",
            {directoryWarning("extra"), fileWarning("my_manual")});
        row("upper-case extension", "manuals/quick_guide.PDF", "Manuals > Quick Guide", {});
        row("upper-case name", "manuals/QUICK_GUIDE.PDF", "Manuals > QUICK_GUIDE",
            {fileWarning("QUICK_GUIDE")});
        row("several dots", "manuals/quick_guide.de.v2.pdf", "Manuals > Quick Guide", {});
        row("name of release notes", "manuals/release_notes_20_11.pdf", "Manuals > release_notes_20_11",
            {fileWarning("release_notes_20_11")});
        row("spaces, #, % and &", "my dir #1 & 50%/a #2 100%41 & b.pdf", "my dir #1 & 50% > a #2 100%41 & b",
            {directoryWarning("my dir #1 & 50%"), fileWarning("a #2 100%41 & b")});
        row("not ASCII", "Größe/検査.pdf", "Größe > 検査", {directoryWarning("Größe"), fileWarning("検査")});
    }

    void pdf()
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

    void releaseNotes_data()
    {
        columns<QString, bool, QString>("title", "bold", "baseName");

        row("release_notes.html", "Release Notes", true, "release_notes");
        row("release_notes_20_11.html", "Release Notes 20.11", false, "release_notes_20_11");
        row("release_notes_20_11_1_0.html", "Release Notes 20.11.1.0", false, "release_notes_20_11_1_0");
        row("release_notes_foo_bar.html", "Release Notes foo.bar", false, "release_notes_foo_bar");
        row("release_notesX.html", "release.notesX", false, "release_notesX");
        row("release_notesX_1.html", "release.notesX.1", false, "release_notesX_1");
        row("release_notes_.html", "Release Notes ", false, "release_notes_");
        row("release_notes_release_notes_1.html", "Release Notes Release Notes 1", false,
            "release_notes_release_notes_1");
        // Only the part before the first dot counts.
        row("release_notes.de.html", "Release Notes", true, "release_notes");
        row("release_notes_20.11.html", "Release Notes 20", false, "release_notes_20");
        row("RELEASE_NOTES.HTML", "RELEASE.NOTES", false, "RELEASE_NOTES");
        row("release_notes_a & b #1 100%41.html", "Release Notes a & b #1 100%41", false,
            "release_notes_a & b #1 100%41");
        row("release_notes_Größe_検査.html", "Release Notes Größe.検査", false, "release_notes_Größe_検査");
    }

    void releaseNotes()
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

    void selection_data()
    {
        const auto row = columns<QStringList, QStringList, QStringList>("files", "lines", "warnings");

        row("no documentation", {"bin/x64-win64/hdevelop.exe"}, {}, {});
        row("some HTML manuals, and names that only resemble one",
            {"doc/html/manuals/programmers_guide/index.html", "doc/html/reference/io/io-overview.html",
             "doc/html/reference/operators/index.htm", "doc/html/reference/acquisition/index.html",
             "doc/html/index.html"},
            {"I/O Interfaces Reference = doc/html/reference/io/io-overview.html",
             "Programmer's Guide = doc/html/manuals/programmers_guide/index.html"},
            {});
        row("no PDFs",
            {"doc/pdf/manuals/quick_guide.txt", "doc/pdf/manuals/quick_guide.pdf.bak",
             "doc/pdf/manuals/quick_guidepdf", "doc/pdf/release_notes.html"},
            {}, {});
        row("PDFs elsewhere", {"quick_guide.pdf", "doc/quick_guide.pdf", "doc/html/manuals/quick_guide.pdf"},
            {}, {});
        row("directory named like a PDF", {"doc/pdf/folder.pdf/readme.txt"}, {}, {});
        // One warning for each file and each unknown directory above it.
        row("several PDFs in unknown directories",
            {"doc/pdf/extra/quick_guide.pdf", "doc/pdf/extra/programmers_guide.pdf",
             "doc/pdf/extra/more/installation_guide.pdf"},
            {"extra > Programmer's Guide = doc/pdf/extra/programmers_guide.pdf",
             "extra > Quick Guide = doc/pdf/extra/quick_guide.pdf",
             "extra > more > Installation Guide = doc/pdf/extra/more/installation_guide.pdf"},
            {directoryWarning("extra"), directoryWarning("extra"), directoryWarning("extra"),
             directoryWarning("more")});
        row("release notes elsewhere",
            {"doc/release_notes.html", "doc/html/release_notes_20_11.html", "old/release_notes.html"}, {},
            {});
        row("no release notes",
            {"release_notes.pdf", "release_notes.htm", "release_note.html", "my_release_notes.html",
             "release_notes_1.html/readme.txt"},
            {}, {});
    }

    void selection()
    {
        QFETCH(QStringList, files);
        const DocumentationTree tree;
        tree.add(files);
        const CaughtMessages messages;
        QTEST(sorted(allEntryLines(findDocumentation(tree.installDir()), tree)), "lines");
        QTEST(sorted(messages.warnings()), "warnings");
    }

    void namesOfTheInstallation_data()
    {
        columns<QString>("name");

        row("spaces", "Program Files/HALCON 20.11");
        row("parentheses", "Program Files (x86)/HALCON");
        row("#, % and &", "H #1 100%41 & more %PATH%");
        row("brackets and braces", "[a-z]{1}");
        row("not ASCII", "Größe 検査");
        row("documentation's own names", "doc/pdf/manuals");
        row("every sign that a name may have", " !#$%&'()+,-.;=@[]^_`{}~");
        row("300 characters", QString("a deep directory 0123456789/").repeated(11) + "HALCON");
    }

    void namesOfTheInstallation()
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
};

QTEST_GUILESS_MAIN(DocumentationTest)
#include "DocumentationTest.moc"
