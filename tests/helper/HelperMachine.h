#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// What a run of the helper left.
struct HelperResult {
    int exitCode = -1; ///< stays so when it did not start or did not end by itself
    QByteArray output;
    QByteArray errors;
};

/// The real helper and the machine that it changes. Windows only. What a test needs and cannot have ends the test
/// program.
namespace HelperMachine {

/// The key of the machine's variables.
extern const QString environmentKey;

/// Whether whoever starts the helper says that a window is to be seen, that none is, or nothing.
enum class Window { unsaid, hidden, visible };

/// Starts the helper with exactly these arguments and waits for its end.
HelperResult run(const QString &arguments, Window window = Window::unsaid);

/// The values of a registry key: under each name its type, a blank, and its bytes in hexadecimal.
QMap<QString, QByteArray> values(const QString &key);

/// What @ref values says of a text.
QByteArray plainText(const QString &text);
QByteArray expandableText(const QString &text);

/// The default value of a registry key as text; a null text when there is none.
QString defaultText(const QString &key);

/// The names of the keys below a registry key.
QStringList subkeys(const QString &key);

/// Everything below a directory: under each path "directory", or the attributes and contents of a file.
QMap<QString, QByteArray> tree(const QString &directory);

/// Makes a file, and the directories above it.
void makeFile(const QString &path, const QByteArray &contents);

/// Copies a file of the building machine, and makes the directories above.
void copyFile(const QString &from, const QString &to);

/// Gives a file one more name.
void makeHardLink(const QString &file, const QString &link);

void setReadOnly(const QString &file, bool readOnly);
bool isReadOnly(const QString &file);

} // namespace HelperMachine
