#include "launch/EnvironmentBroadcast.h"

#include <windows.h>

bool broadcastEnvironmentChange()
{
    constexpr UINT limitMilliseconds = 5000;
    return SendMessageTimeoutW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"Environment"),
                               SMTO_ABORTIFHUNG, limitMilliseconds, nullptr) != 0;
}
