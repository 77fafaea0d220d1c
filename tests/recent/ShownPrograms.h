#pragma once

#include "recent/RecentProgramsFrame.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>

inline QLineEdit *searchLine(const RecentProgramsFrame &frame)
{
    return frame.findChild<QLineEdit *>("leSearchRecent");
}

inline QPushButton *okButton(const RecentProgramsFrame &frame)
{
    return frame.findChild<QPushButton *>("pbOK");
}

inline QTreeView *list(const RecentProgramsFrame &frame)
{
    return frame.findChild<QTreeView *>("treeView");
}

/// The rows in the order in which they are shown.
inline QSortFilterProxyModel *shownModel(const RecentProgramsFrame &frame)
{
    return qobject_cast<QSortFilterProxyModel *>(list(frame)->model());
}

/// The rows in the order of HDevelop's settings.
inline QStandardItemModel *settingsModel(const RecentProgramsFrame &frame)
{
    return qobject_cast<QStandardItemModel *>(shownModel(frame)->sourceModel());
}

/// The data of every row of @p model in @p role, from the top.
inline QStringList rowsOf(const QAbstractItemModel &model, int role)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        rows.append(model.index(row, 0).data(role).toString());
    }
    return rows;
}

constexpr int sortKeyRole = Qt::UserRole + 1;
constexpr int pathRole = Qt::UserRole + 2;

/// The paths in the order in which they are shown.
inline QStringList shownPaths(const RecentProgramsFrame &frame)
{
    return rowsOf(*shownModel(frame), pathRole);
}

/// The texts in the order in which they are shown, as HTML.
inline QStringList shownTexts(const RecentProgramsFrame &frame)
{
    return rowsOf(*shownModel(frame), Qt::DisplayRole);
}

/// The sort keys in the order in which the rows are shown.
inline QStringList shownKeys(const RecentProgramsFrame &frame)
{
    return rowsOf(*shownModel(frame), sortKeyRole);
}

/// How a match is shown.
inline QString marked(const QString &text)
{
    return "<b><font color='red'>" + text + "</font></b>";
}
