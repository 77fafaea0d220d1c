#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// One installed HALCON version for one processor architecture. A plain value.
///
/// A version that is installed for several architectures is several records, which differ in arch and
/// components.
struct HalconInstallation {
    /// A record with these version numbers (-1: unknown) and everything else empty.
    HalconInstallation(int major, int minor, int revision, int build);

    int major;    ///< 20 of version 20.11
    int minor;    ///< 11 of version 20.11
    int revision; ///< -1 when unknown
    int build;    ///< -1 when unknown

    QString installDir;     ///< HALCON's root directory, as it was registered
    QString exampleRoot;    ///< root directory of the examples; may be empty
    QStringList components; ///< installed components that concern this architecture
    QString arch;           ///< "x86-win32", "x86sse2-win32" or "x64-win64"
    QString suffix;         ///< edition word after the version number, such as "Progress"; may be empty

    void setSuffix(const QString &value) { suffix = value; }
    void setExampleRoot(const QString &value) { exampleRoot = value; }
    void setComponents(const QStringList &value) { components = value; }

    /// The version as a string, such as "20.11.1 Progress"; see formatVersion().
    QString versionText() const;

    /// versionText() and the architecture, such as "20.11.1 Progress (x64-win64)": the identity of a record.
    QString versionArchText() const;
};

/// The directory of the installation's programs and libraries for its architecture.
QString binaryDirectory(const HalconInstallation &installation);

/// The version as a string, such as "20.11.1 Progress": the numbers up to the first that is -1, a space and
/// the suffix; empty when @p major is -1. A build of 0 is not printed, a revision of 0 is.
QString formatVersion(int major, int minor, int revision, int build, const QString &suffix);

/// The rank of an architecture in the list: 1 for "x86-win32", 2 for "x86sse2-win32", 3 for "x64-win64", 0
/// for any other string.
int archRank(const QString &arch);

/// Drops records with a versionArchText() that occurs already, and orders the rest by major and minor
/// version, then architecture, then versionArchText().
void orderInstallations(QList<HalconInstallation> &installations);
