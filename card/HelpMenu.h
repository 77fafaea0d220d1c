#pragma once

#include <QFileIconProvider>
#include <QList>
#include <QString>

#include <memory>

class QAction;
class QMenu;
class QWidget;
struct DocumentationEntry;

/// The menu of an installation's manuals and release notes. Its actions have the URL of their file as data;
/// who shows the menu opens it.
class HelpMenu {
public:
    /// Looks for the documentation below @p installDir. The menu and its actions belong to @p card.
    HelpMenu(const QString &installDir, QWidget *card);
    HelpMenu(const HelpMenu &) = delete;
    HelpMenu &operator=(const HelpMenu &) = delete;
    ~HelpMenu();

    QMenu *menu() const { return root; }

    /// The actions that stand for files, in all menus.
    const QList<QAction *> &actions() const { return files; }

private:
    void leaveUnmeasured();
    QAction *makeAction(const DocumentationEntry &entry);
    QMenu *submenu(QMenu *menu, const QString &title);

    QWidget *const card;
    QMenu *const root;
    QFileIconProvider iconProvider;
    QList<QAction *> files;
    std::unique_ptr<QMenu> releaseNotes; ///< has no parent
};
