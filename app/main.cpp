#include "app/MainWindow.h"
#include "base/ApplicationIdentity.h"

#include <QApplication>
#include <QIcon>
#include <QNetworkProxyFactory>

#include <cstdlib>

int main(int argc, char *argv[])
{
    // All of this has to be set before there is an application object. Qt would round a scale of 125 % to 100 and of
    // 150 % to 200; the second attribute makes icons as sharp as the screen.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    int exitCode = 0;
    QApplication application(argc, argv);
    // Here everything of ours is gone. Qt would go on waiting for the name of a server that is still being looked up,
    // for seconds.
    QObject::connect(&application, &QObject::destroyed, [&exitCode] { std::_Exit(exitCode); });
    setApplicationIdentity();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/corvanta.png")));

    // Whether Qt does so of its own accord depends on how it was built.
    QNetworkProxyFactory::setUseSystemConfiguration(true);

    MainWindow window;
    window.show();
    exitCode = QApplication::exec();
    return exitCode;
}
