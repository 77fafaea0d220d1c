#include "tests/support/MessageBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>
#include <QtTest>

namespace {

/// The button that Enter presses. QMessageBox::defaultButton() returns only one that was set explicitly.
QMessageBox::StandardButton defaultButtonOf(const QMessageBox &box)
{
    const QList<QAbstractButton *> buttons = box.buttons();
    for (QAbstractButton *button : buttons) {
        const auto *pushButton = qobject_cast<QPushButton *>(button);
        if (pushButton != nullptr && pushButton->isDefault()) {
            return box.standardButton(button);
        }
    }
    return QMessageBox::NoButton;
}

} // namespace

MessageBoxes::MessageBoxes(const QList<QMessageBox::StandardButton> &answers) : answers(answers)
{
    constexpr int pollMilliseconds = 10;
    connect(&timer, &QTimer::timeout, this, &MessageBoxes::answerOpenBox);
    timer.start(pollMilliseconds);
}

const QList<ShownBox> &MessageBoxes::shown() const
{
    return boxes;
}

void MessageBoxes::answerOpenBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr || box == answered || !box->isVisible()) {
        return;
    }
    answered = box;
    boxes.append({box->windowTitle(), box->text(), box->icon(), box->standardButtons(), defaultButtonOf(*box),
                  box->parentWidget()});
    const QMessageBox::StandardButton answer =
        answers.isEmpty() ? QMessageBox::NoButton : answers.takeFirst();
    if (QAbstractButton *button = box->button(answer)) {
        QTest::mouseClick(button, Qt::LeftButton);
    } else {
        QTest::keyClick(box, Qt::Key_Escape);
    }
}
