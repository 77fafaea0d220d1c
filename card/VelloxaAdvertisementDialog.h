#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class VelloxaAdvertisementDialog;
}

/// Tells a user without Velloxa what it is and where to get it. Shown modeless; when it has no parent, its
/// creator sets it to delete itself on close.
class VelloxaAdvertisementDialog : public QDialog {
    Q_OBJECT

public:
    explicit VelloxaAdvertisementDialog(QWidget *parent = nullptr);
    ~VelloxaAdvertisementDialog() override;

private:
    std::unique_ptr<Ui::VelloxaAdvertisementDialog> ui;
};
