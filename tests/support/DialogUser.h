#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// How @p dialog ends when a user has shown it and calls @p close: its result, or -2 when it is still there.
inline int resultOf(QDialog &dialog, const std::function<void()> &close)
{
    dialog.show();
    dialog.setResult(-1);
    close();
    return dialog.isVisible() ? -2 : dialog.result();
}

/// A fake user of the next modal dialog of one class: does something with it once it is open.
template <typename Dialog>
class DialogUser : public QObject {
public:
    /// @p use leaves the dialog open or closes it, as a user would.
    explicit DialogUser(const std::function<void(Dialog &)> &use) : use(use)
    {
        constexpr int pollMilliseconds = 10;
        connect(&timer, &QTimer::timeout, this, &DialogUser::useOpenDialog);
        timer.start(pollMilliseconds);
    }

    /// Whether the dialog has opened.
    bool wasUsed() const { return used; }

private:
    void useOpenDialog()
    {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (dialog != nullptr && dialog->isVisible()) {
            timer.stop();
            used = true;
            use(*dialog);
        }
    }

    std::function<void(Dialog &)> use;
    QTimer timer;
    bool used = false;
};
