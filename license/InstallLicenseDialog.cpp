#include "license/InstallLicenseDialog.h"

#include "ui_InstallLicenseDialog.h"

#include <QDebug>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace {

const QString lastDirectoryKey = QStringLiteral("lastdir_license");

} // namespace

InstallLicenseDialog::InstallLicenseDialog(const QString &targetDirectory, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::InstallLicenseDialog>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    QString text = ui->textEdit->toHtml();
    text.replace(QLatin1String("%1"), QDir::toNativeSeparators(targetDirectory).toHtmlEscaped());
    ui->textEdit->setHtml(text);

    connect(ui->labelDrop, &InstallLicenseDropFrame::file_dropped, this,
            &InstallLicenseDialog::set_path_and_content);
    connect(ui->pbSelectFile, &QPushButton::clicked, this, &InstallLicenseDialog::select_path);
}

InstallLicenseDialog::~InstallLicenseDialog() = default;

QString InstallLicenseDialog::selectedFile() const
{
    return selected;
}

QString InstallLicenseDialog::droppedContents() const
{
    return dropped;
}

void InstallLicenseDialog::set_path(const QString &file)
{
    showFile(file, QString());
    QSettings().setValue(lastDirectoryKey, QDir::toNativeSeparators(QFileInfo(file).absolutePath()));
}

void InstallLicenseDialog::select_path()
{
    const QSettings settings;
    qDebug() << settings.organizationName() << settings.applicationName();
    const QString file = QFileDialog::getOpenFileName(this, tr("Open license file"),
                                                      settings.value(lastDirectoryKey).toString(),
                                                      tr("License files (*.dat)"));
    if (!file.isEmpty()) {
        set_path(file);
    }
}

void InstallLicenseDialog::set_path_and_content(const QString &file, const QString &content)
{
    showFile(file, content);
}

void InstallLicenseDialog::showFile(const QString &file, const QString &content)
{
    selected = QDir::toNativeSeparators(file);
    dropped = content;
    ui->labelSelectedFile->setText(selected);
}
