#pragma once

#include <QString>

#include <functional>
#include <optional>

/// Finds the programs of Velloxa, which has a 64-bit and a 32-bit build in one directory. It looks the
/// directory up once for each build, at the first use, and keeps a program that it has found.
class Velloxa {
public:
    /// The machine's Velloxa, in the directory that the registry names.
    Velloxa();

    /// @p registeredDirectory returns where Velloxa is installed, or an empty string.
    explicit Velloxa(std::function<QString()> registeredDirectory);

    /// The directory of the 64-bit build, or an empty string.
    QString installDir();

    /// Full path of the 64-bit build, or an empty string while the file does not exist.
    QString executable64();

    /// Full path of the 32-bit build, or an empty string while the file does not exist.
    QString executable32();

    /// Full path of the build for HALCON's architecture @p arch, or an empty string while there is none.
    QString executableFor(const QString &arch);

private:
    struct Build {
        explicit Build(const QString &fileName) : fileName(fileName) {}

        QString fileName;
        std::optional<QString> directory; ///< once it has been looked up
        QString executable;               ///< its path, once the file has been found to exist
    };

    QString directoryOf(Build &build);
    QString executableOf(Build &build);

    std::function<QString()> registeredDirectory;
    Build build64{QStringLiteral("velloxa.exe")};
    Build build32{QStringLiteral("velloxa32.exe")};
};
