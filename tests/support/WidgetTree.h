#pragma once

#include <QStringList>

class QLayout;
class QWidget;

/// One line for @p root and each widget below it, parents first and children in their order: class, object
/// name, text, shape and shadow of a frame, minimum and maximum size, size policy, position in its parent's
/// layout, and tool tip. Defaults are left out.
QStringList describeWidgets(const QWidget &root);

/// What a form has set in the controls below @p root: one line for each control of which there is more to say.
QStringList describeControls(const QWidget &root);

/// One line for @p layout and each layout in it: class, name, spacing and margins where set, and the items in
/// order.
QStringList describeLayouts(const QLayout &layout);

/// All of that, after a line with the title and the size of @p form. Sets its distances to 0 where they are those
/// of the machine's style.
QStringList describeForm(QWidget &form);
