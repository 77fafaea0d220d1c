#pragma once

#include "card/SingleHalconVersionFrame.h"
#include "license/InstallLicenseDialog.h"
#include "license/InstallLicenseDropFrame.h"
#include "tests/card/BoxLines.h"
#include "tests/license/Drops.h"
#include "tests/license/LicenseFiles.h"
#include "tests/support/DialogUser.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"

#include <QDialogButtonBox>
#include <QPushButton>

/// The HALCON version in "H H" of @p files, which has a license directory only if the test makes one.
inline HalconInstallation licensedInstallation(const LicenseFiles &files)
{
    return installationIn(files.native("H H"));
}

/// What the user does in the dialog before pressing OK.
using LicenseChoice = std::function<void(InstallLicenseDialog &)>;

/// Chooses a file by its path.
inline LicenseChoice choose(const QString &file)
{
    return [file](InstallLicenseDialog &dialog) { dialog.set_path(file); };
}

/// Drops a file, which is then removed unless it @p stays.
inline LicenseChoice dropLicense(const QString &file, bool stays)
{
    return [file, stays](InstallLicenseDialog &dialog) {
        dropFiles(*dialog.findChild<InstallLicenseDropFrame *>("labelDrop"), {QUrl::fromLocalFile(file)});
        if (!stays) {
            QFile::remove(file);
        }
    };
}

inline void pressInDialog(const InstallLicenseDialog &dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>("buttonBox")->button(button), Qt::LeftButton);
}

/// Clicks on the card's licence button, makes the choice in the dialog and presses OK. Returns false when no
/// dialog opened.
inline bool installThroughCard(const SingleHalconVersionFrame &card, const LicenseChoice &choice)
{
    const DialogUser<InstallLicenseDialog> user([&](InstallLicenseDialog &dialog) {
        choice(dialog);
        pressInDialog(dialog, QDialogButtonBox::Ok);
    });
    QTest::mouseClick(card.findChild<QPushButton *>("pbInstallLicense"), Qt::LeftButton);
    return user.wasUsed();
}

/// A card, its user, who gives the same answer to every question, and "license.dat", which is not installed
/// yet.
struct LicensedCard {
    explicit LicensedCard(QMessageBox::StandardButton answer = QMessageBox::Ok) : boxes({answer, answer})
    {
        files.write("license.dat", "new");
    }

    /// The names of the installed files.
    QStringList installed() const { return QDir(files.path("H H/license")).entryList(QDir::Files); }
    QStringList shown() const { return boxLines(boxes.shown(), card); }

    LicenseFiles files;
    SingleHalconVersionFrame card{licensedInstallation(files)};
    const MessageBoxes boxes;
    const LogLines log;
};

/// What boxLines() says of the question whether to overwrite @p target.
inline QStringList overwriteLines(const QString &target)
{
    return questionLines("warning", "Overwrite?",
                         "The file\n  \"" + target + "\"\nalready exists. Do you want to overwrite it?");
}

/// What boxLines() says when the licence is installed.
inline QStringList installedLines(const QString &target)
{
    return informationLines("Install license",
                            "Installation of license file as\n  \"" + target + "\"\nsuccessfully completed!");
}
