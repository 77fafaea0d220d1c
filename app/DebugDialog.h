#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class DebugDialog;
}

/// Shows the debug log, follows it while it grows, and copies it to the clipboard.
class DebugDialog : public QDialog {
    Q_OBJECT

public:
    explicit DebugDialog(QWidget *parent = nullptr);
    ~DebugDialog() override;

public slots:
    /// Shows the whole current log. Keeps the selection and the scroll position, or stays at the end if the
    /// view is there.
    void updateLog();

    /// Puts the whole current log on the clipboard and tells the user so.
    void copyToClipboard();

private:
    std::unique_ptr<Ui::DebugDialog> ui;
    int shownLength = 0; ///< how much of the log's text is shown
};
