#pragma once

#include "discovery/HalconInstallation.h"

#include <QList>
#include <QMainWindow>

#include <memory>

class DebugDialog;
class RecentProgramsFrame;
class UpdateCheck;

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
    /// Stores whether HALCON update checks are on and, if they are, starts one; @p new_state is a Qt::CheckState.
    void handleUpdateChangeOptionHalcon(int new_state);

    /// Stores whether update checks for this program are on and, if they are, starts one; @p new_state is a
    /// Qt::CheckState.
    void handleUpdateChangeOptionCorvanta(int new_state);

    /// Tells of newer HALCON releases on the cards, by the list that the latest download has brought. What is wrong
    /// with the list goes to the debug log.
    void compareVersionsHalcon();

    /// Shows a dialog when the latest download tells of a newer release of this program. What is wrong with it goes to
    /// the debug log.
    void compareVersionCorvanta();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void fillFooter();
    void addCards();
    void restoreUpdateOptions();
    void downloadHalconReleases();
    void downloadOwnRelease();
    void showDebugDialog();
    void showRecentPrograms();

    QList<HalconInstallation> installations;
    DebugDialog *debugDialog = nullptr;            ///< made when it is first opened
    RecentProgramsFrame *recentPrograms = nullptr; ///< made when it is first opened
    UpdateCheck *halconUpdateCheck = nullptr;      ///< the latest; all of them live as long as the window
    UpdateCheck *corvantaUpdateCheck = nullptr;    ///< likewise
    std::unique_ptr<Ui::MainWindow> ui;
};
