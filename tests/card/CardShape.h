#pragma once

#include "card/SingleHalconVersionFrame.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QStyleOptionGroupBox>

/// Layout errors in a shown card: controls that overlap or leave their parent, texts that are cut off.
namespace CardShape {

inline QString nameOf(const QWidget &widget)
{
    const auto *button = qobject_cast<const QPushButton *>(&widget);
    return button != nullptr && button->objectName().isEmpty() ? button->text() : widget.objectName();
}

/// A badge overlaps its button on purpose.
inline bool belongTogether(const QWidget &one, const QWidget &other)
{
    const QStringList names{nameOf(one), nameOf(other)};
    return (names.contains("XL") && names.contains("pbHDevelopXL")) ||
           (names.contains("x64") && names.contains("pbMajor"));
}

/// The room for the contents of @p widget.
inline QRect room(const QWidget &widget)
{
    const auto *group = qobject_cast<const QGroupBox *>(&widget);
    if (group == nullptr) {
        return widget.contentsRect();
    }
    QStyleOptionGroupBox option;
    option.initFrom(group);
    option.text = group->title();
    option.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxFrame;
    return group->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, group);
}

inline QSize neededSize(const QWidget &widget)
{
    if (const auto *button = qobject_cast<const QPushButton *>(&widget);
        button != nullptr && button->objectName() == "pbMajor") {
        return {button->fontMetrics().horizontalAdvance(button->text()),
                button->fontMetrics().tightBoundingRect(button->text()).height()};
    }
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget)) {
        return {group->fontMetrics().horizontalAdvance(group->title()), 0};
    }
    // An icon button's minimum size is that of its icon; the style's size hint adds a margin.
    const bool fixedText =
        widget.minimumSize().isEmpty() && (qobject_cast<const QLabel *>(&widget) != nullptr ||
                                           qobject_cast<const QPushButton *>(&widget) != nullptr ||
                                           qobject_cast<const QCheckBox *>(&widget) != nullptr);
    return fixedText ? widget.minimumSizeHint() : widget.minimumSize();
}

inline QList<QWidget *> visibleChildren(const QWidget &parent)
{
    QList<QWidget *> children;
    for (QWidget *child : parent.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow()) {
            children.append(child);
        }
    }
    return children;
}

inline QString text(const QRect &rect)
{
    return QString("(%1,%2 %3x%4)").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

inline QStringList faults(const QWidget &parent)
{
    QStringList found;
    const QList<QWidget *> children = visibleChildren(parent);
    for (int i = 0; i < children.size(); ++i) {
        const QWidget &child = *children.at(i);
        const QString name = nameOf(child) + text(child.geometry());
        if (!room(parent).contains(child.geometry())) {
            found.append(name + " sticks out of " + nameOf(parent) + text(room(parent)));
        }
        const QSize needed = neededSize(child);
        if (child.width() < needed.width() || child.height() < needed.height()) {
            found.append(QString("%1 needs %2x%3").arg(name).arg(needed.width()).arg(needed.height()));
        }
        for (int j = 0; j < i; ++j) {
            if (child.geometry().intersects(children.at(j)->geometry()) &&
                !belongTogether(child, *children.at(j))) {
                found.append(name + " overlaps " + nameOf(*children.at(j)) +
                             text(children.at(j)->geometry()));
            }
        }
        // The inner widgets of a list and a text browser do not count.
        if (qobject_cast<const QAbstractScrollArea *>(&child) == nullptr) {
            found += faults(child);
        }
    }
    return found;
}

/// Makes @p card look as on a machine with Visual Studio.
inline void addVisualStudio(const SingleHalconVersionFrame &card)
{
    auto *list = card.findChild<QListWidget *>("lwVsVersion");
    list->addItems({"Visual Studio 17.4 (Visual Studio Community 2022) (amd64)",
                    "Visual Studio 16.11 (Visual Studio Professional 2019) (amd64)"});
    list->setCurrentRow(0);
    auto *ide = card.findChild<QPushButton *>("pbDevEnv");
    ide->setIcon(QIcon(":/shell.png"));
    ide->show();
}

} // namespace CardShape
