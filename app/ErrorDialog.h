#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class ErrorDialog;
}

/// Tells the user of an error that ends the program. The message goes to the debug log as well.
class ErrorDialog : public QDialog {
    Q_OBJECT

public:
    /// @p html is rich text; its links open in the system's browser.
    explicit ErrorDialog(const QString &html, QWidget *parent = nullptr);
    ~ErrorDialog() override;

private:
    std::unique_ptr<Ui::ErrorDialog> ui;
};
