#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class messagedialog;
}

/// Tells the user some news, such as a newer release of this program. The message goes to the debug log as
/// well.
class MessageDialog : public QDialog {
    Q_OBJECT

public:
    /// @p html is rich text; its links open in the system's browser.
    explicit MessageDialog(const QString &html, QWidget *parent = nullptr);
    ~MessageDialog() override;

private:
    std::unique_ptr<Ui::messagedialog> ui;
};
