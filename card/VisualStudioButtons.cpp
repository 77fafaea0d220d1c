#include "card/VisualStudioButtons.h"

#include "card/CardIcons.h"
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
    const QPixmap picture = program.exists() ? programPicture(program.absoluteFilePath()) : QPixmap();
    const QIcon icon = iconOfItsOwnSize(picture, ide.iconSize());
    ide.setVisible(!icon.isNull());
    ide.setIcon(icon);
    shell.setVisible(!version->architecture.isEmpty());
}
