#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A fixture: an installation's documentation on disk, removed with its owner.
class DocumentationTree {
public:
    /// @p name is the installation's directory, inside a temporary one.
    explicit DocumentationTree(const QString &name = "HALCON-20.11-Progress") : name(name)
    {
        if (!QDir(directory.path()).mkpath(name)) {
            qFatal("could not make the directory %s", qPrintable(path(QString())));
        }
    }

    /// The installation's directory as the registry would name it: with the system's own separators.
    QString installDir() const { return QDir::toNativeSeparators(directory.filePath(name)); }

    /// The full path of @p relative below the installation's directory, with forward slashes.
    QString path(const QString &relative) const
    {
        return QDir(directory.path()).absolutePath() + '/' + name + '/' + relative;
    }

    /// Makes empty files with the directories above them.
    void add(const QStringList &files) const
    {
        for (const QString &relative : files) {
            QFile file(path(relative));
            if (!QDir().mkpath(file.fileName().section('/', 0, -2)) || !file.open(QIODevice::WriteOnly)) {
                qFatal("could not make the file %s", qPrintable(file.fileName()));
            }
        }
    }

    /// Adds the documentation of a complete installation.
    void addEverything() const
    {
        add(pdfManuals());
        add(htmlManuals());
        add(releaseNotes());
    }

    static QStringList releaseNotes()
    {
        return {"release_notes.html",    "release_notes_20_11.html",   "release_notes_20_05.html",
                "release_notes_13.html", "release_notes_foo_bar.html", "release_notesX.html"};
    }

    static QStringList pdfManuals()
    {
        return {"doc/pdf/manuals/extension_package_programmers_manual.pdf",
                "doc/pdf/manuals/gray_value_interpolation.pdf",
                "doc/pdf/manuals/hdevelop_users_guide.pdf",
                "doc/pdf/manuals/image_acquisition_interface_programmers_manual.pdf",
                "doc/pdf/manuals/installation_guide.pdf",
                "doc/pdf/manuals/programmers_guide.pdf",
                "doc/pdf/manuals/quick_guide.pdf",
                "doc/pdf/reference/reference_hdevelop.pdf",
                "doc/pdf/solution_guide/solution_guide_i.pdf",
                "doc/pdf/solution_guide/solution_guide_ii_a_image_acquisition.pdf",
                "doc/pdf/solution_guide/solution_guide_ii_b_matching.pdf",
                "doc/pdf/solution_guide/solution_guide_ii_c_2d_data_codes.pdf",
                "doc/pdf/solution_guide/solution_guide_ii_d_classification.pdf",
                "doc/pdf/solution_guide/solution_guide_iii_a_1d_measuring.pdf",
                "doc/pdf/solution_guide/solution_guide_iii_b_2d_measuring.pdf",
                "doc/pdf/solution_guide/solution_guide_iii_c_3d_vision.pdf"};
    }

    /// Deliberately not in the menu's order.
    static QStringList htmlManuals()
    {
        return {"doc/html/manuals/programmers_guide/index.html",
                "doc/html/manuals/hdevelop_users_guide/index.html",
                "doc/html/manuals/extension_package_programmers_manual/index.html",
                "doc/html/manuals/gray_value_interpolation/index.html",
                "doc/html/manuals/image_acquisition_interface_programmers_manual/index.html",
                "doc/html/reference/codelets/index.html",
                "doc/html/reference/io/io-overview.html",
                "doc/html/reference/operators/index.html",
                "doc/html/reference/acquisition/acq-overview.html"};
    }

private:
    QTemporaryDir directory;
    QString name;
};
