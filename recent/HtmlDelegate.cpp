#include "recent/HtmlDelegate.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>

void HtmlDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle *style = item.widget == nullptr ? QApplication::style() : item.widget->style();

    QTextDocument document;
    document.setDefaultFont(item.font);
    document.setHtml(item.text);
    item.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    QAbstractTextDocumentLayout::PaintContext context;
    if (item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Active)) {
        context.palette.setColor(QPalette::Text,
                                 item.palette.color(QPalette::Active, QPalette::HighlightedText));
    }
    const QRect area = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    painter->save();
    painter->translate(area.topLeft());
    painter->setClipRect(QRect(QPoint(), area.size()));
    document.documentLayout()->draw(painter, context);
    painter->restore();
}

QSize HtmlDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QTextDocument document;
    document.setDefaultFont(item.font);
    document.setHtml(item.text);
    document.setTextWidth(item.rect.width());
    return {static_cast<int>(document.idealWidth()), static_cast<int>(document.size().height())};
}
