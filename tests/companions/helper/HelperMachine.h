#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// The result of a run of the helper.
struct HelperResult {
    int exitCode = -1; ///< unchanged when it did not start or did not end by itself
    QByteArray output;
    QByteArray errors;
};

/// The real helper and the machine that it changes. Windows only. A failure of a call ends the test program.
namespace HelperMachine {

/// The key of the machine's variables.
extern const QString environmentKey;

/// Whether the helper's parent asks for a visible window, for a hidden one, or says nothing.
enum class Window { unsaid, hidden, visible };

/// Starts the helper with exactly these arguments and waits for its end.
HelperResult run(const QString &arguments, Window window = Window::unsaid);

/// The values of a registry key: for each name its type, a space, and its bytes in hexadecimal.
QMap<QString, QByteArray> values(const QString &key);

/// What @ref values gives for a string.
QByteArray plainText(const QString &text);
QByteArray expandableText(const QString &text);

/// The default value of a registry key as a string; null when there is none.
QString defaultText(const QString &key);

/// The names of the keys below a registry key.
QStringList subkeys(const QString &key);

/// Everything below a directory: for each path "directory", or a file's attributes and contents.
QMap<QString, QByteArray> tree(const QString &directory);

/// Makes a file, and the directories above it.
void makeFile(const QString &path, const QByteArray &contents);

/// Copies a file of the building machine, and makes the directories above.
void copyFile(const QString &from, const QString &to);

/// Makes one more hard link to a file.
void makeHardLink(const QString &file, const QString &link);

void setReadOnly(const QString &file, bool readOnly);
bool isReadOnly(const QString &file);

} // namespace HelperMachine
