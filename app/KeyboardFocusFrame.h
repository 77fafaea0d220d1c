#pragma once

#include <QPointer>
#include <QWidget>

/// A frame around the control that has the keyboard focus. It appears once the user moves the focus by
/// keyboard, as is usual on Windows, and scrolls the control into view. Together its two colours contrast
/// with every background.
class KeyboardFocusFrame : public QWidget {
    Q_OBJECT

public:
    /// Watches the controls of @p window, which owns the frame.
    explicit KeyboardFocusFrame(QWidget *window);

    /// Follows the focus, and the geometry of the control that has it.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void focusEnters(QWidget *control, Qt::FocusReason reason);
    void focusLeaves(Qt::FocusReason reason);
    void followControl();
    void updateShadows(const QRect &before, const QRect &now);
    QRect frameRect() const;

    QPointer<QWidget> control; ///< has the focus
    bool byKeyboard = false;   ///< whether the focus was last moved by keyboard
};
