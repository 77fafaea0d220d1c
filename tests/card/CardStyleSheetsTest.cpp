#include "card/CardStyleSheets.h"
#include "tests/support/Rows.h"

class CardStyleSheetsTest : public QObject {
    Q_OBJECT

private slots:
    void colour()
    {
        const QStringList fromVersion6{"#ffebbd", "#ffebbd", "#ccffbd", "#fefbbe", "#fed6be",
                                       "#ffbdbd", "#f3bffd", "#c6bdff", "#bee1fe", "#ffebbd"};
        for (int i = 0; i < fromVersion6.size(); ++i) {
            QCOMPARE(cardColour(6 + i), fromVersion6.at(i));
        }
        QCOMPARE(cardColour(-1), QString("#ffebbd"));
    }

    void card()
    {
        QCOMPARE(cardStyleSheet("#f3bffd"),
                 QString("SingleHalconVersionFrame {  background-color: #f3bffd;  border: 2px solid  black;}"
                         "QGroupBox {  border: 1px solid gray;}"
                         "QPushButton:focus.myPushButton {  border: none;  outline: none;}"
                         R"(QPushButton#pbMajor {  font: bold 64pt "Consolas"; background-color: #33FF0000; )"
                         "border: none;}"
                         "QPushButton#pbHelp::menu-indicator {    image: none;}"
                         "QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}"
                         "QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}"
                         R"(QTextBrowser#textBrowser {  font: small "Consolas";  border: 1px solid gray;})"));
    }

    void badge_data()
    {
        columns<QString, QString>("styleSheet", "expected");

        const QString properties =
            "background-color: #CC%1; border: 1px solid #FF%1; color: white; font: bold; "
            "margin: 5px; padding: 1px 3px; ";
        row("64-bit", architectureBadgeStyleSheet("x64-win64"), properties.arg("FF0000"));
        row("SSE2", architectureBadgeStyleSheet("x86sse2-win32"), properties.arg("0000FF"));
        row("32-bit", architectureBadgeStyleSheet("x86-win32"), properties.arg("00FF00"));
        row("other", architectureBadgeStyleSheet("arm-a-win64"), properties.arg("FF0000"));
        row("XL", xlBadgeStyleSheet(), "QPushButton {" + properties.arg("00FF00") + "}");
    }

    void badge()
    {
        QFETCH(QString, styleSheet);
        QTEST(styleSheet, "expected");
    }
};

QTEST_GUILESS_MAIN(CardStyleSheetsTest)
#include "CardStyleSheetsTest.moc"
