#pragma once

#include <QPoint>
#include <QVector>

/// What a user does with the mouse and the keys, as the system reports it to whichever window it meets.
/// Positions are pixels of the screen, keys are virtual key codes.

enum class MouseButton { Left, Right };

void moveMouse(QPoint position);
void pressButton(MouseButton button);
void releaseButton(MouseButton button);
/// Turns the wheel by a number of notches; away from the user when it is positive.
void turnWheel(int notches);
/// Presses and releases keys together: the first are held while the last is pressed.
void pressKeys(const QVector<int> &keys);
