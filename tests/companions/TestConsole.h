#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

/// Gives the test program a new console with an empty screen, instead of the one it may have had. Programs
/// that it starts without redirecting their output write there. Windows only; one object at a time.
///
/// A failure to create, write or read the console ends the test program.
class TestConsole {
public:
    /// Columns: enough for every text and path of a test.
    static constexpr int width = 400;

    TestConsole();
    TestConsole(const TestConsole &) = delete;
    TestConsole &operator=(const TestConsole &) = delete;
    /// Ends the processes that are still in the console.
    ~TestConsole();

    /// The lines from the top to the cursor's, without trailing spaces.
    QStringList lines() const;

    /// The attributes (colours) of the first @p count characters of a line.
    QVector<quint16> attributes(int line, int count) const;

    /// The attributes of the next output.
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
