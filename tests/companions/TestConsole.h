#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

/// A console of the test program's own, in place of the one it may have had, with an empty screen. What the test
/// program starts meanwhile without redirecting its output shows there. Windows only; one object at a time.
///
/// A console that cannot be made, written or read ends the test program.
class TestConsole {
public:
    /// Characters in a line, enough for every text and path of a test.
    static constexpr int width = 400;

    TestConsole();
    TestConsole(const TestConsole &) = delete;
    TestConsole &operator=(const TestConsole &) = delete;
    /// Ends the processes that are still in the console.
    ~TestConsole();

    /// The lines from the top to the cursor's, without the blanks at their ends.
    QStringList lines() const;

    /// The attributes (colours) of the first @p count characters of a line.
    QVector<quint16> attributes(int line, int count) const;

    /// The attributes of what is printed next.
    quint16 attributes() const;
    void setAttributes(quint16 attributes);

    QString title() const;

    /// Types @p text and the Enter key.
    void type(const QString &text);

    /// How many processes are in the console besides the test program.
    int otherProcesses() const;

private:
    struct Handles;
    std::unique_ptr<Handles> handles;
};
