#include "card/CardErrors.h"

#include <QMessageBox>

void warnOfErrors(const QString &heading, const HalconInstallation &installation, const QStringList &errors,
                  QWidget *card)
{
    QMessageBox::warning(card, QStringLiteral("Errors"),
                         heading.arg(installation.versionArchText()) + errors.join(QLatin1Char('\n')));
}
