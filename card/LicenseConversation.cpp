#include "card/LicenseConversation.h"

#include "card/CardContext.h"
#include "license/InstallLicenseDialog.h"
#include "license/LicenseCopy.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

namespace {

/// Asks before it overwrites @p target, and says what became of it.
void copyAndTell(const QString &source, const QString &droppedContents, const QString &target, QWidget *card)
{
    const QString shownTarget = QDir::toNativeSeparators(target);
    if (QFileInfo::exists(target) &&
        QMessageBox::warning(
            card, CardContext::tr("Overwrite?"),
            CardContext::tr("The file\n  \"%1\"\nalready exists. Do you want to overwrite it?")
                .arg(shownTarget),
            QMessageBox::Ok | QMessageBox::Cancel) != QMessageBox::Ok) {
        return;
    }
    QStringList errors;
    if (!copyLicenseFile(source, droppedContents, target, &errors)) {
        // The misspelling "occured" is deliberate.
        QMessageBox::warning(card, CardContext::tr("Error"),
                             CardContext::tr("Errors occured during license file copy:\n  %1")
                                 .arg(errors.join(QStringLiteral("\n  "))));
    } else if (QFileInfo::exists(target)) {
        QMessageBox::information(
            card, CardContext::tr("Install license"),
            CardContext::tr("Installation of license file as\n  \"%1\"\nsuccessfully completed!")
                .arg(shownTarget));
    } else {
        QMessageBox::warning(card, CardContext::tr("Error"),
                             CardContext::tr("It seems as if the target license file %1 could not be created")
                                 .arg(shownTarget));
    }
}

} // namespace

void installLicenseFile(const HalconInstallation &installation, QWidget *card)
{
    const QDir directory(installation.installDir + QStringLiteral("/license"));
    InstallLicenseDialog dialog(QDir::toNativeSeparators(directory.path()), card);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFile().isEmpty()) {
        const QString fileName = QFileInfo(dialog.selectedFile()).fileName();
        copyAndTell(dialog.selectedFile(), dialog.droppedContents(), directory.filePath(fileName), card);
    }
}
