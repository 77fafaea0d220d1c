#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// One manual of an installation.
struct DocumentationEntry {
    QStringList submenus; ///< titles of the submenus that lead to it, outermost first
    QString title;        ///< what the user sees; the menu takes an "&" in it as the mark of a mnemonic
    QString file;         ///< absolute path
    bool bold = false;    ///< whether the menu shows it in bold type
};

/// The documentation of an installation, as far as it exists on disk.
struct Documentation {
    QList<DocumentationEntry> pdfManuals;   ///< in the order in which they are found
    QList<DocumentationEntry> htmlManuals;  ///< in a fixed order
    QList<DocumentationEntry> releaseNotes; ///< in the order in which they are found
};

/// Looks for documentation below @p installDir. Names without a title are reported as warnings.
Documentation findDocumentation(const QString &installDir);
