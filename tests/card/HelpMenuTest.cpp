#include "tests/card/HelpMenu.h"
#include "tests/card/DocumentationTree.h"
#include "tests/support/Messages.h"

#include <QFileIconProvider>
#include <QtTest>

namespace {

/// menuLines() where the file system decides the order of the entries within a menu.
QStringList sortedMenuLines(const QMenu &menu, const QString &indent = QString())
{
    QMap<QString, QStringList> entries;
    for (const QAction *action : menu.actions()) {
        const bool isSubmenu = action->menu() != nullptr;
        const QString line = indent + action->text() + (isSubmenu ? " >" : "");
        entries[line] +=
            QStringList{line} + (isSubmenu ? sortedMenuLines(*action->menu(), indent + "  ") : QStringList());
    }
    QStringList lines;
    for (const QStringList &each : entries) {
        lines += each;
    }
    return lines;
}

QImage picture(const QIcon &icon)
{
    return icon.pixmap(32, 32).toImage();
}

} // namespace

class HelpMenuTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutDocumentation();
    void order();
    void everything();
    void filesOfOneDirectoryShareASubmenu();
    void directoriesWithOneTitleShareASubmenu();
    void fileTitledLikeADirectory();
    void sameNameOnTwoLevels();
    void menusAndTheirParents();
    void icons();
    void entriesBelongToTheCard();
    void boldEntries();
    void ampersandInATitle();

private:
    QScopedPointer<CaughtMessages> messages;
};

/// Warnings about names without a title are not this test's subject.
void HelpMenuTest::init()
{
    messages.reset(new CaughtMessages);
}

void HelpMenuTest::cleanup()
{
    messages.reset();
}

void HelpMenuTest::withoutDocumentation()
{
    const DocumentationTree tree;
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(menuLines(*helpMenu(card)), QStringList{"Release Notes >"});

    const SingleHalconVersionFrame missing(installation(tree.installDir() + "-missing"));
    QCOMPARE(menuLines(*helpMenu(missing)), QStringList{"Release Notes >"});

    const SingleHalconVersionFrame nowhere(installation(QString()));
    QCOMPARE(menuLines(*helpMenu(nowhere)), QStringList{"Release Notes >"});
}

void HelpMenuTest::order()
{
    const DocumentationTree tree;
    tree.add(DocumentationTree::htmlManuals());
    tree.add({"doc/pdf/solution_guide/solution_guide_ii_b_matching.pdf", "release_notes_20_11.html"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(menuLines(*helpMenu(card)),
             (QStringList{"Solution Guide >", "  Solution Guide II-B - Matching", "Release Notes >",
                          "  Release Notes 20.11", "Operator Reference", "Acquistion Reference",
                          "I/O Interfaces Reference", "Codelets Reference",
                          "Extension Package Interface Programmer's Manual", "Gray Value Interpolation",
                          "HDevelop User's Guide", "Image Acquisition Interface Programmer's Manual",
                          "Programmer's Guide"}));
}

void HelpMenuTest::everything()
{
    const DocumentationTree tree;
    tree.addEverything();
    tree.add({"doc/pdf/installation_guide.pdf", "doc/pdf/manuals/extra/deep/my_manual.pdf"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(sortedMenuLines(*helpMenu(card)),
             (QStringList{"Acquistion Reference",
                          "Codelets Reference",
                          "Extension Package Interface Programmer's Manual",
                          "Gray Value Interpolation",
                          "HDevelop User's Guide",
                          "I/O Interfaces Reference",
                          "Image Acquisition Interface Programmer's Manual",
                          "Installation Guide",
                          "Manuals >",
                          "  Extension Package Interface Programmer's Manual",
                          "  Gray Value Interpolation",
                          "  HDevelop User's Guide",
                          "  Image Acquisition Interface Programmer's Manual",
                          "  Installation Guide",
                          "  Programmer's Guide",
                          "  Quick Guide",
                          "  extra >",
                          "    deep >",
                          "      my_manual",
                          "Operator Reference",
                          "Programmer's Guide",
                          "Reference >",
                          "  HALCON/HDevelop Reference",
                          "Release Notes >",
                          "  Release Notes",
                          "  Release Notes 13",
                          "  Release Notes 20.05",
                          "  Release Notes 20.11",
                          "  Release Notes foo.bar",
                          "  release.notesX",
                          "Solution Guide >",
                          "  Solution Guide I - Basics",
                          "  Solution Guide II-A - Image Acquisition",
                          "  Solution Guide II-B - Matching",
                          "  Solution Guide II-C - 2D Data Codes",
                          "  Solution Guide II-D - Classification",
                          "  Solution Guide III-A - 1D Measuring",
                          "  Solution Guide III-B - 2D Measuring",
                          "  Solution Guide III-C - 3D Vision"}));

    // Whatever the order among the PDF manuals, they come first.
    QStringList top;
    for (const QAction *action : helpMenu(card)->actions()) {
        top.append(action->text());
    }
    QStringList beforeReleaseNotes = top.mid(0, top.indexOf("Release Notes"));
    beforeReleaseNotes.sort();
    QCOMPARE(beforeReleaseNotes,
             (QStringList{"Installation Guide", "Manuals", "Reference", "Solution Guide"}));
    QCOMPARE(top.mid(4, 2), (QStringList{"Release Notes", "Operator Reference"}));
}

void HelpMenuTest::filesOfOneDirectoryShareASubmenu()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/extra/quick_guide.pdf", "doc/pdf/extra/programmers_guide.pdf"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(sortedMenuLines(*helpMenu(card)),
             (QStringList{"Release Notes >", "extra >", "  Programmer's Guide", "  Quick Guide"}));
}

void HelpMenuTest::directoriesWithOneTitleShareASubmenu()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/solution_guide/quick_guide.pdf", "doc/pdf/Solution Guide/programmers_guide.pdf"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(sortedMenuLines(*helpMenu(card)),
             (QStringList{"Release Notes >", "Solution Guide >", "  Programmer's Guide", "  Quick Guide"}));
}

void HelpMenuTest::fileTitledLikeADirectory()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/Manuals.pdf", "doc/pdf/manuals/quick_guide.pdf"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(sortedMenuLines(*helpMenu(card)),
             (QStringList{"Manuals", "Manuals >", "  Quick Guide", "Release Notes >"}));
}

void HelpMenuTest::sameNameOnTwoLevels()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/manuals/manuals/quick_guide.pdf", "doc/pdf/manuals/programmers_guide.pdf"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(sortedMenuLines(*helpMenu(card)), (QStringList{"Manuals >", "  Manuals >", "    Quick Guide",
                                                            "  Programmer's Guide", "Release Notes >"}));
}

void HelpMenuTest::menusAndTheirParents()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/manuals/extra/quick_guide.pdf"});
    SingleHalconVersionFrame card(installation(tree.installDir()));
    QMenu *top = helpMenu(card);
    QMenu *manuals = actionAt(*top, {"Manuals"})->menu();
    QMenu *extra = actionAt(*top, {"Manuals", "extra"})->menu();
    QCOMPARE(top->parent(), &card);
    QCOMPARE(manuals->parent(), top);
    QCOMPARE(manuals->title(), QString("Manuals"));
    QCOMPARE(extra->parent(), manuals);
    QCOMPARE(extra->title(), QString("extra"));

    // It has no parent: the card must delete it.
    const QPointer<QMenu> releaseNotes = actionAt(*top, {"Release Notes"})->menu();
    QVERIFY(releaseNotes->parent() == nullptr);
    QCOMPARE(releaseNotes->title(), QString("Release Notes"));
}

void HelpMenuTest::icons()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/manuals/extra/quick_guide.pdf", "doc/html/reference/io/io-overview.html",
              "release_notes.html"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    const QMenu &menu = *helpMenu(card);
    const QFileIconProvider provider;
    const QImage folder = picture(provider.icon(QFileIconProvider::Folder));
    QVERIFY(!folder.isNull());
    for (const QStringList &path :
         {QStringList{"Manuals"}, QStringList{"Manuals", "extra"}, QStringList{"Release Notes"}}) {
        QCOMPARE(picture(actionAt(menu, path)->icon()), folder);
    }

    const QList<QAction *> entries = entriesOf(menu);
    QCOMPARE(entries.size(), 3);
    for (const QAction *entry : entries) {
        const QImage file = picture(provider.icon(QFileInfo(entry->data().toUrl().toLocalFile())));
        QVERIFY(!file.isNull());
        QVERIFY(file != folder);
        QCOMPARE(picture(entry->icon()), file);
    }
}

void HelpMenuTest::entriesBelongToTheCard()
{
    const DocumentationTree tree;
    tree.addEverything();
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    const QList<QAction *> entries = entriesOf(*helpMenu(card));
    QCOMPARE(entries.size(), 16 + 6 + 9);
    for (const QAction *entry : entries) {
        QCOMPARE(entry->parent(), &card);
        QVERIFY2(entry->isEnabled(), qPrintable(entry->text()));
        QVERIFY2(!entry->isCheckable(), qPrintable(entry->text()));
        QCOMPARE(entry->data().userType(), int(QMetaType::QUrl));
    }
}

void HelpMenuTest::boldEntries()
{
    const DocumentationTree tree;
    tree.addEverything();
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QStringList bold;
    for (const QAction *entry : entriesOf(*helpMenu(card))) {
        if (entry->font().weight() != QAction().font().weight()) {
            QCOMPARE(entry->font().weight(), 75);
            bold.append(entry->data().toUrl().fileName());
        }
    }
    QCOMPARE(bold, QStringList{"release_notes.html"});
}

/// The entry keeps the file's name, and the menu takes a single "&" in it as a mnemonic: the
/// user sees "Black  White" with its second space underlined, and "AB" with its "B" underlined.
void HelpMenuTest::ampersandInATitle()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/R&D/Black & White.pdf", "release_notes_A&B.html"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(menuLines(*helpMenu(card)),
             (QStringList{"R&D >", "  Black & White", "Release Notes >", "  Release Notes A&B"}));
    QCOMPARE(actionAt(*helpMenu(card), {"R&D"})->menu()->title(), QString("R&D"));
}

QTEST_MAIN(HelpMenuTest)

#include "HelpMenuTest.moc"
