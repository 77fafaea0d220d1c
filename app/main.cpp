#include "app/ApplicationIdentity.h"
#include "app/MainWindow.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    // Both have to be set before there is an application object; the second makes icons as sharp as the screen.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    setApplicationIdentity();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/corvanta.png")));

    MainWindow window;
    window.show();
    return QApplication::exec();
}
