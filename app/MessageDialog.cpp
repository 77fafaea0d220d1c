#include "app/MessageDialog.h"

#include "app/HtmlDialog.h"
#include "ui_MessageDialog.h"

MessageDialog::MessageDialog(const QString &html, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::messagedialog>())
{
    ui->setupUi(this);
    setUpHtmlDialog(*this, *ui->textBrowser, QStringLiteral("MessageDialog: "), html);
}

MessageDialog::~MessageDialog() = default;
