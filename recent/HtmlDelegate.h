#pragma once

#include <QStyledItemDelegate>

/// Draws the texts of an item view as HTML.
class HtmlDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

    /// The size of the text when it is laid out in the width of @p option's rectangle.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
