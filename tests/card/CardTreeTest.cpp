#include "card/SingleHalconVersionFrame.h"
#include "tests/support/Installations.h"
#include "tests/support/Snapshot.h"
#include "tests/support/WidgetTree.h"

#include <QFontMetrics>
#include <QLayout>
#include <QPushButton>
#include <QtTest>

/// Compares the whole card, so that nothing in it changes unnoticed.
class CardTreeTest : public QObject {
    Q_OBJECT

private slots:
    void wholeCard()
    {
        QWidget parent;
        SingleHalconVersionFrame card(installationIn(QString()), &parent);
        QCOMPARE(card.windowTitle(), QString("Form"));

        // What depends on the machine's fonts and style gets fixed values.
        const QFontMetrics number(card.findChild<QPushButton *>("pbMajor")->font());
        QCOMPARE(card.minimumHeight(), number.height() * 3 / 2);
        card.setMinimumHeight(1);
        card.layout()->setSpacing(0);
        card.layout()->setContentsMargins(0, 0, 0, 0);
        for (const char *name : {"horizontalLayout", "gridLayoutHDevelop", "horizontalLayoutPerm"}) {
            card.findChild<QLayout *>(name)->setSpacing(0);
        }

        COMPARE_SNAPSHOT(describeWidgets(card) + describeLayouts(*card.layout()) + describeControls(card),
                         "card.tree");
    }
};

QTEST_MAIN(CardTreeTest)
#include "CardTreeTest.moc"
