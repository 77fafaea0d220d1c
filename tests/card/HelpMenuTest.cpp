#include "card/SingleHalconVersionFrame.h"
#include "tests/card/Desktop.h"
#include "tests/card/DocumentationTree.h"
#include "tests/support/Messages.h"

#include <QAction>
#include <QFileIconProvider>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

#include <functional>

namespace {

HalconInstallation installation(const QString &installDir)
{
    HalconInstallation result(20, 11, 1, 0);
    result.arch = "x64-win64";
    result.installDir = installDir;
    return result;
}

QMenu *helpMenu(const SingleHalconVersionFrame &card)
{
    return card.findChild<QPushButton *>("pbHelp")->menu();
}

/// The whole menu as text, one line for each action: a submenu ends in " >" and its entries follow, indented.
QStringList menuLines(const QMenu &menu, const QString &indent = QString())
{
    QStringList lines;
    for (const QAction *action : menu.actions()) {
        if (action->menu() == nullptr) {
            lines.append(indent + (action->isSeparator() ? "(separator)" : action->text()));
        } else {
            lines.append(indent + action->text() + " >");
            lines += menuLines(*action->menu(), indent + "  ");
        }
    }
    return lines;
}

/// The same where the file system decides the order of the entries within a menu.
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

/// The action that @p path leads to, texts from the outermost menu inwards; null when there is none.
QAction *actionAt(const QMenu &menu, const QStringList &path)
{
    for (QAction *action : menu.actions()) {
        if (action->text() == path.first()) {
            return path.size() == 1 ? action : actionAt(*action->menu(), path.mid(1));
        }
    }
    return nullptr;
}

/// Every action of the menu and its submenus that opens a manual.
QList<QAction *> entriesOf(const QMenu &menu)
{
    QList<QAction *> entries;
    for (QAction *action : menu.actions()) {
        if (action->menu() == nullptr) {
            entries.append(action);
        } else {
            entries += entriesOf(*action->menu());
        }
    }
    return entries;
}

QImage picture(const QIcon &icon)
{
    return icon.pixmap(32, 32).toImage();
}

/// Does @p next on the menu that is open, as soon as one is.
void onceOpen(QMenu *menu, const std::function<void()> &next)
{
    auto *timer = new QTimer(menu);
    QObject::connect(timer, &QTimer::timeout, menu, [timer, menu, next] {
        if (menu->isVisible()) {
            timer->deleteLater();
            timer->stop();
            next();
        }
    });
    constexpr int pollMilliseconds = 10;
    timer->start(pollMilliseconds);
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
    void entryOpensItsFile_data();
    void entryOpensItsFile();
    void everyEntryOpensItsOwnFile();
    void clickOnAnEntry();
    void keysToAnEntryOfASubmenu();
    void openWithoutAnEntry();
    void ampersandInATitle();
    void cardsHaveTheirOwnMenus();

private:
    QScopedPointer<CaughtMessages> messages;
};

/// Names without a title are reported, which is not this test's subject.
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

    // Without a parent it would outlive the card, were it not for the card.
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

void HelpMenuTest::entryOpensItsFile_data()
{
    QTest::addColumn<QString>("installationName");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("entry");
    QTest::addColumn<QByteArray>("encodedEnd"); // of the link

    QTest::newRow("PDF manual") << "HALCON"
                                << "doc/pdf/manuals/quick_guide.pdf" << QStringList{"Manuals", "Quick Guide"}
                                << QByteArray("/HALCON/doc/pdf/manuals/quick_guide.pdf");
    QTest::newRow("PDF manual outside of submenus") << "HALCON"
                                                    << "doc/pdf/quick_guide.pdf" << QStringList{"Quick Guide"}
                                                    << QByteArray("/HALCON/doc/pdf/quick_guide.pdf");
    QTest::newRow("HTML manual") << "HALCON"
                                 << "doc/html/reference/acquisition/acq-overview.html"
                                 << QStringList{"Acquistion Reference"}
                                 << QByteArray("/HALCON/doc/html/reference/acquisition/acq-overview.html");
    QTest::newRow("release notes") << "HALCON"
                                   << "release_notes.html" << QStringList{"Release Notes", "Release Notes"}
                                   << QByteArray("/HALCON/release_notes.html");
    QTest::newRow("blanks") << "Program Files/HALCON 20.11"
                            << "doc/pdf/my dir/my manual.pdf" << QStringList{"my dir", "my manual"}
                            << QByteArray("/Program%20Files/HALCON%2020.11/doc/pdf/my%20dir/my%20manual.pdf");
    QTest::newRow("number sign") << "H#1"
                                 << "doc/pdf/a#b.pdf" << QStringList{"a#b"}
                                 << QByteArray("/H%231/doc/pdf/a%23b.pdf");
    QTest::newRow("percent signs") << "100%41"
                                   << "doc/pdf/50%20 %PATH%.pdf" << QStringList{"50%20 %PATH%"}
                                   << QByteArray("/100%2541/doc/pdf/50%2520%20%25PATH%25.pdf");
    QTest::newRow("ampersand") << "A & B"
                               << "doc/pdf/c & d.pdf" << QStringList{"c & d"}
                               << QByteArray("/A%20&%20B/doc/pdf/c%20&%20d.pdf");
    QTest::newRow("not ASCII") << "Gr\u00f6\u00dfe"
                               << "release_notes_\u691c.html"
                               << QStringList{"Release Notes", "Release Notes \u691c"}
                               << QByteArray("/Gr%C3%B6%C3%9Fe/release_notes_%E6%A4%9C.html");
}

void HelpMenuTest::entryOpensItsFile()
{
    QFETCH(QString, installationName);
    QFETCH(QString, file);
    QFETCH(QStringList, entry);
    QFETCH(QByteArray, encodedEnd);
    const DocumentationTree tree(installationName);
    tree.add({file});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    const Desktop desktop("file");
    QAction *action = actionAt(*helpMenu(card), entry);
    QVERIFY(action != nullptr);
    QCOMPARE(action->data().toUrl(), QUrl::fromLocalFile(tree.path(file)));
    action->trigger();
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(tree.path(file))});
    QVERIFY2(desktop.opened.first().toEncoded().endsWith(encodedEnd),
             desktop.opened.first().toEncoded().constData());
}

void HelpMenuTest::everyEntryOpensItsOwnFile()
{
    const DocumentationTree tree;
    tree.addEverything();
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    const Desktop desktop("file");
    for (QAction *entry : entriesOf(*helpMenu(card))) {
        entry->trigger();
    }
    QStringList opened;
    for (const QUrl &link : desktop.opened) {
        opened.append(link.toLocalFile());
    }
    QStringList files;
    for (const QString &file : DocumentationTree::pdfManuals() + DocumentationTree::htmlManuals() +
                                   DocumentationTree::releaseNotes()) {
        files.append(tree.path(file));
    }
    opened.sort();
    files.sort();
    QCOMPARE(opened, files);
}

void HelpMenuTest::clickOnAnEntry()
{
    const DocumentationTree tree;
    tree.add({"doc/html/reference/io/io-overview.html", "doc/html/reference/codelets/index.html"});
    SingleHalconVersionFrame card(installation(tree.installDir()));
    card.show();
    QVERIFY(QTest::qWaitForWindowExposed(&card));
    const Desktop desktop("file");
    QMenu *menu = helpMenu(card);
    onceOpen(menu, [menu] {
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(actionAt(*menu, {"Codelets Reference"})).center());
    });
    QTest::mouseClick(card.findChild<QPushButton *>("pbHelp"), Qt::LeftButton);
    QCOMPARE(desktop.opened,
             QList<QUrl>{QUrl::fromLocalFile(tree.path("doc/html/reference/codelets/index.html"))});
    QVERIFY(!menu->isVisible());
}

void HelpMenuTest::keysToAnEntryOfASubmenu()
{
    const DocumentationTree tree;
    tree.add({"release_notes.html", "doc/html/reference/io/io-overview.html"});
    SingleHalconVersionFrame card(installation(tree.installDir()));
    card.show();
    QVERIFY(QTest::qWaitForWindowExposed(&card));
    const Desktop desktop("file");
    QMenu *menu = helpMenu(card);
    QMenu *releaseNotes = actionAt(*menu, {"Release Notes"})->menu();
    onceOpen(menu, [menu] {
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Right);
    });
    onceOpen(releaseNotes, [releaseNotes] { QTest::keyClick(releaseNotes, Qt::Key_Return); });
    QTest::mouseClick(card.findChild<QPushButton *>("pbHelp"), Qt::LeftButton);
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(tree.path("release_notes.html"))});
}

void HelpMenuTest::openWithoutAnEntry()
{
    const DocumentationTree tree;
    tree.add({"release_notes.html"});
    SingleHalconVersionFrame card(installation(tree.installDir()));
    const Desktop desktop("file");
    // An empty link has no scheme, so what would reach the desktop is not only looked for there.
    const Desktop withoutScheme{QString()};
    card.openHelpFromAction();
    QCOMPARE(desktop.opened, QList<QUrl>());
    QCOMPARE(withoutScheme.opened, QList<QUrl>());
    actionAt(*helpMenu(card), {"Release Notes", "Release Notes"})->trigger();
    QCOMPARE(desktop.opened.size(), 1);
}

/// The entry keeps the file's name, and the menu takes a single "&" in it as the mark of a mnemonic: the user sees
/// "Black  White" with its second blank underlined, and "AB" with its "B" underlined.
void HelpMenuTest::ampersandInATitle()
{
    const DocumentationTree tree;
    tree.add({"doc/pdf/R&D/Black & White.pdf", "release_notes_A&B.html"});
    const SingleHalconVersionFrame card(installation(tree.installDir()));
    QCOMPARE(menuLines(*helpMenu(card)),
             (QStringList{"R&D >", "  Black & White", "Release Notes >", "  Release Notes A&B"}));
    QCOMPARE(actionAt(*helpMenu(card), {"R&D"})->menu()->title(), QString("R&D"));
}

void HelpMenuTest::cardsHaveTheirOwnMenus()
{
    const DocumentationTree older;
    older.add({"doc/pdf/quick_guide.pdf"});
    const DocumentationTree newer;
    newer.add({"doc/pdf/programmers_guide.pdf"});
    const SingleHalconVersionFrame newerCard(installation(newer.installDir()));
    const Desktop desktop("file");
    {
        const SingleHalconVersionFrame olderCard(installation(older.installDir()));
        QCOMPARE(menuLines(*helpMenu(olderCard)), (QStringList{"Quick Guide", "Release Notes >"}));
        QCOMPARE(menuLines(*helpMenu(newerCard)), (QStringList{"Programmer's Guide", "Release Notes >"}));
        actionAt(*helpMenu(olderCard), {"Quick Guide"})->trigger();
    }
    actionAt(*helpMenu(newerCard), {"Programmer's Guide"})->trigger();
    QCOMPARE(desktop.opened, (QList<QUrl>{QUrl::fromLocalFile(older.path("doc/pdf/quick_guide.pdf")),
                                          QUrl::fromLocalFile(newer.path("doc/pdf/programmers_guide.pdf"))}));
}

QTEST_MAIN(HelpMenuTest)

#include "HelpMenuTest.moc"
