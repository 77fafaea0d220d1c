#include "card/SingleHalconVersionFrame.h"

#include "card/CardTexts.h"
#include "devenv/VisualStudioDetection.h"
#include "launch/HDevelopLaunch.h"
#include "launch/VelloxaAdvertisementDialog.h"
#include "launch/VelloxaLaunch.h"
#include "ui_SingleHalconVersionFrame.h"

#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QGraphicsDropShadowEffect>
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
    setStyleSheet(cardStyleSheet(cardColour(record.major)));

    showDetails();
    fillVisualStudioList();
    showVersion();
    addXlBadge();
    connect(ui->pbHDevelop, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
    connect(ui->pbHDevelopXL, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelopXL);
    connect(ui->pbVelloxa, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchVelloxa);
    connectComRows();
    addDropShadows();
    connect(ui->pbMajor, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
}

SingleHalconVersionFrame::~SingleHalconVersionFrame() = default;

const HalconInstallation &SingleHalconVersionFrame::installation() const
{
    return record;
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

void SingleHalconVersionFrame::showDetails()
{
    ui->textBrowser->setText(
        detailsHtml(record, QDir(record.installDir).exists(), QDir(record.exampleRoot).exists()));
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
    auto *badge = new QPushButton(architectureBadgeText(record.arch), this);
    badge->setStyleSheet(architectureBadgeStyleSheet(record.arch));
    badge->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    connect(badge, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelop);
    ui->gridLayoutMajor->addWidget(badge, 2, 2);
}

void SingleHalconVersionFrame::addXlBadge()
{
    const QString executable =
        record.installDir + QStringLiteral("\\bin\\") + record.arch + QStringLiteral("\\hdevelop.exe");
    const QIcon icon = fileIcon(executable);
    ui->pbHDevelop->setIcon(icon);
    ui->pbHDevelopXL->setIcon(icon);

    auto *badge = new QPushButton(QStringLiteral("XL"), this);
    badge->setStyleSheet(xlBadgeStyleSheet());
    badge->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    badge->setToolTip(ui->pbHDevelopXL->toolTip());

    ui->gridLayoutHDevelop->removeWidget(ui->pbHDevelop);
    ui->gridLayoutHDevelop->removeWidget(ui->pbHDevelopXL);
    ui->gridLayoutHDevelop->addWidget(ui->pbHDevelop, 0, 0, 3, 3);
    ui->gridLayoutHDevelop->addWidget(ui->pbHDevelopXL, 3, 0, 3, 3);
    ui->gridLayoutHDevelop->addWidget(badge, 5, 2);
    connect(badge, &QPushButton::clicked, this, &SingleHalconVersionFrame::launchHDevelopXL);
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
    QPushButton *const buttons[] = {ui->pbShell,    ui->pbDevEnv,     ui->pbMajor,   ui->pbPerm,          ui->pbHelp,
                                    ui->pbHDevelop, ui->pbHDevelopXL, ui->pbVelloxa, ui->pbInstallLicense};
    for (QPushButton *button : buttons) {
        auto *shadow = new QGraphicsDropShadowEffect(button);
        shadow->setOffset(4, 4);
        button->setGraphicsEffect(shadow);
    }
}

QIcon SingleHalconVersionFrame::fileIcon(const QString &path) const
{
    constexpr int size = 48;
    return QIcon(iconProvider.icon(QFileInfo(path)).pixmap(size, size));
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
        QMessageBox::warning(this, QStringLiteral("Errors"),
                             tr("There were errors when launching HDevelop %1:\n").arg(record.versionArchText()) +
                                 errors.join(QLatin1Char('\n')));
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
