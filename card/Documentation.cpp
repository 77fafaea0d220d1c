#include "card/Documentation.h"

#include "card/DocumentationTitles.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <array>

namespace {

/// Translates in the card's context.
struct Card {
    Q_DECLARE_TR_FUNCTIONS(SingleHalconVersionFrame)
};

/// The titles of the directories between @p base and @p directory.
QStringList submenusOf(const QString &base, const QString &directory)
{
    QString relative = QDir(base).relativeFilePath(directory);
    relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
    QStringList titles;
    const QStringList parts = relative.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        // Relative to itself the base is ".".
        if (part != QLatin1String(".")) {
            titles.append(beautifyDir(part));
        }
    }
    return titles;
}

QList<DocumentationEntry> findPdfManuals(const QString &installDir)
{
    const QString base = installDir + QStringLiteral("/doc/pdf");
    QList<DocumentationEntry> entries;
    QDirIterator files(base, {QStringLiteral("*.pdf")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo file(files.next());
        DocumentationEntry entry;
        entry.submenus = submenusOf(base, file.absolutePath());
        entry.title = beautifyFilename(file.baseName());
        entry.file = file.absoluteFilePath();
        entries.append(entry);
    }
    return entries;
}

QList<DocumentationEntry> findHtmlManuals(const QString &installDir)
{
    struct Manual {
        const char *title;
        const char *path;
    };
    // The misspelling "Acquistion" is deliberate.
    static constexpr std::array<Manual, 9> manuals{{
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Operator Reference"),
         "/doc/html/reference/operators/index.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Acquistion Reference"),
         "/doc/html/reference/acquisition/acq-overview.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "I/O Interfaces Reference"),
         "/doc/html/reference/io/io-overview.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Codelets Reference"),
         "/doc/html/reference/codelets/index.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Extension Package Interface Programmer's Manual"),
         "/doc/html/manuals/extension_package_programmers_manual/index.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Gray Value Interpolation"),
         "/doc/html/manuals/gray_value_interpolation/index.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "HDevelop User's Guide"),
         "/doc/html/manuals/hdevelop_users_guide/index.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Image Acquisition Interface Programmer's Manual"),
         "/doc/html/manuals/image_acquisition_interface_programmers_manual/index.html"},
        {QT_TRANSLATE_NOOP("SingleHalconVersionFrame", "Programmer's Guide"),
         "/doc/html/manuals/programmers_guide/index.html"},
    }};
    QList<DocumentationEntry> entries;
    for (const Manual &manual : manuals) {
        const QFileInfo file(installDir + QLatin1String(manual.path));
        if (file.exists()) {
            DocumentationEntry entry;
            entry.title = Card::tr(manual.title);
            entry.file = file.absoluteFilePath();
            entries.append(entry);
        }
    }
    return entries;
}

QList<DocumentationEntry> findReleaseNotes(const QString &installDir)
{
    QList<DocumentationEntry> entries;
    QDirIterator files(installDir, {QStringLiteral("release_notes*.html")}, QDir::Files);
    while (files.hasNext()) {
        const QFileInfo file(files.next());
        DocumentationEntry entry;
        entry.title = beautifyFilename(file.baseName());
        entry.file = file.absoluteFilePath();
        if (entry.title == QLatin1String("release_notes")) {
            entry.title = Card::tr("Release Notes");
            entry.bold = true;
        } else {
            entry.title.replace(QLatin1String("release_notes_"), Card::tr("Release Notes "));
            entry.title.replace(QLatin1String("_"), Card::tr("."));
        }
        entries.append(entry);
    }
    return entries;
}

} // namespace

Documentation findDocumentation(const QString &installDir)
{
    // An empty path would mean the current directory, which is no installation.
    if (installDir.isEmpty()) {
        return {};
    }
    Documentation documentation;
    documentation.pdfManuals = findPdfManuals(installDir);
    documentation.htmlManuals = findHtmlManuals(installDir);
    documentation.releaseNotes = findReleaseNotes(installDir);
    return documentation;
}
