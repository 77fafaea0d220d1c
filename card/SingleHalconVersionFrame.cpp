#include "card/SingleHalconVersionFrame.h"

#include "card/CardAccessibility.h"
#include "card/CardDetails.h"
#include "card/CardIcons.h"
#include "card/CardLook.h"
#include "card/CardStyleSheets.h"
#include "card/HelpMenu.h"
#include "card/LaunchConversation.h"
#include "card/LicenseConversation.h"
#include "card/SwitchConversation.h"
#include "card/VersionTexts.h"
#include "card/VisualStudioButtons.h"
#include "card/VisualStudioChoice.h"
#include "devenv/VisualStudioDetection.h"
#include "launch/HDevelopLaunch.h"
#include "ui_SingleHalconVersionFrame.h"

#include <QAction>
#include <QDesktopServices>
#include <QEvent>
#include <QUrl>

#include <utility>

SingleHalconVersionFrame::SingleHalconVersionFrame(const HalconInstallation &installation, QWidget *parent)
    : QFrame(parent), record(installation), ui(std::make_unique<Ui::SingleHalconVersionFrame>())
{
    ui->setupUi(this);
    showPictures();
    // The card and the frame of its first COM row share a name.
    setObjectName(QStringLiteral("frame"));
    // Deliberately with a capital C, unlike in the form.
    ui->pbUacEngine->setObjectName(QStringLiteral("pbUaCEngine"));
    styleCard(*this, record.major);

    showDetails(record, *ui->textBrowser);
    connect(ui->textBrowser, &QTextBrowser::anchorClicked, this, &SingleHalconVersionFrame::textBrowserClick);
    fillVisualStudioList();
    showVersion();
    addHelpMenu();
    showHDevelop();
    connect(ui->pbHDevelop, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
    connect(ui->pbHDevelopXL, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelopXL);
    connect(ui->pbVelloxa, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchVelloxa);
    connect(ui->pbInstallLicense, &QPushButton::clicked, this, &SingleHalconVersionFrame::installLicense);
    connect(ui->pbPerm, &QPushButton::clicked, this, &SingleHalconVersionFrame::switchVersion);
    connectComRows();
    addDropShadows({ui->pbShell, ui->pbDevEnv, ui->pbMajor, ui->pbPerm, ui->pbHelp, ui->pbHDevelop,
                    ui->pbHDevelopXL, ui->pbVelloxa, ui->pbInstallLicense});
    setAccessibleNames();
    connect(ui->lwVsVersion, &QListWidget::doubleClicked, this,
            &SingleHalconVersionFrame::launchShellModelIndex);
    connect(ui->lwVsVersion, &QListWidget::clicked, this,
            &SingleHalconVersionFrame::updateDevEnvIconModelIndex);
    connect(ui->pbShell, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchShell);
    connect(ui->pbDevEnv, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchDevEnv);
    connect(ui->pbMajor, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
}

SingleHalconVersionFrame::~SingleHalconVersionFrame() = default;

const HalconInstallation &SingleHalconVersionFrame::installation() const
{
    return record;
}

QList<QWidget *> SingleHalconVersionFrame::tabStops() const
{
    return {ui->pbMajor,   architectureBadge,   ui->textBrowser, ui->pbHDevelop,     ui->pbHDevelopXL,
            xlBadge,       ui->pbHelp,          ui->pbShell,     ui->pbDevEnv,       ui->lwVsVersion,
            ui->pbPerm,    ui->cbRegCom,        ui->pbUac,       ui->cbRegComEngine, ui->pbUacEngine,
            ui->pbVelloxa, ui->pbInstallLicense};
}

void SingleHalconVersionFrame::showUpdate(const HalconInstallation &latest)
{
    showRelease(latest, record, *ui->textBrowser);
}

bool SingleHalconVersionFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        if (watched == ui->lRegCom) {
            ui->cbRegCom->toggle();
            return true;
        }
        if (watched == ui->lRegComEngine) {
            ui->cbRegComEngine->toggle();
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void SingleHalconVersionFrame::showPictures()
{
    const std::pair<QPushButton *, const char *> pictures[] = {
        {ui->pbHelp, ":/help.png"},       {ui->pbShell, ":/shell.png"},
        {ui->pbDevEnv, ":/shell.png"},    {ui->pbPerm, ":/permanent.png"},
        {ui->pbUac, ":/uac.png"},         {ui->pbUacEngine, ":/uac.png"},
        {ui->pbVelloxa, ":/velloxa.png"}, {ui->pbInstallLicense, ":/install_license.png"},
    };
    for (const auto &[button, file] : pictures) {
        button->setIcon(pictureIcon(QLatin1String(file)));
    }
}

void SingleHalconVersionFrame::fillVisualStudioList()
{
    visualStudios = std::make_unique<VisualStudioChoice>(visualStudioVersions(), record.arch);
    ui->lwVsVersion->addItems(visualStudios->rows());
    if (ui->lwVsVersion->count() == 0) {
        ui->pbShell->setIcon(pictureIcon(QStringLiteral(":/shell_no_devenv.png")));
    } else {
        ui->lwVsVersion->setCurrentRow(0);
    }
    updateDevEnvIconIndex(0);
}

void SingleHalconVersionFrame::showVersion()
{
    ui->pbMajor->setText(majorText(record));
    setMinimumHeight(QFontMetrics(ui->pbMajor->font()).height() * 3 / 2);
    architectureBadge =
        placeWithBadge(*ui->pbMajor, *ui->gridLayoutMajor, 0, architectureBadgeText(record.arch),
                       architectureBadgeStyleSheet(record.arch));
    connect(architectureBadge, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
}

void SingleHalconVersionFrame::addHelpMenu()
{
    help = std::make_unique<HelpMenu>(record.installDir, this);
    for (const QAction *action : help->actions()) {
        connect(action, &QAction::triggered, this, &SingleHalconVersionFrame::openHelpFromAction);
    }
    ui->pbHelp->setMenu(help->menu());
}

void SingleHalconVersionFrame::showHDevelop()
{
    const QIcon icon = lateProgramIcon(hdevelopExecutable(record, false), ui->pbHDevelop->iconSize());
    ui->pbHDevelop->setIcon(icon);
    ui->pbHDevelopXL->setIcon(icon);

    placeForBadge(*ui->pbHDevelop, *ui->gridLayoutHDevelop, 0);
    xlBadge = placeWithBadge(*ui->pbHDevelopXL, *ui->gridLayoutHDevelop, 3, QStringLiteral("XL"),
                             xlBadgeStyleSheet());
    xlBadge->setToolTip(ui->pbHDevelopXL->toolTip());
    connect(xlBadge, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelopXL);
}

void SingleHalconVersionFrame::connectComRows()
{
    connect(ui->pbUac, &QPushButton::clicked, ui->cbRegCom, &QCheckBox::toggle);
    connect(ui->pbUacEngine, &QPushButton::clicked, ui->cbRegComEngine, &QCheckBox::toggle);
    ui->lRegCom->installEventFilter(this);
    ui->lRegComEngine->installEventFilter(this);
    ui->pbUac->setToolTip(ui->lRegCom->toolTip());
    ui->cbRegCom->setToolTip(ui->lRegCom->toolTip());
    ui->pbUacEngine->setToolTip(ui->lRegComEngine->toolTip());
    ui->cbRegComEngine->setToolTip(ui->lRegComEngine->toolTip());
    ui->cbRegCom->setChecked(true);
    ui->cbRegComEngine->setChecked(true);
}

/// Sets the names that depend on the installation; the form has the others.
void SingleHalconVersionFrame::setAccessibleNames()
{
    announceCardsAsGroups();
    setAccessibleName(tr("HALCON %1").arg(record.versionArchText()));
    ui->pbMajor->setAccessibleName(tr("HDevelop %1").arg(record.versionArchText()));
    architectureBadge->setAccessibleName(tr("HDevelop %1").arg(architectureBadge->text()));
    xlBadge->setAccessibleName(ui->pbHDevelopXL->accessibleName());
}

void SingleHalconVersionFrame::textBrowserClick(const QUrl &link)
{
    openDetailsLink(link, record);
}

void SingleHalconVersionFrame::switchVersion()
{
    switchAfterConsent(record, ui->cbRegCom->isChecked(), ui->cbRegComEngine->isChecked(), this);
}

void SingleHalconVersionFrame::installLicense()
{
    installLicenseFile(record, this);
}

void SingleHalconVersionFrame::launchShellModelIndex(const QModelIndex &index)
{
    launchShellOrWarn(record, *visualStudios, index.row(), this);
}

void SingleHalconVersionFrame::launchShell()
{
    launchShellModelIndex(ui->lwVsVersion->currentIndex());
}

void SingleHalconVersionFrame::launchHDevelop()
{
    launchHDevelopOrWarn(record, false, this);
}

void SingleHalconVersionFrame::launchHDevelopXL()
{
    launchHDevelopOrWarn(record, true, this);
}

void SingleHalconVersionFrame::launchVelloxa()
{
    launchVelloxaOrAdvertise(record);
}

void SingleHalconVersionFrame::openHelpFromAction()
{
    if (const auto *action = qobject_cast<QAction *>(sender())) {
        QDesktopServices::openUrl(action->data().toUrl());
    }
}

void SingleHalconVersionFrame::updateDevEnvIconModelIndex(const QModelIndex &index)
{
    updateDevEnvIconIndex(index.row());
}

void SingleHalconVersionFrame::updateDevEnvIconIndex(int row)
{
    showVisualStudioButtons(visualStudios->at(row), *ui->pbShell, *ui->pbDevEnv);
}

void SingleHalconVersionFrame::launchDevEnv()
{
    launchDevEnvModelIndex(ui->lwVsVersion->currentIndex());
}

void SingleHalconVersionFrame::launchDevEnvModelIndex(const QModelIndex &index)
{
    launchIdeOrWarn(record, *visualStudios, index.row(), this);
}
