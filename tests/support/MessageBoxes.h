#pragma once

#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTimer>

/// The contents of a message box.
struct ShownBox {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QPointer<QWidget> parent;
};

/// A fake user of modal message boxes while it lives: records each box that opens and answers it with a click
/// on the next button of a list, or with the Escape key for NoButton. Boxes after the end of the list are
/// recorded too and closed with Escape.
class MessageBoxes : public QObject {
public:
    explicit MessageBoxes(const QList<QMessageBox::StandardButton> &answers = {QMessageBox::Ok});

    /// The boxes so far, in order.
    const QList<ShownBox> &shown() const;

private:
    void answerOpenBox();

    QList<QMessageBox::StandardButton> answers;
    QList<ShownBox> boxes;
    QPointer<QMessageBox> answered;
    QTimer timer;
};
