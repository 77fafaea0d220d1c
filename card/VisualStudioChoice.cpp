#include "card/VisualStudioChoice.h"

#include "card/CardContext.h"
#include "card/VisualStudioRows.h"

#include <QMessageBox>

VisualStudioChoice::VisualStudioChoice(const QList<VisualStudioVersion> &found, const QString &arch)
    : versions(versionsForArchitecture(found, arch))
{
}

QStringList VisualStudioChoice::rows() const
{
    return visualStudioRows(versions);
}

const VisualStudioVersion *VisualStudioChoice::at(int row) const
{
    return row >= 0 && row < versions.size() ? &versions.at(row) : nullptr;
}

const VisualStudioVersion *VisualStudioChoice::chosen(int row, const QString &nothingChosen,
                                                      QWidget *card) const
{
    if (versions.isEmpty()) {
        QMessageBox::warning(
            card, QStringLiteral("No Visual Studio detected"),
            CardContext::tr(
                "The shell cannot be launched, as we could not detect any Visual Studio on your computer. "
                "Please make sure that you have installed Microsoft Visual Studio "
                "and that the component \"Visual C++ toolset\" has been selected during installation. "
                "To review potential errors in detecting your Visual Studio version, "
                "close this dialog and press F12 to see debug output of this program."));
        return nullptr;
    }
    const VisualStudioVersion *version = at(row);
    if (version == nullptr) {
        QMessageBox::warning(card, QStringLiteral("Error"), nothingChosen);
    }
    return version;
}
