#include "tests/card/HelpMenu.h"
#include "tests/card/DocumentationTree.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QFileIconProvider>
#include <QtTest>

#include <memory>

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

class ResizeCounter : public QObject {
public:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        resizes += event->type() == QEvent::Resize ? 1 : 0;
        return false;
    }

    int resizes = 0;
};

} // namespace

class HelpMenuTest : public QObject {
    Q_OBJECT

private slots:
    void init() { messages = std::make_unique<CaughtMessages>(); }
    void cleanup() { messages.reset(); }

    void contents_data()
    {
        columns<QStringList, QString>("files", "lines");

        const QString notes = "Release Notes >";
        row("no documentation", QStringList(), notes);
        row("files of one directory",
            QStringList{"doc/pdf/extra/quick_guide.pdf", "doc/pdf/extra/programmers_guide.pdf"},
            notes + "|extra >|  Programmer's Guide|  Quick Guide");
        row("directories with one title",
            QStringList{"doc/pdf/solution_guide/quick_guide.pdf",
                        "doc/pdf/Solution Guide/programmers_guide.pdf"},
            notes + "|Solution Guide >|  Programmer's Guide|  Quick Guide");
        row("file titled like a directory",
            QStringList{"doc/pdf/Manuals.pdf", "doc/pdf/manuals/quick_guide.pdf"},
            "Manuals|Manuals >|  Quick Guide|" + notes);
        row("same name on three levels",
            QStringList{"doc/pdf/manuals/manuals/manuals/quick_guide.pdf",
                        "doc/pdf/manuals/programmers_guide.pdf"},
            "Manuals >|  Manuals >|    Manuals >|      Quick Guide|  Programmer's Guide|" + notes);
        row("every kind",
            QStringList{"doc/pdf/installation_guide.pdf", "doc/pdf/manuals/quick_guide.pdf",
                        "release_notes.html", "release_notes_13.html",
                        "doc/html/reference/io/io-overview.html"},
            "I/O Interfaces Reference|Installation Guide|Manuals >|  Quick Guide|" + notes +
                "|  Release Notes|  Release Notes 13");
        // The menu takes a single "&" as a mnemonic: the user sees "Black  White" with its second space
        // underlined, and "AB" with its "B" underlined.
        row("ampersands", QStringList{"doc/pdf/R&D/Black & White.pdf", "release_notes_A&B.html"},
            "R&D >|  Black & White|" + notes + "|  Release Notes A&B");
    }

    void contents()
    {
        QFETCH(QStringList, files);
        const DocumentationTree tree;
        tree.add(files);
        const SingleHalconVersionFrame card(installation(tree.installDir()));
        QTEST(sortedMenuLines(*helpMenu(card)).join('|'), "lines");
    }

    void withoutAnInstallation()
    {
        for (const QString &directory : {QString(), QString("C:\\missing")}) {
            const SingleHalconVersionFrame card(installation(directory));
            QCOMPARE(menuLines(*helpMenu(card)), QStringList{"Release Notes >"});
        }
    }

    void order()
    {
        const DocumentationTree tree;
        tree.add({"doc/html/reference/io/io-overview.html", "doc/html/reference/operators/index.html",
                  "release_notes_20_11.html", "doc/pdf/quick_guide.pdf"});
        const SingleHalconVersionFrame card(installation(tree.installDir()));
        QCOMPARE(menuLines(*helpMenu(card)),
                 (QStringList{"Quick Guide", "Release Notes >", "  Release Notes 20.11", "Operator Reference",
                              "I/O Interfaces Reference"}));
    }

    void menusAndTheirParents()
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

    void icons()
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

    void entries()
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
            const bool isBold = entry->data().toUrl().fileName() == "release_notes.html";
            QCOMPARE(entry->font().weight(), int(isBold ? QFont::Bold : QAction().font().weight()));
        }
    }

    /// To render a part of the window does not measure the menus, which takes long with many manuals; opened,
    /// each has the size of its entries.
    void measuredWhenOpened()
    {
        const DocumentationTree tree;
        tree.add({"doc/pdf/manuals/quick_guide.pdf"});
        SingleHalconVersionFrame card(installation(tree.installDir()));
        QMenu *menu = helpMenu(card);
        const QList<QMenu *> menus = menu->findChildren<QMenu *>() << menu;
        QCOMPARE(menus.size(), 2);
        ResizeCounter counter;
        for (QMenu *each : menus) {
            each->installEventFilter(&counter);
        }
        card.show();
        card.grab();
        QCOMPARE(counter.resizes, 0);

        for (QMenu *each : menus) {
            each->popup(QPoint());
            QCOMPARE(each->size(), each->sizeHint());
            each->hide();
        }
        QCOMPARE(counter.resizes, 2);
    }

private:
    std::unique_ptr<CaughtMessages> messages; ///< about names without a title: not this test's subject
};

QTEST_MAIN(HelpMenuTest)
#include "HelpMenuTest.moc"
