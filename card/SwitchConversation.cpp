#include "card/SwitchConversation.h"

#include "card/CardContext.h"
#include "card/CardErrors.h"
#include "launch/PermanentSwitch.h"

#include <QMessageBox>

void switchAfterConsent(const HalconInstallation &installation, bool registerHalconCom,
                        bool registerEngineCom, QWidget *card)
{
    // One list for both runs: after a failure the user sees the plan and the outcome.
    QStringList lines;
    permanentSwitch(installation, false, registerHalconCom, registerEngineCom, &lines);

    // Deliberate: the first line gets no hyphen.
    const QString changes = CardContext::tr("If you continue, the following changes will be performed.\n\n%1")
                                .arg(lines.join(QStringLiteral("\n- ")));
    if (QMessageBox::information(card, CardContext::tr("Perform permanent changes?"), changes,
                                 QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok) != QMessageBox::Ok) {
        QMessageBox::information(card, CardContext::tr("Cancelled"),
                                 CardContext::tr("No changes were performed."));
        return;
    }
    if (permanentSwitch(installation, true, registerHalconCom, registerEngineCom, &lines)) {
        QMessageBox::information(
            card, CardContext::tr("Switched"),
            CardContext::tr("Switched to HALCON %1").arg(installation.versionArchText()));
    } else {
        warnOfErrors(CardContext::tr("There were errors when switching to HALCON %1:\n"), installation, lines,
                     card);
    }
}
