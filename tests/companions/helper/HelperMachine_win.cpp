#include "companions/common/WindowsHandle.h"
#include "tests/companions/helper/HelperMachine.h"
#include "tests/support/WideText.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <windows.h>

#include <vector>

namespace {

void require(bool success, const QString &what)
{
    if (!success) {
        qFatal("%s failed: %lu", qPrintable(what), GetLastError());
    }
}

/// A key below HKEY_LOCAL_MACHINE, open for reading.
class ReadKey {
public:
    explicit ReadKey(const QString &key)
    {
        const QString root = "HKEY_LOCAL_MACHINE\\";
        require(key.startsWith(root), key);
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, wide(key.mid(root.size())), 0, KEY_READ | KEY_WOW64_64KEY,
                          &handle) != ERROR_SUCCESS) {
            handle = nullptr;
        }
    }
    ReadKey(const ReadKey &) = delete;
    ReadKey &operator=(const ReadKey &) = delete;
    ~ReadKey()
    {
        if (handle != nullptr) {
            RegCloseKey(handle);
        }
    }
    HKEY get() const { return handle; }

private:
    HKEY handle = nullptr;
};

QByteArray described(DWORD type, const char *bytes, int size)
{
    return QByteArray::number(quint32(type)) + ' ' + QByteArray(bytes, size).toHex();
}

QByteArray describedText(DWORD type, const QString &text)
{
    return described(type, reinterpret_cast<const char *>(text.utf16()), (text.size() + 1) * 2);
}

QByteArray attributesOf(const QString &path)
{
    return QByteArray::number(quint32(GetFileAttributesW(wide(QDir::toNativeSeparators(path)))), 16);
}

} // namespace

namespace HelperMachine {

const QString environmentKey =
    R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Session Manager\Environment)";

ProgramResult run(const QString &arguments, Window window)
{
    QProcess process;
    process.setCreateProcessArgumentsModifier([window](QProcess::CreateProcessArguments *created) {
        created->startupInfo->dwFlags |= window == Window::unsaid ? 0 : STARTF_USESHOWWINDOW;
        created->startupInfo->wShowWindow = window == Window::visible ? SW_SHOW : SW_HIDE;
    });
    return runProgram(process, HELPER_EXECUTABLE, arguments);
}

ProgramResult done()
{
    return {};
}

ProgramResult failed(int exitCode, const QString &text, const QString &reason)
{
    const QString lines = "qz_com_helper: " + text + "\r\n" + (reason.isEmpty() ? "" : reason + "\r\n");
    return {exitCode, {}, lines.toUtf8()};
}

ProgramResult refused(const QString &reason)
{
    return failed(2, "The request was refused. Nothing was changed.", reason);
}

QMap<QString, QByteArray> values(const QString &key)
{
    const ReadKey opened(key);
    QMap<QString, QByteArray> result;
    for (DWORD index = 0; opened.get() != nullptr; ++index) {
        std::vector<wchar_t> name(20000);
        std::vector<char> bytes(100000);
        auto nameLength = DWORD(name.size());
        auto size = DWORD(bytes.size());
        DWORD type = 0;
        const LSTATUS status = RegEnumValueW(opened.get(), index, name.data(), &nameLength, nullptr, &type,
                                             reinterpret_cast<BYTE *>(bytes.data()), &size);
        if (status == ERROR_NO_MORE_ITEMS) {
            break;
        }
        require(status == ERROR_SUCCESS, "RegEnumValueW");
        result.insert(QString::fromWCharArray(name.data(), int(nameLength)),
                      described(type, bytes.data(), int(size)));
    }
    return result;
}

QByteArray plainText(const QString &text)
{
    return describedText(REG_SZ, text);
}

QByteArray expandableText(const QString &text)
{
    return describedText(REG_EXPAND_SZ, text);
}

QString defaultText(const QString &key)
{
    const ReadKey opened(key);
    std::vector<wchar_t> text(1000);
    auto size = DWORD(text.size() * sizeof(wchar_t));
    if (opened.get() == nullptr || RegGetValueW(opened.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr,
                                                text.data(), &size) != ERROR_SUCCESS) {
        return {};
    }
    return QString::fromWCharArray(text.data());
}

QStringList subkeys(const QString &key)
{
    const ReadKey opened(key);
    QStringList result;
    std::vector<wchar_t> name(300);
    while (opened.get() != nullptr && RegEnumKeyW(opened.get(), DWORD(result.size()), name.data(),
                                                  DWORD(name.size())) == ERROR_SUCCESS) {
        result.append(QString::fromWCharArray(name.data()));
    }
    return result;
}

QMap<QString, QByteArray> tree(const QString &directory)
{
    QMap<QString, QByteArray> result;
    QDirIterator entries(directory, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        result.insert(path, entries.fileInfo().isDir() ? QByteArray("directory")
                                                       : attributesOf(path) + ' ' + read(path));
    }
    return result;
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : "unreadable";
}

void makeFile(const QString &path, const QByteArray &contents)
{
    require(QDir().mkpath(QFileInfo(path).path()), "making the directory of " + path);
    QFile file(path);
    require(file.open(QFile::WriteOnly) && file.write(contents) == contents.size(), "writing " + path);
}

void copyFile(const QString &from, const QString &to)
{
    require(QDir().mkpath(QFileInfo(to).path()), "making the directory of " + to);
    require(QFile::copy(from, to), "copying " + from + " to " + to);
}

void makeHardLink(const QString &file, const QString &link)
{
    require(CreateHardLinkW(wide(link), wide(file), nullptr) != 0, "CreateHardLinkW");
}

void setReadOnly(const QString &file, bool readOnly)
{
    require(SetFileAttributesW(wide(file), readOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL) != 0,
            "SetFileAttributesW");
}

bool isReadOnly(const QString &file)
{
    const DWORD attributes = GetFileAttributesW(wide(file));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool libraryHangs()
{
    return WindowsHandle(OpenMutexW(SYNCHRONIZE, FALSE, L"CorvantaHangingLibrary")).get() != nullptr;
}

} // namespace HelperMachine
