#pragma once

#include <QObject>
#include <QStringList>

/// The process-wide log of what the program investigated and decided.
///
/// It lives in memory only; the user reads it in the DebugDialog (F12). Lines are kept as given, without time
/// stamps or levels, for as long as the process runs. Used from the GUI thread only.
class DebugLogger : public QObject {
    Q_OBJECT

public:
    /// The one logger, created at first use.
    static DebugLogger &instance();

    /// Appends @p message, which may hold line breaks, and emits updated().
    void log(const QString &message);

    /// All messages, separated by line feeds; none after the last.
    QString text() const;

signals:
    /// Emitted after every appended message.
    void updated();

private:
    DebugLogger() = default;

    QStringList lines;
};
