#pragma once

#include "card/Documentation.h"
#include "tests/card/DocumentationTree.h"

#include <QList>
#include <QStringList>

/// Every field of every entry, one line each, such as "Manuals > Quick Guide =
/// doc/pdf/manuals/quick_guide.pdf", with ", bold" at its end where it is. A file outside @p tree is given
/// with its full path.
inline QStringList entryLines(const QList<DocumentationEntry> &entries, const DocumentationTree &tree)
{
    QStringList lines;
    for (const DocumentationEntry &entry : entries) {
        const QString root = tree.path(QString());
        const QString file = entry.file.startsWith(root) ? entry.file.mid(root.size()) : entry.file;
        lines.append((entry.submenus + QStringList{entry.title}).join(" > ") + " = " + file +
                     (entry.bold ? ", bold" : ""));
    }
    return lines;
}

/// The PDF manuals, then the HTML manuals, then the release notes.
inline QStringList allEntryLines(const Documentation &documentation, const DocumentationTree &tree)
{
    return entryLines(documentation.pdfManuals, tree) + entryLines(documentation.htmlManuals, tree) +
           entryLines(documentation.releaseNotes, tree);
}

/// Sorted, for lists whose order depends on the file system.
inline QStringList sorted(QStringList lines)
{
    lines.sort();
    return lines;
}
