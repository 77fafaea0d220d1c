#pragma once

#include "devenv/VisualStudioVersion.h"
#include "discovery/HalconInstallation.h"

#include <QFileIconProvider>
#include <QFrame>
#include <QList>

#include <memory>

class QUrl;

namespace Ui {
class SingleHalconVersionFrame;
}

/// The card of one installed HALCON version: shows what it is and where, and starts its tools.
class SingleHalconVersionFrame : public QFrame {
    Q_OBJECT

public:
    /// Builds the whole card for a copy of @p installation. The first card detects the machine's Visual Studio
    /// versions, which may take seconds.
    explicit SingleHalconVersionFrame(const HalconInstallation &installation, QWidget *parent = nullptr);
    ~SingleHalconVersionFrame() override;

    /// The installation that the card stands for.
    const HalconInstallation &installation() const;

    /// Lets a press on the label of a COM check box toggle that box.
    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Opens the installation's directory that @p link stands for in Explorer, any other link with the desktop's
    /// handler.
    void textBrowserClick(const QUrl &link);

    /// Starts HDevelop; shows a warning when that fails.
    void launchHDevelop();

    /// Starts HDevelop XL; shows a warning when that fails.
    void launchHDevelopXL();

    /// Starts Velloxa, or shows what it is when it could not be started.
    void launchVelloxa();

    /// Shows the IDE and shell buttons that fit the Visual Studio in @p row of the list.
    void updateDevEnvIconIndex(int row);

private:
    void setObjectNames();
    void markPushButtons();
    void showDetails();
    void connectComRows();
    void fillVisualStudioList();
    void showVersion();
    void addXlBadge();
    void addDropShadows();
    QIcon fileIcon(const QString &path) const;
    void launchHDevelopBuild(bool xl);

    HalconInstallation record;
    QList<VisualStudioVersion> visualStudios; ///< those that fit the architecture, in the order of the list's rows
    QFileIconProvider iconProvider;
    std::unique_ptr<Ui::SingleHalconVersionFrame> ui;
};
