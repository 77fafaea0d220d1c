#pragma once

#include <QStringList>

class QLayout;
class QWidget;

/// One line for @p root and each widget below it, parents first and children in their order: class, object
/// name, text, shape and shadow of a plain frame, minimum and maximum size, size policy, position in its
/// parent's layout, and tool tip. Defaults are left out.
QStringList describeWidgets(const QWidget &root);

/// What a form has set in the controls below @p root: one line for each push button that is flat or disabled, for
/// each text browser, scroll area and box of buttons, and for each control with a style sheet of its own.
QStringList describeControls(const QWidget &root);

/// One line for @p layout and each layout in it: class, name, spacing and margins where set, and the items in
/// order.
QStringList describeLayouts(const QLayout &layout);
