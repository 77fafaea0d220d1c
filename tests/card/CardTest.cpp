#include "card/CardStyleSheets.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardButtons.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QCheckBox>
#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QListWidget>
#include <QTextBrowser>
#include <QtTest>

class CardTest : public QObject {
    Q_OBJECT

private slots:
    void keepsItsInstallation()
    {
        HalconInstallation original = installationIn("C:\\H");
        const SingleHalconVersionFrame card(original);
        original.installDir = "changed";
        QCOMPARE(card.installation().installDir, QString("C:\\H"));
        QCOMPARE(card.installation().versionArchText(), QString("20.11.1.3 (x64-win64)"));
    }

    void styleSheets()
    {
        HalconInstallation installation(13, 0, 0, 0);
        installation.arch = "x86sse2-win32";
        const SingleHalconVersionFrame card(installation);
        QCOMPARE(card.styleSheet(), cardStyleSheet("#c6bdff"));
        QCOMPARE(button(card, "x86sse2")->styleSheet(), architectureBadgeStyleSheet("x86sse2-win32"));
        QCOMPARE(button(card, "XL")->styleSheet(), xlBadgeStyleSheet());
    }

    void icons_data()
    {
        columns<QString>("picture");

        row("pbHelp", ":/help.png");
        row("pbPerm", ":/permanent.png");
        row("pbUac", ":/uac.png");
        row("pbUaCEngine", ":/uac.png");
        row("pbVelloxa", ":/velloxa.png");
        row("pbInstallLicense", ":/install_license.png");
        row("pbHDevelop", "");
        row("pbHDevelopXL", "");
    }

    /// Without a picture it is the system's icon for any program: HDevelop is missing.
    void icons()
    {
        QFETCH(QString, picture);
        const SingleHalconVersionFrame card(installationIn("C:\\no such directory"));
        const QPushButton *shown = button(card, QTest::currentDataTag());
        QVERIFY(picture.isEmpty() || !shownIcon(*shown).isNull());
        QCOMPARE(shownIcon(*shown), picture.isEmpty()
                                        ? fileIcon("C:\\no such directory\\hdevelop.exe", shown->iconSize())
                                        : resource(picture, shown->iconSize()));
    }

    /// The badges are made after the style: they have no class and no shadow.
    void marksAndShadows()
    {
        const SingleHalconVersionFrame card(installationIn(QString()));
        const QGraphicsDropShadowEffect fresh;
        QStringList lines;
        for (const QWidget *widget : card.findChildren<QWidget *>()) {
            const QVariant mark = widget->property("class");
            const auto *shadow = qobject_cast<QGraphicsDropShadowEffect *>(widget->graphicsEffect());
            if (mark.isValid() || widget->graphicsEffect() != nullptr) {
                lines.append(widget->objectName() + ' ' + mark.toString() +
                             (shadow == nullptr ? "" : " shadow"));
            }
            if (shadow != nullptr) {
                QCOMPARE(shadow->offset(), QPointF(4, 4));
                QCOMPARE(shadow->blurRadius(), fresh.blurRadius());
                QCOMPARE(shadow->color(), fresh.color());
            }
        }
        lines.sort();
        QCOMPARE(
            lines.join('|'),
            QString("pbDevEnv myPushButton shadow|pbHDevelop myPushButton shadow|pbHDevelopXL myPushButton "
                    "shadow|pbHelp myPushButton shadow|pbInstallLicense myPushButton shadow|pbMajor "
                    "myPushButton shadow|pbPerm myPushButton shadow|pbShell myPushButton shadow|pbUaCEngine "
                    "myPushButton|pbUac myPushButton|pbVelloxa myPushButton shadow"));
    }

    void bigNumberFont()
    {
        SingleHalconVersionFrame card(installationIn(QString()));
        const QPushButton *number = button(card, "pbMajor");
        QCOMPARE(number->font().family(), QString("Consolas"));
        QCOMPARE(number->font().pointSize(), 60);
        // The style sheet applies when the card is shown.
        number->ensurePolished();
        QCOMPARE(number->font().pointSize(), 64);
        QVERIFY(number->font().bold());
    }

    void comBox_data()
    {
        columns<QString, QString, int>("box", "otherBox", "button");

        row("pbUac", "cbRegCom", "cbRegComEngine", int(Qt::LeftButton));
        row("pbUaCEngine", "cbRegComEngine", "cbRegCom", int(Qt::LeftButton));
        row("lRegCom", "cbRegCom", "cbRegComEngine", int(Qt::LeftButton));
        row("lRegComEngine", "cbRegComEngine", "cbRegCom", int(Qt::LeftButton));
        row("lRegCom, right", "cbRegCom", "cbRegComEngine", int(Qt::RightButton));
        row("lRegComEngine, middle", "cbRegComEngine", "cbRegCom", int(Qt::MiddleButton));
    }

    /// Both boxes are ticked at first; a click on the shield, or a press on the label, toggles its own.
    void comBox()
    {
        QFETCH(QString, box);
        QFETCH(QString, otherBox);
        QFETCH(int, button);
        const SingleHalconVersionFrame card(installationIn(QString()));
        auto *clicked = card.findChild<QWidget *>(QString(QTest::currentDataTag()).section(',', 0, 0));
        for (const bool ticked : {false, true}) {
            QTest::mouseClick(clicked, static_cast<Qt::MouseButton>(button));
            QCOMPARE(card.findChild<QCheckBox *>(box)->isChecked(), ticked);
            QVERIFY(card.findChild<QCheckBox *>(otherBox)->isChecked());
        }
    }

    void labelFiltersPresses()
    {
        SingleHalconVersionFrame card(installationIn(QString()));
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
        QEvent other(QEvent::Enter);
        for (const char *label : {"lRegCom", "lRegComEngine"}) {
            auto *pressed = card.findChild<QLabel *>(label);
            QVERIFY(card.eventFilter(pressed, &press));
            QVERIFY(!card.eventFilter(pressed, &other));
            // The press alone toggles.
            QVERIFY(!qobject_cast<QCheckBox *>(pressed->buddy())->isChecked());
        }
        QVERIFY(!card.eventFilter(&card, &press));
    }

    void details()
    {
        const SingleHalconVersionFrame card(installationIn(QString()));
        const auto *browser = card.findChild<QTextBrowser *>("textBrowser");
        QCOMPARE(browser->toPlainText().split('\n').mid(0, 2),
                 (QStringList{"Details:", "Version: 20.11.1.3"}));
    }

    void withoutVisualStudio()
    {
        SingleHalconVersionFrame card(installationIn(QString()));
        card.show();
        QCOMPARE(card.findChild<QListWidget *>("lwVsVersion")->count(), 0);
        const QPushButton *shell = button(card, "pbShell");
        QCOMPARE(shownIcon(*shell), resource(":/shell_no_devenv.png", shell->iconSize()));
        QVERIFY(shell->isVisible());
        QVERIFY(!button(card, "pbDevEnv")->isVisible());
    }
};

QTEST_MAIN(CardTest)
#include "CardTest.moc"
