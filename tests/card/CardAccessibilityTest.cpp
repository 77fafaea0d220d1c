#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardShape.h"
#include "tests/support/AccessibleControls.h"
#include "tests/support/Rows.h"

#include <QtTest>

namespace {

HalconInstallation installation()
{
    HalconInstallation result(20, 5, 1, 0);
    result.setSuffix("Progress");
    result.arch = "x64-win64";
    return result;
}

} // namespace

/// What screen readers announce for a card.
class CardAccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void cardIsAGroup()
    {
        SingleHalconVersionFrame card(installation());
        QAccessibleInterface *group = QAccessible::queryAccessibleInterface(&card);
        QCOMPARE(group->role(), QAccessible::Grouping);
        QCOMPARE(group->text(QAccessible::Name), QString("HALCON 20.5.1 Progress (x64-win64)"));
    }

    void controls()
    {
        SingleHalconVersionFrame card(installation());
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
            "HDevelop 20.5.1 Progress (x64-win64)",
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
    }

    void boxIsLabelled_data()
    {
        columns<QString, QString>("label", "box");

        row("HALCON/COM", "lRegCom", "cbRegCom");
        row("HDevEngine/COM", "lRegComEngine", "cbRegComEngine");
    }

    void boxIsLabelled()
    {
        QFETCH(QString, label);
        QFETCH(QString, box);
        const SingleHalconVersionFrame card(installation());
        QCOMPARE(card.findChild<QLabel *>(label)->buddy(), card.findChild<QCheckBox *>(box));
    }

    void descriptionIsTheTooltip()
    {
        SingleHalconVersionFrame card(installation());
        auto *button = card.findChild<QPushButton *>("pbHelp");
        QCOMPARE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Description),
                 QString("Show manuals and references for this HALCON version"));
    }
};

QTEST_MAIN(CardAccessibilityTest)

#include "CardAccessibilityTest.moc"
