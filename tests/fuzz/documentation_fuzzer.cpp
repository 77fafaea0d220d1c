#include "card/Documentation.h"
#include "card/DocumentationTitles.h"
#include "tests/fuzz/QtFuzzing.h"

#include <QDebug>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

/// Makes the files of an input below @p root, whose lines are their paths. Names that start with a point
/// would be hidden on this machine, and not on Windows; those that cannot be made are left out.
QStringList makeFiles(const QString &root, const QByteArray &input)
{
    QStringList made;
    const QList<QByteArray> lines = input.split('\n').mid(0, 12);
    for (const QByteArray &line : lines) {
        const QString path = QString::fromUtf8(line);
        const QStringList parts = path.split('/');
        const bool usual = std::all_of(parts.begin(), parts.end(), [](const QString &part) {
            return !part.isEmpty() && !part.startsWith('.') && !part.contains(QChar::Null) &&
                   !part.contains(QChar::ReplacementCharacter);
        });
        if (usual && QDir().mkpath(root + '/' + QStringList(parts.mid(0, parts.size() - 1)).join('/')) &&
            QFile(root + '/' + path).open(QIODevice::WriteOnly)) {
            made.append(path);
        }
    }
    made.removeDuplicates();
    return made;
}

/// The title of a name, and the warning when it has none of its own.
QString titleOf(const QString &name, const QString &title, const QString &warning, QStringList *warnings)
{
    takeWarnings();
    if (title != name) {
        require(!title.contains('_') && title.front().isUpper(), "a title is for people");
        return title;
    }
    QString quoted;
    QDebug(&quoted).nospace() << name;
    warnings->append(warning.arg(quoted.trimmed()));
    return title;
}

QString lineOf(const QStringList &submenus, const QString &title, const QString &file, bool bold)
{
    return QStringList{submenus.join('>'), title, file, bold ? "bold" : ""}.join('|');
}

QStringList linesOf(const QList<DocumentationEntry> &entries)
{
    QStringList lines;
    for (const DocumentationEntry &entry : entries) {
        lines.append(lineOf(entry.submenus, entry.title, entry.file, entry.bold));
    }
    return lines;
}

/// What a plain reading of the paths finds.
struct PlainDocumentation {
    QStringList manuals;
    QStringList html;
    QStringList notes;
    QStringList warnings;
};

void addFile(const QString &root, const QString &path, PlainDocumentation *found)
{
    const QString directoryWarning = "cannot beautify unknown directory name %1 in beautifyDir()";
    const QString fileWarning = "cannot beautify unknown file name %1 in beautifyFilename()";
    QStringList parts = path.split('/');
    const QString name = parts.takeLast();
    const QString base = name.left(name.indexOf('.'));
    if (parts.value(0) == "doc" && parts.value(1) == "pdf" && name.endsWith(".pdf", Qt::CaseInsensitive)) {
        QStringList submenus;
        for (const QString &part : parts.mid(2).join('/').replace('\\', '/').split('/', Qt::SkipEmptyParts)) {
            submenus.append(titleOf(part, beautifyDir(part), directoryWarning, &found->warnings));
        }
        const QString title = titleOf(base, beautifyFilename(base), fileWarning, &found->warnings);
        found->manuals.append(lineOf(submenus, title, root + '/' + path, false));
    }
    if (parts.isEmpty() && name.startsWith("release_notes", Qt::CaseInsensitive) &&
        name.endsWith(".html", Qt::CaseInsensitive)) {
        const QString title = titleOf(base, beautifyFilename(base), fileWarning, &found->warnings);
        const bool main = title == "release_notes";
        const QString shown =
            main ? "Release Notes"
                 : QString(title).replace("release_notes_", "Release Notes ").replace('_', '.');
        found->notes.append(lineOf({}, shown, root + '/' + path, main));
    }
}

PlainDocumentation readPlainly(const QString &root, const QStringList &files)
{
    PlainDocumentation found;
    for (const QString &path : files) {
        addFile(root, path, &found);
    }
    const QString manuals = "doc/html/manuals/";
    for (const auto &[title, path] :
         {std::pair<QString, QString>("Operator Reference", "doc/html/reference/operators/index.html"),
          {"Acquistion Reference", "doc/html/reference/acquisition/acq-overview.html"},
          {"I/O Interfaces Reference", "doc/html/reference/io/io-overview.html"},
          {"Codelets Reference", "doc/html/reference/codelets/index.html"},
          {"Extension Package Interface Programmer's Manual",
           manuals + "extension_package_programmers_manual/index.html"},
          {"Gray Value Interpolation", manuals + "gray_value_interpolation/index.html"},
          {"HDevelop User's Guide", manuals + "hdevelop_users_guide/index.html"},
          {"Image Acquisition Interface Programmer's Manual",
           manuals + "image_acquisition_interface_programmers_manual/index.html"},
          {"Programmer's Guide", manuals + "programmers_guide/index.html"}}) {
        // A directory of that name counts as well.
        const bool exists = std::any_of(files.begin(), files.end(), [&path = path](const QString &file) {
            return (file + '/').startsWith(path + '/');
        });
        if (exists) {
            found.html.append(lineOf({}, title, root + '/' + path, false));
        }
    }
    return found;
}

QStringList sorted(QStringList lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

} // namespace

/// Lines are paths of files below an installation. The menu's entries and the warnings are those of a plain
/// reading of the paths; their order is left to the file system.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString root = temporaryDirectory() + "/halcon";
    QDir(root).removeRecursively();
    require(QDir().mkpath(root), "there is an installation");
    const PlainDocumentation plain = readPlainly(root, makeFiles(root, inputOf(data, size)));
    takeWarnings();

    const Documentation found = findDocumentation(root);

    requireSame(sorted(takeWarnings()), sorted(plain.warnings), "names without a title are warned about");
    requireSame(sorted(linesOf(found.pdfManuals)), sorted(plain.manuals),
                "the manuals are those of a plain reading");
    requireSame(linesOf(found.htmlManuals), plain.html,
                "the HTML manuals that exist are found, in their order");
    requireSame(sorted(linesOf(found.releaseNotes)), sorted(plain.notes), "the release notes are found");
    return 0;
}
