#pragma once

#include <QPointer>
#include <QWidget>

/// A frame around the control of a window that has the keyboard's focus. It is shown to those who move the focus with
/// the keyboard, as is the habit on Windows, and brings the control into sight when that is in a scroll area. Both of
/// its colours together stand out from every background.
class KeyboardFocusFrame : public QWidget {
    Q_OBJECT

public:
    /// Watches the controls of @p window, which owns the frame.
    explicit KeyboardFocusFrame(QWidget *window);

    /// Follows the focus, and the control that has it.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void focusEnters(QWidget *control, Qt::FocusReason reason);
    void focusLeaves(Qt::FocusReason reason);
    void followControl();
    void updateShadows(const QRect &before, const QRect &now);
    QRect frameRect() const;

    QPointer<QWidget> control; ///< the one that has the focus
    bool byKeyboard = false;   ///< whether the keyboard has led the focus there
};
