#pragma once

#include "app/UpdateOption.h"
#include "discovery/HalconInstallation.h"

#include <QList>
#include <QMainWindow>

#include <memory>

class DebugDialog;
class RecentProgramsFrame;

namespace Ui {
class MainWindow;
}

/// The program's one window: a card for each installed HALCON version, and the update options.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Finds the installations and builds their cards. When there is none, shows an error dialog instead and
    /// ends the process with exit code 1.
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

public slots:
    /// Stores whether HALCON update checks are on and, if they are, starts one; @p new_state is a
    /// Qt::CheckState.
    void handleUpdateChangeOptionHalcon(int new_state);

    /// Stores whether update checks for this program are on and, if they are, starts one; @p new_state is a
    /// Qt::CheckState.
    void handleUpdateChangeOptionCorvanta(int new_state);

    /// Shows newer HALCON releases on the cards, going by the latest download. Errors in the list go to the
    /// debug log.
    void compareVersionsHalcon();

    /// Shows a dialog when the latest download announces a newer release of this program. Errors in it go to
    /// the debug log.
    void compareVersionCorvanta();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void fillFooter();
    void addCards();
    void restoreUpdateOptions();
    void showDebugDialog();
    void showRecentPrograms();

    QList<HalconInstallation> installations;
    DebugDialog *debugDialog = nullptr;            ///< created when first opened
    RecentProgramsFrame *recentPrograms = nullptr; ///< created when first opened
    UpdateOption halconUpdates;
    UpdateOption ownUpdates;
    std::unique_ptr<Ui::MainWindow> ui;
};
