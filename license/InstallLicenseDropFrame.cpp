#include "license/InstallLicenseDropFrame.h"

#include "base/DebugLogger.h"
#include "companions/common/LicenseSize.h"

#include <QBuffer>
#include <QDebug>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QTextStream>
#include <QUrl>

#include <algorithm>

InstallLicenseDropFrame::InstallLicenseDropFrame(QWidget *parent) : QLabel(parent)
{
    setAcceptDrops(true);
}

void InstallLicenseDropFrame::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void InstallLicenseDropFrame::dropEvent(QDropEvent *event)
{
    event->ignore();
    qDebug() << "formats:" << event->mimeData()->formats();
    const QList<QUrl> urls = event->mimeData()->urls();
    // A source that offers only a move deletes the file when the drop is accepted.
    if (urls.isEmpty() || !event->possibleActions().testFlag(Qt::CopyAction)) {
        return;
    }
    const QString path = urls.first().toLocalFile();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    // Its size may be unknown, or grow.
    QByteArray bytes = file.read(largestLicense + 1);
    if (file.size() > largestLicense || bytes.size() > largestLicense) {
        DebugLogger::instance().log(
            QStringLiteral("dropped file %1 is not read: it has %2 bytes, and a license file at most %3")
                .arg(QDir::toNativeSeparators(path),
                     QString::number(std::max<qint64>(file.size(), bytes.size())),
                     QString::number(largestLicense)));
        return;
    }
    file.close();
    // The stream removes carriage returns after decoding: in UTF-16 they are not single bytes.
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    const QString contents = QTextStream(&buffer).readAll();
    // The source may have proposed a move.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit file_dropped(path, contents);
}
