#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QMainWindow>

#include <memory>

class DebugDialog;

namespace Ui {
class MainWindow;
}

/// The program's one window: a card for each installed HALCON version, and the update options.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Finds the installations and builds their cards. When there is none, shows an error dialog instead and ends
    /// the process with exit code 1.
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

public slots:
    /// Stores whether HALCON update checks are on; @p new_state is a Qt::CheckState.
    void handleUpdateChangeOptionHalcon(int new_state);

    /// Stores whether update checks for this program are on; @p new_state is a Qt::CheckState.
    void handleUpdateChangeOptionCorvanta(int new_state);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void fillFooter();
    void addCards();
    void restoreUpdateOptions();
    void showDebugDialog();

    QList<HalconInstallation> installations;
    DebugDialog *debugDialog = nullptr; ///< made when it is first opened
    std::unique_ptr<Ui::MainWindow> ui;
};
