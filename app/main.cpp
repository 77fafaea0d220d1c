#include "app/MainWindow.h"
#include "base/ApplicationIdentity.h"

#include <QApplication>
#include <QIcon>
#include <QNetworkProxyFactory>

#include <cstdlib>

int main(int argc, char *argv[])
{
    // These must be set before the application object exists. By default Qt would round a scale of 125 % to
    // 100 and of 150 % to 200, and would scale icons up instead of rendering them at the screen's resolution.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    int exitCode = 0;
    QApplication application(argc, argv);
    // When this runs, all our own objects are destroyed. Without it Qt would wait, for seconds, for a host
    // name lookup that is still running.
    QObject::connect(&application, &QObject::destroyed, [&exitCode] { std::_Exit(exitCode); });
    setApplicationIdentity();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/corvanta.png")));

    // Qt's default depends on how it was built.
    QNetworkProxyFactory::setUseSystemConfiguration(true);

    MainWindow window;
    window.show();
    exitCode = QApplication::exec();
    return exitCode;
}
