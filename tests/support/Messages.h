#pragma once

#include <QString>
#include <QStringList>

/// The lines added to the debug log since this object was created.
class LogLines {
public:
    LogLines();

    /// Those lines, in order.
    QStringList lines() const;

private:
    int before;
};

/// While it lives, catches Qt's messages, which are not printed. One object at a time.
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
