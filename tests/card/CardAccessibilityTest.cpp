#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardShape.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/Installations.h"

#include <QtTest>

/// What screen readers announce for a card.
class CardAccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void cardIsAGroup()
    {
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        QAccessibleInterface *group = QAccessible::queryAccessibleInterface(&card);
        QCOMPARE(group->role(), QAccessible::Grouping);
        QCOMPARE(group->text(QAccessible::Name), QString("HALCON 20.11.1 Progress (x64-win64)"));
    }

    void controls()
    {
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        CardShape::addVisualStudio(card);
        card.show();
        QStringList names = accessibleControls(card);
        names.sort();
        const QStringList expected{
            "Administrative rights to register halconx[xl].dll",
            "Administrative rights to register hdevenginex[xl].dll",
            "Command shell",
            "Details",
            "HDevelop",
            "HDevelop 20.11.1 Progress (x64-win64)",
            "HDevelop XL",
            "HDevelop XL",
            "HDevelop x64",
            "Help",
            "Install license",
            "Make permanent",
            "Register halconx[xl].dll",
            "Register hdevenginex[xl].dll",
            "Velloxa",
            "Visual Studio IDE",
            "Visual Studio versions",
        };
        QCOMPARE(names.join('|'), expected.join('|'));
        for (const char *row : {"RegCom", "RegComEngine"}) {
            QCOMPARE(card.findChild<QLabel *>(QString("l") + row)->buddy(),
                     card.findChild<QCheckBox *>(QString("cb") + row));
        }
    }

    void descriptionIsTheTooltip()
    {
        SingleHalconVersionFrame card(progressInstallation("x64-win64"));
        auto *button = card.findChild<QPushButton *>("pbHelp");
        QCOMPARE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Description),
                 QString("Show manuals and references for this HALCON version"));
    }
};

QTEST_MAIN(CardAccessibilityTest)
#include "CardAccessibilityTest.moc"
