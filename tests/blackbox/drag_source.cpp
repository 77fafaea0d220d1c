// A window at the top left of the screen from which files can be dragged, as from an Explorer:
//
//   drag-source FILE...

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class DragSource : public QLabel {
public:
    explicit DragSource(const QList<QUrl> &files) : QLabel(QStringLiteral("Drag me")), files(files) {}

protected:
    void mouseMoveEvent(QMouseEvent * /*event*/) override
    {
        auto *data = new QMimeData;
        data->setUrls(files);
        QDrag drag(this);
        drag.setMimeData(data);
        // An Explorer proposes to move on the same drive.
        drag.exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    }

private:
    QList<QUrl> files;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QList<QUrl> files;
    for (const QString &file : QApplication::arguments().mid(1)) {
        files.append(QUrl::fromLocalFile(file));
    }
    DragSource source(files);
    source.setWindowTitle(QStringLiteral("Drag source"));
    source.setGeometry(0, 30, 200, 100);
    source.show();
    return QApplication::exec();
}
