#pragma once

#include <QStringList>
#include <QTest>

/// How @p lines differ from the text file @p snapshot, a resource of the test program: the first line that
/// does, and how to renew the file. An empty string when they are the same.
///
/// With the environment variable CORVANTA_RENEW_SNAPSHOTS, writes the lines to @p file instead, the snapshot
/// in the tree.
QString differenceFromSnapshot(const QStringList &lines, const QString &snapshot, const QString &file);

/// Compares lines with the snapshot @p name, a file beside the test's source that its .qrc file lists.
#define COMPARE_SNAPSHOT(lines, name)                                                                        \
    do {                                                                                                     \
        const QString difference = differenceFromSnapshot((lines), ":/" name, QFINDTESTDATA(name));          \
        QVERIFY2(difference.isEmpty(), qPrintable(difference));                                              \
    } while (false)
