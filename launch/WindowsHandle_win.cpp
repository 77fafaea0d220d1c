#include "launch/WindowsHandle.h"

#include <windows.h>

WindowsHandle::~WindowsHandle()
{
    if (handle != nullptr) {
        CloseHandle(handle);
    }
}
