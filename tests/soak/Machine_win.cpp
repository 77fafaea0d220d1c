#include "tests/soak/Machine_win.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <vector>

#include <windows.h>

namespace {

/// What the system itself changes while a program runs.
bool isSystemsOwn(const QString &key)
{
    static const QStringList own{
        QStringLiteral("hkcu\\software\\wine\\"),
        QStringLiteral("hkcu\\volatile environment\\"),
    };
    for (const QString &prefix : own) {
        if (key.startsWith(prefix)) {
            return true;
        }
    }
    return false;
}

QString valueText(DWORD type, const std::vector<BYTE> &data, DWORD size)
{
    const QString kind = QString::number(type) + QLatin1Char(':');
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        QString text = QString::fromWCharArray(reinterpret_cast<const wchar_t *>(data.data()),
                                               static_cast<int>(size / sizeof(wchar_t)));
        while (text.endsWith(QChar(0))) {
            text.chop(1);
        }
        return kind + text;
    }
    const QByteArray bytes(reinterpret_cast<const char *>(data.data()), static_cast<int>(size));
    return kind + QString::fromLatin1(bytes.toHex());
}

/// Adds the values and subkeys of @p key, whose path ends in a backslash.
void addKey(HKEY key, const QString &path, QMap<QString, QString> &entries)
{
    constexpr DWORD longestName = 16384;
    static std::vector<wchar_t> name(longestName);
    static std::vector<BYTE> data(1U << 20U);
    if (isSystemsOwn(path)) {
        return;
    }
    entries.insert(path, QString());
    for (DWORD number = 0;; ++number) {
        DWORD length = longestName;
        auto size = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key, number, name.data(), &length, nullptr, &type, data.data(), &size) !=
            ERROR_SUCCESS) {
            break;
        }
        entries.insert(path + QLatin1Char('|') +
                           QString::fromWCharArray(name.data(), static_cast<int>(length)).toLower(),
                       valueText(type, data, size));
    }
    for (DWORD number = 0;; ++number) {
        DWORD length = longestName;
        if (RegEnumKeyExW(key, number, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        const QString child = QString::fromWCharArray(name.data(), static_cast<int>(length)).toLower();
        // The set in use is a link to one of these, where it is not a key itself.
        if (path == QLatin1String("hklm\\system\\") && child.startsWith(QLatin1String("controlset"))) {
            continue;
        }
        const DWORD options = child == QLatin1String("currentcontrolset") ? 0 : REG_OPTION_OPEN_LINK;
        HKEY opened = nullptr;
        if (RegOpenKeyExW(key, name.data(), options, KEY_READ | KEY_WOW64_64KEY, &opened) == ERROR_SUCCESS) {
            addKey(opened, path + child + QLatin1Char('\\'), entries);
            RegCloseKey(opened);
        }
    }
}

} // namespace

class Machine::Watch {
public:
    explicit Watch(HKEY tree) : tree(tree), changed(CreateEventW(nullptr, FALSE, TRUE, nullptr)) {}
    ~Watch() { CloseHandle(changed); }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    /// Whether anything has changed since the last call; true in the first call.
    bool hasChanged()
    {
        if (WaitForSingleObject(changed, 0) != WAIT_OBJECT_0) {
            return false;
        }
        RegNotifyChangeKeyValue(tree, TRUE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET, changed,
                                TRUE);
        return true;
    }

private:
    HKEY tree;
    HANDLE changed;
};

Machine::Machine(const QStringList &directories, const QStringList &ignored)
    : directories(directories), ignored(ignored)
{
    watches.push_back(std::make_unique<Watch>(HKEY_LOCAL_MACHINE));
    watches.push_back(std::make_unique<Watch>(HKEY_CURRENT_USER));
}

Machine::~Machine() = default;

MachineState Machine::state()
{
    // Reading all of the registry takes seconds.
    bool changed = false;
    for (const auto &watch : watches) {
        changed = watch->hasChanged() || changed;
    }
    if (changed) {
        registry.clear();
        addKey(HKEY_LOCAL_MACHINE, QStringLiteral("hklm\\"), registry);
        addKey(HKEY_CURRENT_USER, QStringLiteral("hkcu\\"), registry);
    }
    MachineState state;
    state.registry = registry;
    for (const QString &directory : qAsConst(directories)) {
        addFiles(directory, state);
    }
    return state;
}

QString Machine::contentOf(const QString &path)
{
    const QFileInfo info(path);
    Known &file = known[path];
    if (file.content.isEmpty() || file.size != info.size() || file.modified != info.lastModified()) {
        QFile opened(path);
        opened.open(QIODevice::ReadOnly);
        QCryptographicHash hash(QCryptographicHash::Sha1);
        hash.addData(&opened);
        file = {
            info.size(), info.lastModified(),
            QStringLiteral("%1 bytes, %2").arg(info.size()).arg(QString::fromLatin1(hash.result().toHex()))};
    }
    return file.content;
}

void Machine::addFiles(const QString &directory, MachineState &state)
{
    const QFileInfoList entries =
        QDir(directory).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const QString native = QDir::toNativeSeparators(entry.filePath());
        if (!entry.isDir()) {
            state.files.insert(native, contentOf(entry.filePath()));
        } else if (!ignored.contains(native, Qt::CaseInsensitive)) {
            state.files.insert(native + QLatin1Char('\\'), QString());
            addFiles(entry.filePath(), state);
        }
    }
}
