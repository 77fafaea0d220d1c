#include "license/LicenseCopy.h"

#include "base/DebugLogger.h"
#include "launch/ElevatedHelper.h"
#include "license/SameFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QTemporaryFile>
#include <QTextStream>
#include <QUuid>

namespace {

QString native(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

/// Writes @p contents to @p file, which has a name from then on. False when that failed.
bool writeDroppedContents(QTemporaryFile &file, const QString &source, const QString &contents)
{
    const bool opened = file.open();
    DebugLogger::instance().log(
        QStringLiteral("dropped file %1 no longer exists. creating temporary file %2 with the same contents")
            .arg(native(source), native(file.fileName())));
    if (!opened) {
        return false;
    }
    file.setTextModeEnabled(true);
    QTextStream stream(&file);
    stream << contents;
    stream.flush();
    const bool written = stream.status() == QTextStream::Ok && file.flush();
    // The file stays open as long as the object lives, but others can read it.
    file.close();
    return written;
}

/// A name that no file has, in the directory of @p target.
QString unusedNameBeside(const QString &target)
{
    return QFileInfo(target).dir().filePath(
        QStringLiteral("corvanta-%1.tmp").arg(QUuid::createUuid().toString(QUuid::WithoutBraces)));
}

void discard(const QString &file)
{
    // A copy of a read-only file is read-only itself, and Windows does not delete such a file.
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    QFile::remove(file);
}

/// Makes room for a new file at @p target if @p mayRemove. False when there is still an old one.
bool removeExisting(const QString &target, bool mayRemove)
{
    if (!QFile::exists(target)) {
        return true;
    }
    DebugLogger::instance().log(QStringLiteral("removing existing file %1").arg(native(target)));
    const bool removed = mayRemove && QFile::remove(target);
    if (!removed) {
        // The unpaired quote is deliberate.
        DebugLogger::instance().log(
            QStringLiteral("warning: cannot remove existing file %1 \"").arg(native(target)));
    }
    return removed;
}

/// Copies @p from over @p target. At any time, also when the disk is full, @p target is the old file or the
/// whole new one: the old one goes only when the new one lies ready beside it.
bool copyOver(const QString &from, const QString &target)
{
    const QString ready = unusedNameBeside(target);
    const bool copied = QFile::copy(from, ready);
    const bool replaced = removeExisting(target, copied) && copied && QFile::rename(ready, target);
    if (!replaced) {
        discard(ready);
    }
    return replaced;
}

bool copyElevated(const QString &from, const QString &target, QStringList &errors)
{
    DebugLogger &logger = DebugLogger::instance();
    logger.log(
        QStringLiteral("warning: could not copy source file \"%1\" to destination file \"%2\". Trying to "
                       "install license with an elevated helper process.")
            .arg(native(from), native(target)));
    // The destination comes first.
    const QString arguments = QStringLiteral("--copy=\"%1\" \"%2\"").arg(native(target), native(from));
    logger.log(QStringLiteral("executing helper process with elevated rights: %1 %2")
                   .arg(helperExecutablePath(), arguments));
    const int result = runHelper(arguments, false);
    if (result != 0) {
        errors.append(
            QObject::tr("helper process returned with value %1. This indicates an error in its execution!")
                .arg(result));
        const QString missing = reasonForMissingHelper();
        if (!missing.isEmpty()) {
            errors.append(missing);
        }
    }
    return result == 0;
}

bool copyLicense(const QString &source, const QString &droppedContents, const QString &target,
                 QStringList &errors)
{
    // Removing the target first would delete the only file there is.
    if (isSameFile(source, target)) {
        return true;
    }
    QString from = source;
    QTemporaryFile temporary; // must outlive the copy that is made from it
    if (!QFile::exists(source)) {
        if (!writeDroppedContents(temporary, source, droppedContents)) {
            errors.append(QObject::tr("Dropped file %1 no longer exists and could not "
                                      "create temporary file %2 with the same contents")
                              .arg(native(source), native(temporary.fileName())));
            return false;
        }
        from = temporary.fileName();
    }
    QFile readable(from);
    if (readable.open(QIODevice::ReadOnly) && copyOver(from, target)) {
        return true;
    }
    return copyElevated(from, target, errors);
}

} // namespace

bool copyLicenseFile(const QString &source, const QString &droppedContents, const QString &target,
                     QStringList *errors)
{
    QStringList found;
    const bool copied = copyLicense(source, droppedContents, target, found);
    if (errors != nullptr) {
        *errors = found;
    }
    return copied;
}
