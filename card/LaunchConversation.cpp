#include "card/LaunchConversation.h"

#include "card/CardContext.h"
#include "card/CardErrors.h"
#include "card/VelloxaAdvertisementDialog.h"
#include "card/VisualStudioChoice.h"
#include "launch/CommandShell.h"
#include "launch/HDevelopLaunch.h"
#include "launch/IdeLaunch.h"
#include "launch/VelloxaLaunch.h"

void launchHDevelopOrWarn(const HalconInstallation &installation, bool xl, QWidget *card)
{
    QStringList errors;
    if (!startHDevelop(installation, xl, &errors)) {
        warnOfErrors(CardContext::tr("There were errors when launching HDevelop %1:\n"), installation, errors,
                     card);
    }
}

void launchShellOrWarn(const HalconInstallation &installation, const VisualStudioChoice &visualStudios,
                       int row, QWidget *card)
{
    const VisualStudioVersion *version = visualStudios.chosen(
        row, CardContext::tr("Could not launch shell: No valid Visual Studio version selected."), card);
    if (version == nullptr) {
        return;
    }
    if (version->vcvarsBat.isEmpty()) {
        launchIdeOrWarn(installation, visualStudios, row, card);
        return;
    }
    QStringList errors;
    if (!startShell(installation, *version, &errors)) {
        warnOfErrors(CardContext::tr("There were errors in launching a CMD shell for HALCON %1:\n"),
                     installation, errors, card);
    }
}

void launchIdeOrWarn(const HalconInstallation &installation, const VisualStudioChoice &visualStudios, int row,
                     QWidget *card)
{
    const VisualStudioVersion *version = visualStudios.chosen(
        row, CardContext::tr("Could not launch Visual Studio IDE: No valid Visual Studio version selected."),
        card);
    if (version == nullptr) {
        return;
    }
    QStringList errors;
    if (!startDevEnv(installation, *version, &errors)) {
        warnOfErrors(CardContext::tr("There were errors in launching Visual Studio IDE for HALCON %1:\n"),
                     installation, errors, card);
    }
}

void launchVelloxaOrAdvertise(const HalconInstallation &installation)
{
    QStringList errors;
    if (!startVelloxa(installation, &errors)) {
        auto *advertisement = new VelloxaAdvertisementDialog;
        advertisement->setAttribute(Qt::WA_DeleteOnClose);
        advertisement->show();
    }
}
