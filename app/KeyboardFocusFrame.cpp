#include "app/KeyboardFocusFrame.h"

#include <QApplication>
#include <QFocusEvent>
#include <QGraphicsEffect>
#include <QPainter>
#include <QScrollArea>

namespace {

constexpr int lineWidth = 2; // of the dark line; a light one inside it is half as wide
constexpr int distance = 3;  // between the control and the frame's outer edge, on each side

/// The part of @p area, in window coordinates, that the scroll areas around @p widget do not clip.
QRect visiblePart(QRect area, const QWidget &widget)
{
    const QWidget *window = widget.window();
    for (const QWidget *around = widget.parentWidget(); around != nullptr && around != window;
         around = around->parentWidget()) {
        const auto *scrollArea = qobject_cast<QAbstractScrollArea *>(around->parentWidget());
        if (scrollArea != nullptr && scrollArea->viewport() == around) {
            area &= QRect(around->mapTo(window, QPoint()), around->size());
        }
    }
    return area & window->rect();
}

} // namespace

KeyboardFocusFrame::KeyboardFocusFrame(QWidget *window) : QWidget(window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    QApplication::instance()->installEventFilter(this);
}

bool KeyboardFocusFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType()) {
        return false;
    }
    auto *widget = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        focusEnters(widget, static_cast<QFocusEvent *>(event)->reason());
        break;
    case QEvent::FocusOut:
        if (widget == control) {
            focusLeaves(static_cast<QFocusEvent *>(event)->reason());
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        if (control != nullptr && (widget == control || widget->isAncestorOf(control))) {
            followControl();
        }
        break;
    default:
        break;
    }
    return false;
}

void KeyboardFocusFrame::paintEvent(QPaintEvent * /*event*/)
{
    if (control == nullptr) {
        return;
    }
    QPainter painter(this);
    QRect line = frameRect().translated(-pos());
    const auto draw = [&](const QColor &colour, int width) {
        const QRect inside = line.adjusted(width, width, -width, -width);
        painter.setClipRegion(QRegion(line) - inside);
        painter.fillRect(line, colour);
        line = inside;
    };
    draw(Qt::black, lineWidth);
    draw(Qt::white, lineWidth / 2);
}

void KeyboardFocusFrame::focusEnters(QWidget *newControl, Qt::FocusReason reason)
{
    if (newControl->window() != window()) {
        return;
    }
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
        reason == Qt::ShortcutFocusReason) {
        byKeyboard = true;
    } else if (reason == Qt::MouseFocusReason) {
        byKeyboard = false;
    }
    control = newControl;
    if (byKeyboard) {
        for (QWidget *around = control->parentWidget(); around != nullptr; around = around->parentWidget()) {
            if (auto *area = qobject_cast<QScrollArea *>(around)) {
                area->ensureWidgetVisible(control);
            }
        }
    }
    followControl();
}

void KeyboardFocusFrame::focusLeaves(Qt::FocusReason reason)
{
    // A menu returns the focus when it closes.
    if (reason != Qt::PopupFocusReason) {
        control = nullptr;
        followControl();
    }
}

void KeyboardFocusFrame::followControl()
{
    const QRect before = isVisible() ? geometry() : QRect();
    if (byKeyboard && control != nullptr && control->isVisible()) {
        setGeometry(visiblePart(frameRect(), *control));
        // Needed when only the clipping has changed.
        update();
        raise();
        show();
    } else {
        hide();
    }
    updateShadows(before, isVisible() ? geometry() : QRect());
}

/// Repaints the controls with a graphics effect where the frame was and where it is now. For such a control
/// Qt paints the bounding rectangle of all changes over what is already there, so parts of it would be
/// painted twice.
void KeyboardFocusFrame::updateShadows(const QRect &before, const QRect &now)
{
    constexpr int reach = 16; // how far an effect extends beyond its control
    const QList<QWidget *> widgets = window()->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->graphicsEffect() != nullptr && widget->window() == window() && widget->isVisible()) {
            const QRect area = QRect(widget->mapTo(window(), QPoint()), widget->size())
                                   .adjusted(-reach, -reach, reach, reach);
            if (area.intersects(before) || area.intersects(now)) {
                widget->update();
            }
        }
    }
}

QRect KeyboardFocusFrame::frameRect() const
{
    return QRect(control->mapTo(window(), QPoint()), control->size())
        .adjusted(-distance, -distance, distance, distance);
}
