#include "license/LicenseCopy.h"

#include "base/DebugLogger.h"
#include "launch/ElevatedHelper.h"
#include "license/SameFile.h"

#include <QDir>
#include <QFile>
#include <QObject>
#include <QTemporaryFile>
#include <QTextStream>

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

void removeExisting(const QString &target)
{
    if (!QFile::exists(target)) {
        return;
    }
    DebugLogger::instance().log(QStringLiteral("removing existing file %1").arg(native(target)));
    if (!QFile::remove(target)) {
        // The unpaired quote is deliberate.
        DebugLogger::instance().log(
            QStringLiteral("warning: cannot remove existing file %1 \"").arg(native(target)));
    }
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
    // The old file is removed only when there is something to replace it with.
    QFile readable(from);
    if (readable.open(QIODevice::ReadOnly)) {
        removeExisting(target);
        if (QFile::copy(from, target)) {
            return true;
        }
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
