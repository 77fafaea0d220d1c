// A window at the top left of the screen from which files can be dragged, as from Explorer: a file that the
// target reports as moved is deleted.
//
//   drag-source [--move-only] FILE...

#include <QApplication>
#include <QDrag>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class DragSource : public QLabel {
public:
    DragSource(const QList<QUrl> &files, Qt::DropActions offered)
        : QLabel(QStringLiteral("Drag me")), files(files), offered(offered)
    {
    }

protected:
    void mouseMoveEvent(QMouseEvent * /*event*/) override
    {
        auto *data = new QMimeData;
        data->setUrls(files);
        QDrag drag(this);
        drag.setMimeData(data);
        // Explorer proposes a move on the same drive.
        if (drag.exec(offered, Qt::MoveAction) == Qt::MoveAction) {
            for (const QUrl &file : files) {
                QFile::remove(file.toLocalFile());
            }
        }
    }

private:
    QList<QUrl> files;
    Qt::DropActions offered;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().mid(1);
    const bool moveOnly = arguments.removeAll(QStringLiteral("--move-only")) > 0;
    QList<QUrl> files;
    for (const QString &file : arguments) {
        files.append(QUrl::fromLocalFile(file));
    }
    DragSource source(files, moveOnly ? Qt::MoveAction : Qt::CopyAction | Qt::MoveAction);
    source.setWindowTitle(QStringLiteral("Drag source"));
    source.setGeometry(0, 30, 200, 100);
    source.show();
    return QApplication::exec();
}
