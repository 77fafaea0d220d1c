#include "card/CardStyleSheets.h"

#include <QHash>

QString cardColour(int major)
{
    static const QString ofVersion7 = QStringLiteral("#ffebbd");
    static const QHash<int, QString> colours{
        {7, ofVersion7},
        {8, QStringLiteral("#ccffbd")},
        {9, QStringLiteral("#fefbbe")},
        {10, QStringLiteral("#fed6be")},
        {11, QStringLiteral("#ffbdbd")},
        {12, QStringLiteral("#f3bffd")},
        {13, QStringLiteral("#c6bdff")},
        {14, QStringLiteral("#bee1fe")},
    };
    return colours.value(major, ofVersion7);
}

QString cardStyleSheet(const QString &colour)
{
    // The duplicate rule and the missing semicolon are deliberate.
    return QStringLiteral("SingleHalconVersionFrame {  background-color: %1;  border: 2px solid  black;}"
                          "QGroupBox {  border: 1px solid gray;}"
                          "QPushButton:focus.myPushButton {  border: none;  outline: none;}"
                          "QPushButton#pbMajor {  font: bold 64pt \"Consolas\";"
                          " background-color: #33FF0000; border: none;}"
                          "QPushButton#pbHelp::menu-indicator {    image: none;}"
                          "QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}"
                          "QListWidget#lwVsVersion {  background-color: #33FF0000; border: 1px solid gray}"
                          "QTextBrowser#textBrowser {  font: small \"Consolas\";  border: 1px solid gray;}")
        .arg(colour);
}

QString architectureBadgeStyleSheet(const QString &arch)
{
    struct Colours {
        QString background = QStringLiteral("#CCFF0000");
        QString border = QStringLiteral("#FFFF0000");
    };
    static const QHash<QString, Colours> colours{
        {QStringLiteral("x86-win32"), {QStringLiteral("#CC00FF00"), QStringLiteral("#FF00FF00")}},
        {QStringLiteral("x86sse2-win32"), {QStringLiteral("#CC0000FF"), QStringLiteral("#FF0000FF")}},
    };
    const Colours chosen = colours.value(arch);
    return QStringLiteral(
               "background-color: %1; border: 1px solid %2; color: white; font: bold; margin: 5px; "
               "padding: 1px 3px; ")
        .arg(chosen.background, chosen.border);
}

QString xlBadgeStyleSheet()
{
    return QStringLiteral(
               "QPushButton {background-color: %1; border: 1px solid %2; color: white; font: bold; "
               "margin: 5px; padding: 1px 3px; }")
        .arg(QStringLiteral("#CC00FF00"), QStringLiteral("#FF00FF00"));
}
