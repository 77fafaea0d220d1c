#include "card/VelloxaAdvertisementDialog.h"

#include "base/HtmlLink.h"
#include "base/MakerAddresses.h"
#include "ui_VelloxaAdvertisementDialog.h"

VelloxaAdvertisementDialog::VelloxaAdvertisementDialog(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::VelloxaAdvertisementDialog>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    const QStringList lines{
        QStringLiteral("<img src=\":/velloxa-256.png\">") +
            tr("It seems that Velloxa is not available on this machine."),
        QString(),
        tr("Velloxa is the perfect combination for MVTec HALCON to "
           "deploy your algorithms fast and easy to customer machines."),
        tr("No more C++ or C# development needed."),
        tr("In addition, the Professional Edition runs your scripts on multiple "
           "images during development, leading to an unprecedented speed in evaluating your algorithm."),
        QString(),
        tr("Quorvik Solutions Velloxa Demo can be downloaded for free at"),
        htmlLink(MakerAddresses::velloxaDownloads(), MakerAddresses::velloxaDownloads()),
        QString(),
        tr("Please restart this program after the installation of Velloxa has finished."),
    };
    ui->textBrowser->setHtml(QStringLiteral("<p style=\"font-size:9pt;\">") +
                             lines.join(QStringLiteral("<br>")) + QStringLiteral("</p>"));
}

VelloxaAdvertisementDialog::~VelloxaAdvertisementDialog() = default;
