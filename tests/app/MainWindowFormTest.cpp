#include "ui_MainWindow.h"

#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QtTest>

/// The form of the main window, which itself needs an installed HALCON.
class MainWindowFormTest : public QObject {
    Q_OBJECT

private slots:
    void form()
    {
        QMainWindow window;
        Ui::MainWindow form;
        form.setupUi(&window);
        const QWidget &centre = *window.centralWidget();
        COMPARE_SNAPSHOT(describeWidgets(centre) + describeLayouts(*centre.layout()) +
                             describeControls(centre),
                         "MainWindow.tree");
        QCOMPARE(window.objectName(), QString("MainWindow"));
        QCOMPARE(window.size(), QSize(834, 621));
        QVERIFY(form.menuBar->actions().isEmpty());
        QCOMPARE(form.statusBar->objectName(), QString("statusBar"));
        QCOMPARE(window.toolBarArea(form.mainToolBar), Qt::TopToolBarArea);
    }
};

QTEST_MAIN(MainWindowFormTest)
#include "MainWindowFormTest.moc"
