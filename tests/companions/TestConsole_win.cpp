#include "companions/common/WindowsHandle.h"
#include "tests/companions/TestConsole.h"

#include <QtGlobal>

#include <windows.h>

#include <algorithm>
#include <array>
#include <vector>

namespace {

constexpr SHORT height = 100;

void require(BOOL success, const char *call)
{
    if (success == 0) {
        qFatal("%s failed: %lu", call, GetLastError());
    }
}

HANDLE openConsole(const wchar_t *name)
{
    HANDLE handle = CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    require(static_cast<BOOL>(handle != INVALID_HANDLE_VALUE), "CreateFileW");
    return handle;
}

void replaceOwnConsole()
{
    FreeConsole();
    require(AllocConsole(), "AllocConsole");
}

std::vector<DWORD> processesInConsole()
{
    std::vector<DWORD> ids(64);
    const DWORD count = GetConsoleProcessList(ids.data(), static_cast<DWORD>(ids.size()));
    require(static_cast<BOOL>(count > 0 && count <= ids.size()), "GetConsoleProcessList");
    ids.resize(count);
    ids.erase(std::remove(ids.begin(), ids.end(), GetCurrentProcessId()), ids.end());
    return ids;
}

INPUT_RECORD key(wchar_t character, bool down)
{
    INPUT_RECORD record = {};
    record.EventType = KEY_EVENT;
    record.Event.KeyEvent.bKeyDown = down ? TRUE : FALSE;
    record.Event.KeyEvent.wRepeatCount = 1;
    record.Event.KeyEvent.wVirtualKeyCode = character == L'\r' ? VK_RETURN : 0;
    record.Event.KeyEvent.uChar.UnicodeChar = character;
    return record;
}

} // namespace

struct TestConsole::Handles {
    WindowsHandle output{openConsole(L"CONOUT$")};
    WindowsHandle input{openConsole(L"CONIN$")};

    CONSOLE_SCREEN_BUFFER_INFO info() const
    {
        CONSOLE_SCREEN_BUFFER_INFO result = {};
        require(GetConsoleScreenBufferInfo(output.get(), &result), "GetConsoleScreenBufferInfo");
        return result;
    }
};

TestConsole::TestConsole()
{
    replaceOwnConsole();
    handles = std::make_unique<Handles>();
    require(SetConsoleScreenBufferSize(handles->output.get(), COORD{width, height}),
            "SetConsoleScreenBufferSize");
}

TestConsole::~TestConsole()
{
    for (const DWORD id : processesInConsole()) {
        const WindowsHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
        if (process.get() != nullptr) {
            TerminateProcess(process.get(), 1);
            WaitForSingleObject(process.get(), INFINITE);
        }
    }
    handles.reset();
    FreeConsole();
}

QStringList TestConsole::lines() const
{
    QStringList result;
    const CONSOLE_SCREEN_BUFFER_INFO info = handles->info();
    for (SHORT line = 0; line <= info.dwCursorPosition.Y; ++line) {
        std::vector<wchar_t> characters(width);
        DWORD count = 0;
        require(ReadConsoleOutputCharacterW(handles->output.get(), characters.data(), width, COORD{0, line},
                                            &count),
                "ReadConsoleOutputCharacterW");
        QString text = QString::fromWCharArray(characters.data(), static_cast<int>(count));
        while (text.endsWith(' ')) {
            text.chop(1);
        }
        result.append(text);
    }
    return result;
}

QVector<quint16> TestConsole::attributes(int line, int count) const
{
    std::vector<WORD> attributes(static_cast<std::size_t>(count));
    DWORD read = 0;
    require(ReadConsoleOutputAttribute(handles->output.get(), attributes.data(), static_cast<DWORD>(count),
                                       COORD{0, static_cast<SHORT>(line)}, &read),
            "ReadConsoleOutputAttribute");
    attributes.resize(read);
    return QVector<quint16>(attributes.begin(), attributes.end());
}

quint16 TestConsole::attributes() const
{
    return handles->info().wAttributes;
}

void TestConsole::setAttributes(quint16 attributes)
{
    require(SetConsoleTextAttribute(handles->output.get(), attributes), "SetConsoleTextAttribute");
}

QString TestConsole::title() const
{
    std::array<wchar_t, 1024> text = {};
    const DWORD length = GetConsoleTitleW(text.data(), static_cast<DWORD>(text.size()));
    return QString::fromWCharArray(text.data(), static_cast<int>(length));
}

void TestConsole::type(const QString &text)
{
    std::vector<INPUT_RECORD> keys;
    for (const wchar_t character : (text + '\r').toStdWString()) {
        keys.push_back(key(character, true));
        keys.push_back(key(character, false));
    }
    DWORD written = 0;
    require(WriteConsoleInputW(handles->input.get(), keys.data(), static_cast<DWORD>(keys.size()), &written),
            "WriteConsoleInputW");
}

int TestConsole::otherProcesses() const
{
    return static_cast<int>(processesInConsole().size());
}
