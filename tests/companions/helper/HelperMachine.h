#pragma once

#include "tests/support/ProgramResult.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// The real helper and the machine that it changes. Windows only. A failure of a call ends the test program.
namespace HelperMachine {

/// The key of the machine's variables.
extern const QString environmentKey;

/// Whether the helper's parent asks for a visible window, for a hidden one, or says nothing.
enum class Window { unsaid, hidden, visible };

/// Starts the helper with exactly these arguments and waits for its end.
ProgramResult run(const QString &arguments, Window window = Window::unsaid);

/// The result of a run that has done everything and says nothing.
ProgramResult done();

/// The result of a run that ends with this exit code and tells the user of it, with a reason or without.
ProgramResult failed(int exitCode, const QString &text, const QString &reason = QString());

/// The result of a run that refuses, for this reason.
ProgramResult refused(const QString &reason);

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

/// The contents of a file; "unreadable" when it cannot be read.
QByteArray read(const QString &path);

/// Makes a file, and the directories above it.
void makeFile(const QString &path, const QByteArray &contents);

/// Copies a file of the building machine, and makes the directories above.
void copyFile(const QString &from, const QString &to);

/// Makes one more hard link to a file.
void makeHardLink(const QString &file, const QString &link);

void setReadOnly(const QString &file, bool readOnly);
bool isReadOnly(const QString &file);

/// Whether a library is being registered whose registration hangs.
bool libraryHangs();

} // namespace HelperMachine
