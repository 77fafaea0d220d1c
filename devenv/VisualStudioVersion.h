#pragma once

#include <QList>
#include <QString>

/// One installed Visual Studio together with one build architecture, or with none. A plain value.
struct VisualStudioVersion {
    QString name;    ///< never set
    QString edition; ///< such as "Professional", "Express Edition" or "Visual Studio Community 2022"
    QString
        version; ///< "14.0" or "17.4"; in the registry any name that looks like one, such as "14.0_Config"
    QString architecture; ///< "amd64", "x86" or empty
    QString productDir;   ///< where the product is installed
    QString vcDir;        ///< the compiler tool set's directory below it
    QString vcvarsBat;    ///< the script that sets up the architecture's build environment; empty without one
    QString ideName;      ///< command that starts the IDE, such as "devenv"; empty when there is no IDE
    QString idePath;      ///< absolute path of the IDE's executable; empty when there is no IDE
    bool express = false; ///< an Express edition, which has other IDEs
};

/// What the user sees of a record and what identifies it, such as "Visual Studio 14.0 (Professional)
/// (amd64)".
QString displayName(const VisualStudioVersion &version);

/// Whether the record builds for @p halconArch, the architecture of a HALCON installation: both are 32-bit or
/// both are 64-bit. Always false for a record without an architecture.
bool matchesArchitecture(const VisualStudioVersion &version, const QString &halconArch);

/// Drops records with a displayName() that occurs already, and orders the rest: newest version first, then
/// x86 before the others, then by displayName(). Versions compare as decimal fractions, so 16.9 is newer than
/// 16.11.
void orderVisualStudioVersions(QList<VisualStudioVersion> &versions);
