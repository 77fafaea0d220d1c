#include "companions/common/WindowsHandle.h"

#include <windows.h>

WindowsHandle::WindowsHandle(void *handle) : owned(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}

void WindowsHandle::Close::operator()(void *handle) const
{
    CloseHandle(handle);
}
