#include "tests/soak/Input_win.h"

#include <windows.h>

namespace {

void sendMouse(DWORD flags, DWORD data = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    SendInput(1, &input, sizeof(input));
}

void sendKey(int key, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

} // namespace

void moveMouse(QPoint position)
{
    SetCursorPos(position.x(), position.y());
}

void pressButton(MouseButton button)
{
    sendMouse(button == MouseButton::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
}

void releaseButton(MouseButton button)
{
    sendMouse(button == MouseButton::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

void turnWheel(int notches)
{
    sendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches) * WHEEL_DELTA);
}

void pressKeys(const QVector<int> &keys)
{
    for (const int key : keys) {
        sendKey(key, 0);
    }
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        sendKey(*key, KEYEVENTF_KEYUP);
    }
}
