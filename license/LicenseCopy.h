#pragma once

#include <QString>
#include <QStringList>

/// Copies the licence file @p source over @p target, with the elevated helper where the program itself may
/// not.
///
/// When @p source no longer exists, @p droppedContents, which were read from it when it was dropped, are
/// written instead. Returns false when the file could not be copied; @p errors (unless null) is cleared first
/// and then says why. Blocks until the helper has ended. Each fallback is logged.
bool copyLicenseFile(const QString &source, const QString &droppedContents, const QString &target,
                     QStringList *errors);
