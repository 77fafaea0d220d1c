#include "app/DebugDialog.h"

#include "app/DebugLogger.h"
#include "ui_DebugDialog.h"

#include <QClipboard>
#include <QMessageBox>

DebugDialog::DebugDialog(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::DebugDialog>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    connect(&DebugLogger::instance(), &DebugLogger::updated, this, &DebugDialog::updateLog);
    connect(ui->pbClose, &QPushButton::clicked, this, &DebugDialog::close);
    connect(ui->pbClipboard, &QPushButton::clicked, this, &DebugDialog::copyToClipboard);

    updateLog();
}

DebugDialog::~DebugDialog() = default;

void DebugDialog::updateLog()
{
    ui->textBrowser->setPlainText(DebugLogger::instance().text());
}

void DebugDialog::copyToClipboard()
{
    QApplication::clipboard()->setText(DebugLogger::instance().text());
    QMessageBox::information(this, QApplication::applicationName(), tr("Copied to clipboard"));
}
