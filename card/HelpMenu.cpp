#include "card/HelpMenu.h"

#include "card/CardContext.h"
#include "card/CardIcons.h"
#include "card/Documentation.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QUrl>

HelpMenu::HelpMenu(const QString &installDir, QWidget *card) : card(card), root(new QMenu(card))
{
    const Documentation documentation = findDocumentation(installDir);
    for (const DocumentationEntry &entry : documentation.pdfManuals) {
        QMenu *menu = root;
        for (const QString &title : entry.submenus) {
            menu = submenu(menu, title);
        }
        menu->addAction(makeAction(entry));
    }

    releaseNotes = std::make_unique<QMenu>(CardContext::tr("Release Notes"));
    root->addMenu(releaseNotes.get())->setIcon(folderIcon());
    for (const DocumentationEntry &entry : documentation.releaseNotes) {
        releaseNotes->addAction(makeAction(entry));
    }

    for (const DocumentationEntry &entry : documentation.htmlManuals) {
        root->addAction(makeAction(entry));
    }
    leaveUnmeasured();
}

HelpMenu::~HelpMenu() = default;

/// Hidden widgets await a first resize event, which makes a menu measure all of its texts. Whatever renders a
/// widget of the window sends it to them; without it they are measured when they are opened.
void HelpMenu::leaveUnmeasured()
{
    root->setAttribute(Qt::WA_PendingResizeEvent, false);
    const QList<QMenu *> submenus = root->findChildren<QMenu *>();
    for (QMenu *menu : submenus) {
        menu->setAttribute(Qt::WA_PendingResizeEvent, false);
    }
}

QAction *HelpMenu::makeAction(const DocumentationEntry &entry)
{
    auto *action = new QAction(iconProvider.icon(QFileInfo(entry.file)), entry.title, card);
    action->setData(QUrl::fromLocalFile(entry.file));
    if (entry.bold) {
        QFont font = action->font();
        font.setBold(true);
        action->setFont(font);
    }
    files.append(action);
    return action;
}

/// The first submenu of @p menu with this title, made when there is none.
QMenu *HelpMenu::submenu(QMenu *menu, const QString &title)
{
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->menu() != nullptr && action->text() == title) {
            return action->menu();
        }
    }
    auto *made = new QMenu(title, menu);
    menu->addMenu(made)->setIcon(folderIcon());
    return made;
}
