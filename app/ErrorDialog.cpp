#include "app/ErrorDialog.h"

#include "app/HtmlDialog.h"
#include "ui_ErrorDialog.h"

ErrorDialog::ErrorDialog(const QString &html, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::ErrorDialog>())
{
    ui->setupUi(this);
    setUpHtmlDialog(*this, *ui->textBrowser, QStringLiteral("ErrorDialog: "), html);
    ui->pushButton->hide();
}

ErrorDialog::~ErrorDialog() = default;
