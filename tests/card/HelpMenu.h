#pragma once

#include "card/SingleHalconVersionFrame.h"

#include <QAction>
#include <QList>
#include <QMenu>
#include <QPushButton>
#include <QStringList>

/// An installation whose documentation is in @p installDir.
inline HalconInstallation installation(const QString &installDir)
{
    HalconInstallation result(20, 11, 1, 0);
    result.arch = "x64-win64";
    result.installDir = installDir;
    return result;
}

inline QMenu *helpMenu(const SingleHalconVersionFrame &card)
{
    return card.findChild<QPushButton *>("pbHelp")->menu();
}

/// The whole menu as text, one line for each action: a submenu ends in " >" and its entries follow, indented.
inline QStringList menuLines(const QMenu &menu, const QString &indent = QString())
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

/// The action that @p path leads to, texts from the outermost menu inwards; null when there is none.
inline QAction *actionAt(const QMenu &menu, const QStringList &path)
{
    for (QAction *action : menu.actions()) {
        if (action->text() == path.first()) {
            return path.size() == 1 ? action : actionAt(*action->menu(), path.mid(1));
        }
    }
    return nullptr;
}

/// Every action of the menu and its submenus that opens a manual.
inline QList<QAction *> entriesOf(const QMenu &menu)
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
