#include "app/MainWindow.h"

#include "app/DebugDialog.h"
#include "app/ErrorDialog.h"
#include "app/MainWindowTexts.h"
#include "card/SingleHalconVersionFrame.h"
#include "discovery/RegistryDiscovery.h"
#include "ui_MainWindow.h"

#include <QKeyEvent>
#include <QSettings>

#include <cstdlib>

namespace {

const char *const updateCheckHalconKey = "updateCheckHalcon";
const char *const updateCheckCorvantaKey = "updateCheckCorvanta";

bool storedOption(const char *key)
{
    return QSettings().value(QLatin1String(key), false).toBool();
}

void storeOption(const char *key, int state)
{
    QSettings().setValue(QLatin1String(key), state == Qt::Checked);
}

} // namespace

MainWindow::MainWindow(QWidget *parent) : QMainWindow(parent), ui(std::make_unique<Ui::MainWindow>())
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
    storeOption(updateCheckHalconKey, new_state);
}

void MainWindow::handleUpdateChangeOptionCorvanta(int new_state)
{
    storeOption(updateCheckCorvantaKey, new_state);
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F12) {
        showDebugDialog();
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
    auto *cards = new QWidget;
    auto *layout = new QVBoxLayout(cards);
    layout->setMargin(0);
    for (const HalconInstallation &installation : qAsConst(installations)) {
        layout->addWidget(new SingleHalconVersionFrame(installation, this));
    }
    ui->saHalconVersions->setWidget(cards);
}

void MainWindow::restoreUpdateOptions()
{
    // Connected only after the boxes have their state, so that restoring it does not write it back.
    ui->cbUpdateCheckHalcon->setChecked(storedOption(updateCheckHalconKey));
    connect(ui->cbUpdateCheckHalcon, &QCheckBox::stateChanged, this,
            &MainWindow::handleUpdateChangeOptionHalcon);
    ui->cbUpdateCheckCorvanta->setChecked(storedOption(updateCheckCorvantaKey));
    connect(ui->cbUpdateCheckCorvanta, &QCheckBox::stateChanged, this,
            &MainWindow::handleUpdateChangeOptionCorvanta);
}

void MainWindow::showDebugDialog()
{
    if (debugDialog == nullptr) {
        debugDialog = new DebugDialog(this);
    }
    debugDialog->show();
}
