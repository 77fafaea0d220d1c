#include "app/MainWindow.h"

#include "app/DebugDialog.h"
#include "app/ErrorDialog.h"
#include "app/KeyboardFocusFrame.h"
#include "app/MainWindowTexts.h"
#include "app/MessageDialog.h"
#include "base/DebugLogger.h"
#include "base/MakerAddresses.h"
#include "card/CardColumn.h"
#include "card/SingleHalconVersionFrame.h"
#include "discovery/RegistryDiscovery.h"
#include "recent/RecentProgramsFrame.h"
#include "ui_MainWindow.h"
#include "update/HalconReleases.h"
#include "update/OwnRelease.h"

#include <QKeyEvent>
#include <QUrl>

#include <cstdlib>

namespace {

/// Logs all lines in one message, because an open debug dialog is updated for every message.
void logLines(const QStringList &lines)
{
    if (!lines.isEmpty()) {
        DebugLogger::instance().log(lines.join(QLatin1Char('\n')));
    }
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent),
      halconUpdates(QStringLiteral("updateCheckHalcon"), QUrl(MakerAddresses::halconReleaseList()), this),
      ownUpdates(QStringLiteral("updateCheckCorvanta"), QUrl(MakerAddresses::ownRelease()), this),
      ui(std::make_unique<Ui::MainWindow>())
{
    ui->setupUi(this);
    setWindowState(Qt::WindowMaximized);
    setWindowTitle(QStringLiteral("%1 - %2 %3")
                       .arg(QApplication::organizationName())
                       .arg(QApplication::applicationName())
                       .arg(QApplication::applicationVersion()));
    fillFooter();
    ui->mainToolBar->hide();

    installations = getAllHalconVersions();
    if (installations.isEmpty()) {
        ErrorDialog(noInstallationHtml()).exec();
        std::exit(1);
    }
    addCards();
    restoreUpdateOptions();
}

MainWindow::~MainWindow() = default;

void MainWindow::handleUpdateChangeOptionHalcon(int new_state)
{
    halconUpdates.set(new_state == Qt::Checked);
}

void MainWindow::handleUpdateChangeOptionCorvanta(int new_state)
{
    ownUpdates.set(new_state == Qt::Checked);
}

void MainWindow::compareVersionsHalcon()
{
    QStringList log;
    const HalconReleases releases = parseHalconReleases(halconUpdates.downloadedData(), &log);
    logLines(log);
    const auto cards = findChildren<SingleHalconVersionFrame *>();
    for (SingleHalconVersionFrame *card : cards) {
        if (const auto latest = publishedRelease(releases, card->installation())) {
            card->showUpdate(*latest);
        }
    }
}

void MainWindow::compareVersionCorvanta()
{
    const QString ownVersion = QApplication::applicationVersion();
    QStringList log;
    const auto release = newerOwnRelease(ownUpdates.downloadedData(), ownVersion, &log);
    logLines(log);
    if (!release) {
        return;
    }
    MessageDialog dialog(ownReleaseHtml(*release, ownVersion));
    dialog.setWindowTitle(tr("Update available for %1").arg(QApplication::applicationName()));
    dialog.exec();
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F12) {
        showDebugDialog();
    } else if (event->key() == Qt::Key_F4) {
        showRecentPrograms();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void MainWindow::fillFooter()
{
    ui->textBrowser->setHtml(footerTemplate());
    ui->textBrowser->setHtml(filledFooter(ui->textBrowser->toHtml()));
}

void MainWindow::addCards()
{
    auto *cards = new CardColumn(installations);
    ui->saHalconVersions->setWidget(cards);

    setTabOrder(cards->lastTabStop(), ui->cbUpdateCheckHalcon);
    setTabOrder(ui->cbUpdateCheckHalcon, ui->cbUpdateCheckCorvanta);
    setTabOrder(ui->cbUpdateCheckCorvanta, ui->textBrowser);
    new KeyboardFocusFrame(this);
    // Otherwise the first card's first button would have the focus, invisibly, and Space would start
    // HDevelop.
    ui->saHalconVersions->setFocus(Qt::OtherFocusReason);
}

void MainWindow::restoreUpdateOptions()
{
    connect(&halconUpdates, &UpdateOption::downloaded, this, &MainWindow::compareVersionsHalcon);
    connect(&ownUpdates, &UpdateOption::downloaded, this, &MainWindow::compareVersionCorvanta);
    // Connected only after the state is restored, so that restoring it does not store it again.
    ui->cbUpdateCheckHalcon->setChecked(halconUpdates.isOn());
    connect(ui->cbUpdateCheckHalcon, &QCheckBox::stateChanged, this,
            &MainWindow::handleUpdateChangeOptionHalcon);
    if (ui->cbUpdateCheckHalcon->isChecked()) {
        halconUpdates.download();
    }
    ui->cbUpdateCheckCorvanta->setChecked(ownUpdates.isOn());
    connect(ui->cbUpdateCheckCorvanta, &QCheckBox::stateChanged, this,
            &MainWindow::handleUpdateChangeOptionCorvanta);
    if (ui->cbUpdateCheckCorvanta->isChecked()) {
        ownUpdates.download();
    }
}

void MainWindow::showDebugDialog()
{
    if (debugDialog == nullptr) {
        debugDialog = new DebugDialog(this);
    }
    debugDialog->show();
}

void MainWindow::showRecentPrograms()
{
    if (recentPrograms == nullptr) {
        recentPrograms = new RecentProgramsFrame(this);
    }
    // Centred each time, because the window may have been resized.
    recentPrograms->move(rect().center() - recentPrograms->rect().center());
    recentPrograms->show();
    // It may have been visible already, with the focus elsewhere.
    recentPrograms->setFocus(Qt::OtherFocusReason);
}
