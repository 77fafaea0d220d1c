#include "card/VisualStudioButtons.h"

#include "card/CardLook.h"
#include "devenv/VisualStudioVersion.h"

#include <QFileInfo>
#include <QPushButton>

void showVisualStudioButtons(const VisualStudioVersion *version, QPushButton &shell, QPushButton &ide)
{
    if (version == nullptr) {
        ide.hide();
        return;
    }
    const QFileInfo program(version->idePath);
    const QIcon icon = program.exists() ? shellIcon(program.absoluteFilePath(), ide.iconSize()) : QIcon();
    ide.setVisible(!icon.isNull());
    ide.setIcon(icon);
    shell.setVisible(!version->architecture.isEmpty());
}
