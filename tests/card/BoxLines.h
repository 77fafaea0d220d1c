#pragma once

#include "tests/support/MessageBoxes.h"

#include <QStringList>

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

/// Every property of each box, one line for each, so that a comparison shows the one that differs.
inline QStringList boxLines(const QList<ShownBox> &boxes, const QWidget &card)
{
    static const char *const icons[] = {"none", "information", "warning", "critical", "question"};
    const auto buttonNames = [](int buttons) {
        return buttons == QMessageBox::Ok ? QString("OK") : "0x" + QString::number(buttons, 16);
    };
    QStringList lines;
    for (const ShownBox &box : boxes) {
        lines << "title: " + box.title << "text: " + box.text << QString("icon: ") + icons[box.icon]
              << "buttons: " + buttonNames(int(box.buttons)) << "default: " + buttonNames(box.defaultButton)
              << QString("parent: ") + (box.parent == &card ? "the card" : "another");
    }
    return lines;
}

/// What boxLines() says of one box of the card with the button OK.
inline QStringList shownLines(const QString &icon, const QString &title, const QString &text)
{
    return {"title: " + title, "text: " + text, "icon: " + icon,
            "buttons: OK",     "default: OK",   "parent: the card"};
}

inline QStringList warningLines(const QString &title, const QString &text)
{
    return shownLines("warning", title, text);
}

inline QStringList informationLines(const QString &title, const QString &text)
{
    return shownLines("information", title, text);
}

/// What boxLines() says of a question with the buttons OK and Cancel.
inline QStringList questionLines(const QString &icon, const QString &title, const QString &text)
{
    return shownLines(icon, title, text).replaceInStrings("buttons: OK", "buttons: 0x400400");
}

/// What boxLines() says when the user asks for @p what, but no row of the list is chosen.
inline QStringList noRowLines(const QString &what)
{
    return warningLines("Error", "Could not launch " + what + ": No valid Visual Studio version selected.");
}

/// The card's message for every Visual Studio button on a machine without Visual Studio.
inline QStringList noVisualStudioLines()
{
    return warningLines(
        "No Visual Studio detected",
        "The shell cannot be launched, as we could not detect any Visual Studio on your computer. "
        "Please make sure that you have installed Microsoft Visual Studio "
        "and that the component \"Visual C++ toolset\" has been selected during installation. "
        "To review potential errors in detecting your Visual Studio version, "
        "close this dialog and press F12 to see debug output of this program.");
}
