#include "card/SingleHalconVersionFrame.h"

#include "base/MakerAddresses.h"
#include "card/CardAccessibility.h"
#include "card/CardIcons.h"
#include "card/CardPalette.h"
#include "card/CardTexts.h"
#include "card/Documentation.h"
#include "card/VelloxaAdvertisementDialog.h"
#include "devenv/VisualStudioDetection.h"
#include "launch/CommandShell.h"
#include "launch/HDevelopLaunch.h"
#include "launch/IdeLaunch.h"
#include "launch/PermanentSwitch.h"
#include "launch/VelloxaLaunch.h"
#include "license/InstallLicenseDialog.h"
#include "license/LicenseCopy.h"
#include "ui_SingleHalconVersionFrame.h"
#include "update/HalconReleases.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QGraphicsDropShadowEffect>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>

#include <utility>

SingleHalconVersionFrame::SingleHalconVersionFrame(const HalconInstallation &installation, QWidget *parent)
    : QFrame(parent), record(installation), ui(std::make_unique<Ui::SingleHalconVersionFrame>())
{
    ui->setupUi(this);
    setObjectNames();
    markPushButtons();
    const QString colour = cardColour(record.major);
    setColours(cardPalette(colour));
    setStyleSheet(cardStyleSheet(colour));

    showDetails();
    fillVisualStudioList();
    showVersion();
    buildHelpMenu();
    showHDevelop();
    connect(ui->pbHDevelop, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
    connect(ui->pbHDevelopXL, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelopXL);
    connect(ui->pbVelloxa, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchVelloxa);
    connect(ui->pbInstallLicense, &QPushButton::clicked, this, &SingleHalconVersionFrame::installLicense);
    connect(ui->pbPerm, &QPushButton::clicked, this, &SingleHalconVersionFrame::switchVersion);
    connectComRows();
    addDropShadows();
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
    // The details as they were before the first comparison.
    const char *const cache = "cachedHtml";
    if (ui->textBrowser->property(cache).toString().isEmpty()) {
        ui->textBrowser->setProperty(cache, ui->textBrowser->toHtml());
    }
    if (isNewer(latest, record)) {
        const QString line = updateLine(latest, MakerAddresses::halconDownloads());
        ui->textBrowser->setHtml(withLastLine(ui->textBrowser->property(cache).toString(), line));
    }
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

void SingleHalconVersionFrame::setObjectNames()
{
    // The card and the frame of its first COM row share a name.
    setObjectName(QStringLiteral("frame"));
    const std::pair<QObject *, const char *> names[] = {
        {ui->lwVsVersion, "lwVsVersion"},
        {ui->textBrowser, "textBrowser"},
        {ui->pbHDevelop, "pbHDevelop"},
        {ui->pbHDevelopXL, "pbHDevelopXL"},
        {ui->pbHelp, "pbHelp"},
        {ui->pbMajor, "pbMajor"},
        {ui->pbPerm, "pbPerm"},
        {ui->pbShell, "pbShell"},
        {ui->pbUac, "pbUac"},
        {ui->pbUacEngine, "pbUaCEngine"}, // with a capital C, unlike in the form
        {ui->pbVelloxa, "pbVelloxa"},
    };
    for (const auto &[object, name] : names) {
        object->setObjectName(QLatin1String(name));
    }
}

void SingleHalconVersionFrame::markPushButtons()
{
    const QList<QPushButton *> buttons = findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        button->setProperty("class", QStringLiteral("myPushButton"));
    }
}

void SingleHalconVersionFrame::setColours(const QPalette &palette)
{
    setPalette(palette);
    // Where there is a style sheet a palette does not reach the children by itself.
    const QList<QWidget *> children = findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (!child->isWindow()) {
            child->setPalette(palette);
        }
    }
}

void SingleHalconVersionFrame::showDetails()
{
    ui->textBrowser->setText(
        detailsHtml(record, QFileInfo(record.installDir).isDir(), QFileInfo(record.exampleRoot).isDir()));
    ui->textBrowser->setOpenLinks(false);
    connect(ui->textBrowser, &QTextBrowser::anchorClicked, this, &SingleHalconVersionFrame::textBrowserClick);
}

void SingleHalconVersionFrame::fillVisualStudioList()
{
    visualStudios = versionsForArchitecture(visualStudioVersions(), record.arch);
    ui->lwVsVersion->addItems(visualStudioRows(visualStudios));
    if (ui->lwVsVersion->count() == 0) {
        ui->pbShell->setIcon(QIcon(QStringLiteral(":/shell_no_devenv.png")));
    } else {
        ui->lwVsVersion->setCurrentRow(0);
    }
    updateDevEnvIconIndex(0);
}

void SingleHalconVersionFrame::showVersion()
{
    ui->pbMajor->setText(majorText(record));
    setMinimumHeight(QFontMetrics(ui->pbMajor->font()).height() * 3 / 2);

    // The badge overlaps the lower right corner of the number.
    ui->verticalLayout_3->removeWidget(ui->pbMajor);
    ui->gridLayoutMajor->addWidget(ui->pbMajor, 0, 0, 3, 3);
    architectureBadge =
        makeBadge(architectureBadgeText(record.arch), architectureBadgeStyleSheet(record.arch));
    connect(architectureBadge, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
    ui->gridLayoutMajor->addWidget(architectureBadge, 2, 2);
}

QPushButton *SingleHalconVersionFrame::makeBadge(const QString &text, const QString &styleSheet)
{
    auto *badge = new QPushButton(text, this);
    badge->setStyleSheet(styleSheet);
    badge->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    return badge;
}

void SingleHalconVersionFrame::buildHelpMenu()
{
    const Documentation documentation = findDocumentation(record.installDir);
    auto *menu = new QMenu(this);
    for (const DocumentationEntry &entry : documentation.pdfManuals) {
        QMenu *place = menu;
        for (const QString &title : entry.submenus) {
            place = submenu(place, title);
        }
        place->addAction(makeHelpAction(entry));
    }

    releaseNotes = std::make_unique<QMenu>(tr("Release Notes"));
    menu->addMenu(releaseNotes.get())->setIcon(iconProvider.icon(QFileIconProvider::Folder));
    for (const DocumentationEntry &entry : documentation.releaseNotes) {
        releaseNotes->addAction(makeHelpAction(entry));
    }

    for (const DocumentationEntry &entry : documentation.htmlManuals) {
        menu->addAction(makeHelpAction(entry));
    }
    ui->pbHelp->setMenu(menu);
}

QAction *SingleHalconVersionFrame::makeHelpAction(const DocumentationEntry &entry)
{
    auto *action = new QAction(iconProvider.icon(QFileInfo(entry.file)), entry.title, this);
    action->setData(QUrl::fromLocalFile(entry.file));
    if (entry.bold) {
        QFont font = action->font();
        font.setBold(true);
        action->setFont(font);
    }
    connect(action, &QAction::triggered, this, &SingleHalconVersionFrame::openHelpFromAction);
    return action;
}

/// The first submenu of @p menu with this title, made when there is none.
QMenu *SingleHalconVersionFrame::submenu(QMenu *menu, const QString &title)
{
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->menu() != nullptr && action->text() == title) {
            return action->menu();
        }
    }
    auto *made = new QMenu(title, menu);
    menu->addMenu(made)->setIcon(iconProvider.icon(QFileIconProvider::Folder));
    return made;
}

void SingleHalconVersionFrame::showHDevelop()
{
    const QIcon icon = fileIcon(hdevelopExecutable(record, false));
    ui->pbHDevelop->setIcon(icon);
    ui->pbHDevelopXL->setIcon(icon);

    xlBadge = makeBadge(QStringLiteral("XL"), xlBadgeStyleSheet());
    xlBadge->setToolTip(ui->pbHDevelopXL->toolTip());

    ui->gridLayoutHDevelop->removeWidget(ui->pbHDevelop);
    ui->gridLayoutHDevelop->removeWidget(ui->pbHDevelopXL);
    ui->gridLayoutHDevelop->addWidget(ui->pbHDevelop, 0, 0, 3, 3);
    ui->gridLayoutHDevelop->addWidget(ui->pbHDevelopXL, 3, 0, 3, 3);
    ui->gridLayoutHDevelop->addWidget(xlBadge, 5, 2);
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

void SingleHalconVersionFrame::addDropShadows()
{
    QPushButton *const buttons[] = {ui->pbShell,      ui->pbDevEnv,  ui->pbMajor,
                                    ui->pbPerm,       ui->pbHelp,    ui->pbHDevelop,
                                    ui->pbHDevelopXL, ui->pbVelloxa, ui->pbInstallLicense};
    for (QPushButton *button : buttons) {
        auto *shadow = new QGraphicsDropShadowEffect(button);
        shadow->setOffset(4, 4);
        button->setGraphicsEffect(shadow);
    }
}

/// What the form cannot know: which installation it is. The names of the other controls stand there.
void SingleHalconVersionFrame::setAccessibleNames()
{
    announceCardsAsGroups();
    setAccessibleName(tr("HALCON %1").arg(record.versionArchText()));
    ui->pbMajor->setAccessibleName(tr("HDevelop %1").arg(record.versionArchText()));
    architectureBadge->setAccessibleName(tr("HDevelop %1").arg(architectureBadge->text()));
    xlBadge->setAccessibleName(ui->pbHDevelopXL->accessibleName());
}

QIcon SingleHalconVersionFrame::fileIcon(const QString &path) const
{
    constexpr int size = 48;
    return iconOfItsOwnSize(iconProvider.icon(QFileInfo(path)).pixmap(size, size),
                            ui->pbHDevelop->iconSize());
}

void SingleHalconVersionFrame::textBrowserClick(const QUrl &link)
{
    const QString path = link.path(QUrl::FullyDecoded);
    if (path == QLatin1String("/exampleRoot")) {
        QProcess::startDetached(QStringLiteral("explorer"), {record.exampleRoot});
    } else if (path == QLatin1String("/installDir")) {
        QProcess::startDetached(QStringLiteral("explorer"), {record.installDir});
    } else {
        QDesktopServices::openUrl(link);
    }
}

void SingleHalconVersionFrame::switchVersion()
{
    const bool registerHalconCom = ui->cbRegCom->isChecked();
    const bool registerEngineCom = ui->cbRegComEngine->isChecked();
    // One list for both runs: after a failure the user sees what was planned and what became of it.
    QStringList lines;
    permanentSwitch(record, false, registerHalconCom, registerEngineCom, &lines);

    // Only the second line and those behind it get a hyphen.
    const QString changes = tr("If you continue, the following changes will be performed.\n\n%1")
                                .arg(lines.join(QStringLiteral("\n- ")));
    if (QMessageBox::information(this, tr("Perform permanent changes?"), changes,
                                 QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok) != QMessageBox::Ok) {
        QMessageBox::information(this, tr("Cancelled"), tr("No changes were performed."));
        return;
    }
    if (permanentSwitch(record, true, registerHalconCom, registerEngineCom, &lines)) {
        QMessageBox::information(this, tr("Switched"),
                                 tr("Switched to HALCON %1").arg(record.versionArchText()));
    } else {
        showErrors(tr("There were errors when switching to HALCON %1:\n"), lines);
    }
}

void SingleHalconVersionFrame::launchShellModelIndex(const QModelIndex &index)
{
    const VisualStudioVersion *version =
        chosenVisualStudio(index, tr("Could not launch shell: No valid Visual Studio version selected."));
    if (version == nullptr) {
        return;
    }
    if (version->vcvarsBat.isEmpty()) {
        launchDevEnvModelIndex(index);
        return;
    }
    QStringList errors;
    if (!startShell(record, *version, &errors)) {
        showErrors(tr("There were errors in launching a CMD shell for HALCON %1:\n"), errors);
    }
}

void SingleHalconVersionFrame::launchShell()
{
    launchShellModelIndex(ui->lwVsVersion->currentIndex());
}

void SingleHalconVersionFrame::launchHDevelop()
{
    launchHDevelopBuild(false);
}

void SingleHalconVersionFrame::launchHDevelopXL()
{
    launchHDevelopBuild(true);
}

void SingleHalconVersionFrame::launchHDevelopBuild(bool xl)
{
    QStringList errors;
    if (!startHDevelop(record, xl, &errors)) {
        showErrors(tr("There were errors when launching HDevelop %1:\n"), errors);
    }
}

void SingleHalconVersionFrame::launchVelloxa()
{
    QStringList errors;
    if (!startVelloxa(record, &errors)) {
        auto *advertisement = new VelloxaAdvertisementDialog;
        advertisement->setAttribute(Qt::WA_DeleteOnClose);
        advertisement->show();
    }
}

void SingleHalconVersionFrame::installLicense()
{
    const QDir directory(record.installDir + QStringLiteral("/license"));
    InstallLicenseDialog dialog(QDir::toNativeSeparators(directory.path()), this);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFile().isEmpty()) {
        const QString fileName = QFileInfo(dialog.selectedFile()).fileName();
        installLicenseFile(dialog.selectedFile(), dialog.droppedContents(), directory.filePath(fileName));
    }
}

void SingleHalconVersionFrame::installLicenseFile(const QString &source, const QString &droppedContents,
                                                  const QString &target)
{
    const QString shownTarget = QDir::toNativeSeparators(target);
    if (QFileInfo::exists(target) &&
        QMessageBox::warning(
            this, tr("Overwrite?"),
            tr("The file\n  \"%1\"\nalready exists. Do you want to overwrite it?").arg(shownTarget),
            QMessageBox::Ok | QMessageBox::Cancel) != QMessageBox::Ok) {
        return;
    }
    QStringList errors;
    if (!copyLicenseFile(source, droppedContents, target, &errors)) {
        // "occured" is spelled so.
        QMessageBox::warning(
            this, tr("Error"),
            tr("Errors occured during license file copy:\n  %1").arg(errors.join(QStringLiteral("\n  "))));
    } else if (QFileInfo::exists(target)) {
        QMessageBox::information(
            this, tr("Install license"),
            tr("Installation of license file as\n  \"%1\"\nsuccessfully completed!").arg(shownTarget));
    } else {
        QMessageBox::warning(
            this, tr("Error"),
            tr("It seems as if the target license file %1 could not be created").arg(shownTarget));
    }
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
    if (row < 0 || row >= visualStudios.size()) {
        ui->pbDevEnv->hide();
        return;
    }
    const VisualStudioVersion &version = visualStudios.at(row);
    const QFileInfo ide(version.idePath);
    const QIcon icon = ide.exists() ? fileIcon(ide.absoluteFilePath()) : QIcon();
    ui->pbDevEnv->setVisible(!icon.isNull());
    ui->pbDevEnv->setIcon(icon);
    ui->pbShell->setVisible(!version.architecture.isEmpty());
}

void SingleHalconVersionFrame::launchDevEnv()
{
    launchDevEnvModelIndex(ui->lwVsVersion->currentIndex());
}

void SingleHalconVersionFrame::launchDevEnvModelIndex(const QModelIndex &index)
{
    const VisualStudioVersion *version = chosenVisualStudio(
        index, tr("Could not launch Visual Studio IDE: No valid Visual Studio version selected."));
    if (version == nullptr) {
        return;
    }
    QStringList errors;
    if (!startDevEnv(record, *version, &errors)) {
        showErrors(tr("There were errors in launching Visual Studio IDE for HALCON %1:\n"), errors);
    }
}

/// The Visual Studio in the row of @p index. When there is none, tells the user why and returns null.
const VisualStudioVersion *SingleHalconVersionFrame::chosenVisualStudio(const QModelIndex &index,
                                                                        const QString &nothingChosen)
{
    if (visualStudios.isEmpty()) {
        QMessageBox::warning(
            this, QStringLiteral("No Visual Studio detected"),
            tr("The shell cannot be launched, as we could not detect any Visual Studio on your computer. "
               "Please make "
               "sure that you have installed Microsoft Visual Studio and that the component \"Visual C++ "
               "toolset\" "
               "has been selected during installation. To review potential errors in detecting your Visual "
               "Studio "
               "version, close this dialog and press F12 to see debug output of this program."));
        return nullptr;
    }
    if (index.row() < 0 || index.row() >= visualStudios.size()) {
        QMessageBox::warning(this, QStringLiteral("Error"), nothingChosen);
        return nullptr;
    }
    return &visualStudios.at(index.row());
}

/// Warns of @p errors under @p heading, in which %1 stands for the installation.
void SingleHalconVersionFrame::showErrors(const QString &heading, const QStringList &errors)
{
    QMessageBox::warning(this, QStringLiteral("Errors"),
                         heading.arg(record.versionArchText()) + errors.join(QLatin1Char('\n')));
}
