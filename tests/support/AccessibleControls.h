#pragma once

#include <QAccessible>
#include <QStringList>
#include <QWidget>

/// Passes to @p add the accessible objects of @p object and of all visible widgets below it that the Tab key
/// reaches.
template <typename Add>
void walkAccessible(QAccessibleInterface *object, const Add &add)
{
    if (object == nullptr || object->state().invisible) {
        return;
    }
    // Lists do not report themselves as focusable; their rows do, but are no tab stops.
    const auto *widget = qobject_cast<const QWidget *>(object->object());
    if (widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0) {
        add(*object);
    }
    for (int i = 0; i < object->childCount(); ++i) {
        walkAccessible(object->child(i), add);
    }
}

/// The accessible names of the visible controls in @p root at which the Tab key stops, in the order of the
/// accessible tree. One without a name is represented by its object name in angle brackets.
inline QStringList accessibleControls(QWidget &root)
{
    QStringList names;
    walkAccessible(QAccessible::queryAccessibleInterface(&root), [&](QAccessibleInterface &control) {
        const QString name = control.text(QAccessible::Name);
        names.append(name.isEmpty() ? '<' + control.object()->objectName() + '>' : name);
    });
    return names;
}
