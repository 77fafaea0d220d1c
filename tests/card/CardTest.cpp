#include "card/CardStyleSheets.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/card/CardButtons.h"

#include <QCheckBox>
#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>
#include <QtTest>

namespace {

HalconInstallation installation(const QString &arch = "x64-win64")
{
    HalconInstallation result(13, 0, 0, 0);
    result.arch = arch;
    return result;
}

} // namespace

class CardTest : public QObject {
    Q_OBJECT

private slots:
    void keepsItsInstallation();
    void styleSheet();
    void buttonsAreFlat();
    void iconsOfTheForm_data();
    void iconsOfTheForm();
    void missingHDevelopHasTheGenericIcon();
    void buttonClass();
    void shadows();
    void bigNumberFont();
    void badges();
    void comBoxesAreTicked();
    void shieldTogglesComBox_data();
    void shieldTogglesComBox();
    void labelTogglesComBox_data();
    void labelTogglesComBox();
    void details();
    void withoutVisualStudio();
};

void CardTest::keepsItsInstallation()
{
    HalconInstallation original = installation();
    original.installDir = "C:\\H";
    const SingleHalconVersionFrame card(original);
    original.installDir = "changed";
    QCOMPARE(card.installation().installDir, QString("C:\\H"));
    QCOMPARE(card.installation().versionArchText(), QString("13.0.0 (x64-win64)"));
    QCOMPARE(card.windowTitle(), QString("Form"));
}

void CardTest::styleSheet()
{
    const SingleHalconVersionFrame card(installation());
    QCOMPARE(card.styleSheet(), cardStyleSheet("#c6bdff"));
}

void CardTest::buttonsAreFlat()
{
    const SingleHalconVersionFrame card(installation());
    for (const char *name : {"pbHDevelop", "pbHDevelopXL", "pbHelp", "pbShell", "pbDevEnv", "pbPerm",
                             "pbVelloxa", "pbInstallLicense"}) {
        const auto *button = card.findChild<QPushButton *>(name);
        QVERIFY2(button->isFlat(), name);
        QCOMPARE(button->iconSize(), QSize(64, 52));
        QCOMPARE(button->text(), QString());
    }
    for (const char *name : {"pbMajor", "pbUac", "pbUaCEngine"}) {
        QVERIFY2(card.findChild<QPushButton *>(name)->isFlat(), name);
        QVERIFY2(card.findChild<QPushButton *>(name)->isEnabled(), name);
    }
    QVERIFY(card.findChild<QPushButton *>("pbUacEngine") == nullptr);
}

void CardTest::iconsOfTheForm_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("picture");

    QTest::newRow("help") << "pbHelp"
                          << ":/help.png";
    QTest::newRow("permanent") << "pbPerm"
                               << ":/permanent.png";
    QTest::newRow("HALCON/COM shield") << "pbUac"
                                       << ":/uac.png";
    QTest::newRow("HDevEngine/COM shield") << "pbUaCEngine"
                                           << ":/uac.png";
    QTest::newRow("Velloxa") << "pbVelloxa"
                             << ":/velloxa.png";
    QTest::newRow("licence") << "pbInstallLicense"
                             << ":/install_license.png";
}

void CardTest::iconsOfTheForm()
{
    QFETCH(QString, button);
    QFETCH(QString, picture);
    const SingleHalconVersionFrame card(installation());
    const auto *shown = card.findChild<QPushButton *>(button);
    QVERIFY(!shownIcon(*shown).isNull());
    QCOMPARE(shownIcon(*shown), resource(picture, shown->iconSize()));
}

void CardTest::missingHDevelopHasTheGenericIcon()
{
    HalconInstallation missing = installation();
    missing.installDir = "C:\\no such directory";
    const SingleHalconVersionFrame card(missing);
    for (const char *name : {"pbHDevelop", "pbHDevelopXL"}) {
        QCOMPARE(shownIcon(*card.findChild<QPushButton *>(name)),
                 fileIcon("C:\\no such directory\\bin\\hdevelop.exe", QSize(64, 52)));
    }
}

void CardTest::buttonClass()
{
    const SingleHalconVersionFrame card(installation());
    QStringList marked;
    QStringList others;
    for (const QPushButton *button : card.findChildren<QPushButton *>()) {
        if (button->property("class") == "myPushButton") {
            marked.append(button->objectName());
        } else {
            others.append(button->text());
            QVERIFY(!button->property("class").isValid());
        }
    }
    marked.sort();
    others.sort();
    QCOMPARE(marked, (QStringList{"pbDevEnv", "pbHDevelop", "pbHDevelopXL", "pbHelp", "pbInstallLicense",
                                  "pbMajor", "pbPerm", "pbShell", "pbUaCEngine", "pbUac", "pbVelloxa"}));
    QCOMPARE(others, (QStringList{"XL", "x64"}));
}

void CardTest::shadows()
{
    const SingleHalconVersionFrame card(installation());
    const QGraphicsDropShadowEffect fresh;
    QStringList shadowed;
    for (const QWidget *widget : card.findChildren<QWidget *>()) {
        if (widget->graphicsEffect() != nullptr) {
            const auto *shadow = qobject_cast<QGraphicsDropShadowEffect *>(widget->graphicsEffect());
            QVERIFY(shadow != nullptr);
            QCOMPARE(shadow->offset(), QPointF(4, 4));
            QCOMPARE(shadow->blurRadius(), fresh.blurRadius());
            QCOMPARE(shadow->color(), fresh.color());
            shadowed.append(widget->objectName());
        }
    }
    shadowed.sort();
    QCOMPARE(shadowed, (QStringList{"pbDevEnv", "pbHDevelop", "pbHDevelopXL", "pbHelp", "pbInstallLicense",
                                    "pbMajor", "pbPerm", "pbShell", "pbVelloxa"}));
}

void CardTest::bigNumberFont()
{
    SingleHalconVersionFrame card(installation());
    auto *number = card.findChild<QPushButton *>("pbMajor");
    QCOMPARE(number->font().family(), QString("Consolas"));
    QCOMPARE(number->font().pointSize(), 60);
    QCOMPARE(card.minimumHeight(), QFontMetrics(number->font()).height() * 3 / 2);
    // The style sheet applies when the card is shown.
    number->ensurePolished();
    QCOMPARE(number->font().pointSize(), 64);
    QVERIFY(number->font().bold());
}

void CardTest::badges()
{
    const SingleHalconVersionFrame card(installation("x86sse2-win32"));
    QHash<QString, QString> styles;
    for (const QPushButton *button : card.findChildren<QPushButton *>(QString())) {
        if (button->objectName().isEmpty()) {
            styles.insert(button->text(), button->styleSheet());
        }
    }
    QCOMPARE(styles.value("x86sse2"), architectureBadgeStyleSheet("x86sse2-win32"));
    QCOMPARE(styles.value("XL"), xlBadgeStyleSheet());
    QCOMPARE(styles.size(), 2);
}

void CardTest::comBoxesAreTicked()
{
    const SingleHalconVersionFrame card(installation());
    QVERIFY(card.findChild<QCheckBox *>("cbRegCom")->isChecked());
    QVERIFY(card.findChild<QCheckBox *>("cbRegComEngine")->isChecked());
}

void CardTest::shieldTogglesComBox_data()
{
    QTest::addColumn<QString>("shield");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("otherBox");

    QTest::newRow("HALCON/COM") << "pbUac"
                                << "cbRegCom"
                                << "cbRegComEngine";
    QTest::newRow("HDevEngine/COM") << "pbUaCEngine"
                                    << "cbRegComEngine"
                                    << "cbRegCom";
}

void CardTest::shieldTogglesComBox()
{
    QFETCH(QString, shield);
    QFETCH(QString, box);
    QFETCH(QString, otherBox);
    const SingleHalconVersionFrame card(installation());
    QTest::mouseClick(card.findChild<QPushButton *>(shield), Qt::LeftButton);
    QVERIFY(!card.findChild<QCheckBox *>(box)->isChecked());
    QVERIFY(card.findChild<QCheckBox *>(otherBox)->isChecked());
    QTest::mouseClick(card.findChild<QPushButton *>(shield), Qt::LeftButton);
    QVERIFY(card.findChild<QCheckBox *>(box)->isChecked());
}

void CardTest::labelTogglesComBox_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("otherBox");
    QTest::addColumn<int>("button");

    QTest::newRow("HALCON/COM") << "lRegCom"
                                << "cbRegCom"
                                << "cbRegComEngine" << int(Qt::LeftButton);
    QTest::newRow("HALCON/COM, right") << "lRegCom"
                                       << "cbRegCom"
                                       << "cbRegComEngine" << int(Qt::RightButton);
    QTest::newRow("HDevEngine/COM") << "lRegComEngine"
                                    << "cbRegComEngine"
                                    << "cbRegCom" << int(Qt::LeftButton);
    QTest::newRow("HDevEngine/COM, middle") << "lRegComEngine"
                                            << "cbRegComEngine"
                                            << "cbRegCom" << int(Qt::MiddleButton);
}

void CardTest::labelTogglesComBox()
{
    QFETCH(QString, label);
    QFETCH(QString, box);
    QFETCH(QString, otherBox);
    QFETCH(int, button);
    const auto mouseButton = static_cast<Qt::MouseButton>(button);
    const SingleHalconVersionFrame card(installation());
    auto *pressed = card.findChild<QLabel *>(label);

    QTest::mousePress(pressed, mouseButton);
    QVERIFY(!card.findChild<QCheckBox *>(box)->isChecked());
    QTest::mouseRelease(pressed, mouseButton);
    QVERIFY(!card.findChild<QCheckBox *>(box)->isChecked());
    QTest::mousePress(pressed, mouseButton);
    QVERIFY(card.findChild<QCheckBox *>(box)->isChecked());
    QVERIFY(card.findChild<QCheckBox *>(otherBox)->isChecked());

    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), mouseButton, mouseButton, Qt::NoModifier);
    QEvent other(QEvent::Enter);
    QVERIFY(const_cast<SingleHalconVersionFrame &>(card).eventFilter(pressed, &press));
    QVERIFY(!const_cast<SingleHalconVersionFrame &>(card).eventFilter(pressed, &other));
}

void CardTest::details()
{
    const SingleHalconVersionFrame card(installation());
    const auto *browser = card.findChild<QTextBrowser *>("textBrowser");
    QCOMPARE(browser->toPlainText().split('\n').mid(0, 2), (QStringList{"Details:", "Version: 13.0.0"}));
    QCOMPARE(browser->styleSheet(), QString("background-color: rgba(0, 0, 0, 0);"));
}

void CardTest::withoutVisualStudio()
{
    SingleHalconVersionFrame card(installation());
    card.show();
    QCOMPARE(card.findChild<QListWidget *>("lwVsVersion")->count(), 0);
    const auto *shell = card.findChild<QPushButton *>("pbShell");
    QCOMPARE(shownIcon(*shell), resource(":/shell_no_devenv.png", shell->iconSize()));
    QVERIFY(shell->isVisible());
    QVERIFY(!card.findChild<QPushButton *>("pbDevEnv")->isVisible());
}

QTEST_MAIN(CardTest)

#include "CardTest.moc"
