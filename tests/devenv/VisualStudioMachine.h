#pragma once

#include "tests/support/Registry.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A fixture of Visual Studio products: files in a directory and the registry keys that name them. Both are
/// removed with their owner.
class VisualStudioMachine {
public:
    VisualStudioMachine() = default;
    VisualStudioMachine(const VisualStudioMachine &) = delete;
    VisualStudioMachine &operator=(const VisualStudioMachine &) = delete;
    ~VisualStudioMachine() { removeKeys(); }

    /// The full path of @p relative below the directory, with backslashes.
    QString path(const QString &relative) const
    {
        return QDir::toNativeSeparators(directory.path()) + '\\' + relative;
    }

    /// The same with slashes, as in the log's lines about executables.
    QString slashPath(const QString &relative) const { return QDir::fromNativeSeparators(path(relative)); }

    /// Makes an empty file with the directories above it.
    void addFile(const QString &relative) const
    {
        const QString filePath = slashPath(relative);
        QFile file(filePath);
        if (!QDir().mkpath(filePath.section('/', 0, -2)) || !file.open(QIODevice::WriteOnly)) {
            qFatal("could not make the file %s", qPrintable(filePath));
        }
    }

    /// Registers one edition of a version below a root key such as "...\Microsoft\VisualStudio".
    void addEdition(const QString &rootKey, const QString &version, const QString &edition,
                    const QString &productDir)
    {
        Registry::setString(setup(rootKey, version) + "\\VS\\" + edition, "ProductDir", productDir);
    }

    /// Registers an Express product below a root key such as "...\Microsoft\VCExpress".
    void addExpress(const QString &rootKey, const QString &version, const QString &vcDir)
    {
        Registry::setString(setup(rootKey, version) + "\\VC", "ProductDir", vcDir);
    }

    /// The setup key of a version, made if it is missing.
    QString setup(const QString &rootKey, const QString &version)
    {
        QString key = rootKey + '\\' + version + "\\Setup";
        Registry::createKey(key);
        setupKeys.append(key);
        return key;
    }

    /// Removes everything from the registry.
    void removeKeys()
    {
        for (const QString &key : setupKeys) {
            Registry::removeTree(key);
        }
        setupKeys.clear();
    }

private:
    QTemporaryDir directory;
    QStringList setupKeys;
};

namespace Roots {

const QString studio32 = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Microsoft\VisualStudio)";
const QString studio64 = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VisualStudio)";
const QString express32 = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Microsoft\VCExpress)";
const QString express64 = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VCExpress)";

} // namespace Roots

/// The log of a detection over the whole machine, given the lines of the products below each of the four root
/// keys.
inline QStringList detectionLog(const QStringList &ofStudio32 = {}, const QStringList &ofStudio64 = {},
                                const QStringList &ofExpress32 = {}, const QStringList &ofExpress64 = {})
{
    const QString searching = "Try to detect Visual Studio (pre-VS2017) in registry at ";
    QStringList lines{"Try to detect Visual Studio version in Windows Registry (pre-VS2017)"};
    lines << searching + R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Microsoft\VisualStudio)" << ofStudio32;
    lines << searching + R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VisualStudio)" << ofStudio64;
    lines << searching + R"(HKEY_LOCAL_MACHINE\SOFTWARE\Wow6432Node\Microsoft\VCExpress)" << ofExpress32;
    lines << searching + R"(HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\VCExpress)" << ofExpress64;
    lines << "Trying to detect Visual Studio via vswhere.exe utility (VS2017+)";
    return lines;
}
