#pragma once

#include "discovery/HalconInstallation.h"

#include <QFrame>
#include <QList>

#include <memory>

class HelpMenu;
class QModelIndex;
class QPushButton;
class QUrl;
class VisualStudioChoice;

namespace Ui {
class SingleHalconVersionFrame;
}

/// The card of one installed HALCON version: shows what it is and where, and starts its tools.
class SingleHalconVersionFrame : public QFrame {
    Q_OBJECT

public:
    /// Builds the whole card for a copy of @p installation. The first card detects the machine's Visual
    /// Studio versions, which may take seconds.
    explicit SingleHalconVersionFrame(const HalconInstallation &installation, QWidget *parent = nullptr);
    ~SingleHalconVersionFrame() override;

    /// The installation that the card shows.
    const HalconInstallation &installation() const;

    /// The controls at which the Tab key stops, hidden ones included, from left to right.
    QList<QWidget *> tabStops() const;

    /// Tells in the details of @p latest, the newest release of this version and edition, if it is newer than
    /// the installation. Called again, it tells of the last one alone.
    void showUpdate(const HalconInstallation &latest);

    /// Lets a press on the label of a COM check box toggle that box.
    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Opens the installation directory that @p link names in Explorer, any other link with the desktop's
    /// handler.
    void textBrowserClick(const QUrl &link);

    /// Makes the installation the machine's default after the user has agreed to what will be done.
    void switchVersion();

    /// Opens a shell with the Visual Studio in the row of @p index, or its IDE where it has no build
    /// environment; shows a warning when that fails.
    void launchShellModelIndex(const QModelIndex &index);

    /// The same with the selected Visual Studio.
    void launchShell();

    /// Starts HDevelop; shows a warning when that fails.
    void launchHDevelop();

    /// Starts HDevelop XL; shows a warning when that fails.
    void launchHDevelopXL();

    /// Starts Velloxa; shows its advertisement when that fails.
    void launchVelloxa();

    /// Lets the user choose a licence file and puts it into the installation.
    void installLicense();

    /// Opens the manual whose menu entry sent the signal.
    void openHelpFromAction();

    /// Shows the IDE and shell buttons that fit the Visual Studio in the row of @p index.
    void updateDevEnvIconModelIndex(const QModelIndex &index);

    /// Shows the IDE and shell buttons that fit the Visual Studio in @p row of the list.
    void updateDevEnvIconIndex(int row);

    /// Starts the IDE of the selected Visual Studio; shows a warning when that fails.
    void launchDevEnv();

    /// Starts the IDE of the Visual Studio in the row of @p index; shows a warning when that fails.
    void launchDevEnvModelIndex(const QModelIndex &index);

private:
    void showPictures();
    void connectComRows();
    void fillVisualStudioList();
    void showVersion();
    void addHelpMenu();
    void showHDevelop();
    void setAccessibleNames();

    HalconInstallation record;
    std::unique_ptr<VisualStudioChoice> visualStudios;
    std::unique_ptr<Ui::SingleHalconVersionFrame> ui;
    QPushButton *architectureBadge = nullptr;
    QPushButton *xlBadge = nullptr;
    std::unique_ptr<HelpMenu> help;
};
