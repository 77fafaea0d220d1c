#pragma once

#include <QAccessible>
#include <QApplication>
#include <QStringList>
#include <QTextBrowser>
#include <QtTest>

/// Walks a window with the Tab key and checks that the focus is visible.
namespace TabStops {

/// What has the focus: the accessible name of the control, and the text of the link in it.
inline QString focused()
{
    QWidget *control = QApplication::focusWidget();
    if (control == nullptr) {
        return "nothing";
    }
    const QString name = QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
    const auto *browser = qobject_cast<QTextBrowser *>(control);
    return browser != nullptr && browser->textCursor().hasSelection()
               ? name + " > " + browser->textCursor().selectedText()
               : name;
}

/// The control that has the focus, with what is drawn around it, in @p window.
inline QRect focusedArea(const QWidget &window)
{
    const QWidget *control = QApplication::focusWidget();
    constexpr int around = 4;
    return QRect(control->mapTo(&window, QPoint()), control->size())
        .adjusted(-around, -around, around, around);
}

/// Presses @p key, Tab or Backtab, in @p window until the focus is back where the first press moved it.
/// Returns the names of the stops in order; those at which the focus is not visible are added to @p unseen,
/// unless that is null.
inline QStringList walk(QWidget &window, Qt::Key key, QStringList *unseen = nullptr)
{
    constexpr int tooMany = 400;
    QStringList stops;
    QList<QWidget *> controls;
    QImage before;
    while (stops.size() < tooMany) {
        if (unseen != nullptr) {
            before = window.grab().toImage();
        }
        QTest::keyClick(window.windowHandle(), key);
        controls.append(QApplication::focusWidget());
        if (controls.last() == controls.first() && controls.size() > 1 &&
            controls.at(controls.size() - 2) != controls.first()) {
            return stops;
        }
        stops.append(focused());
        const QRect area = focusedArea(window);
        if (unseen != nullptr && before.copy(area) == window.grab(area).toImage()) {
            unseen->append(stops.last());
        }
    }
    return stops + QStringList{"and so on"};
}

/// The stops on a 64-bit card of @p version, with @p links in its details and, if there is a Visual Studio,
/// its IDE.
inline QStringList ofCard(const QString &version, const QStringList &links, bool ide)
{
    return QStringList{"HDevelop " + version + " (x64-win64)", "HDevelop x64", "Details"} + links +
           QStringList{"HDevelop", "HDevelop XL", "HDevelop XL", "Help", "Command shell"} +
           (ide ? QStringList{"Visual Studio IDE"} : QStringList()) +
           QStringList{"Visual Studio versions",
                       "Make permanent",
                       "Register halconx[xl].dll",
                       "Administrative rights to register halconx[xl].dll",
                       "Register hdevenginex[xl].dll",
                       "Administrative rights to register hdevenginex[xl].dll",
                       "Velloxa",
                       "Install license"};
}

} // namespace TabStops
