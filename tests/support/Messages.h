#pragma once

#include <QString>
#include <QStringList>

/// The lines that were added to the debug log since this object was made.
class LogLines {
public:
    LogLines();

    /// Those lines, in order.
    QStringList lines() const;

private:
    int before;
};

/// Catches what goes to Qt's message channel while it lives; nothing of it is printed. One at a time.
class CaughtMessages {
public:
    CaughtMessages();
    CaughtMessages(const CaughtMessages &) = delete;
    CaughtMessages &operator=(const CaughtMessages &) = delete;
    ~CaughtMessages();

    /// The warnings caught so far, as they would have been printed.
    QStringList warnings() const;

private:
    QtMessageHandler previous;
};
