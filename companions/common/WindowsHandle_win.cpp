#include "companions/common/WindowsHandle.h"

#include <windows.h>

#include <utility>

WindowsHandle::WindowsHandle(void *handle) : handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}

WindowsHandle::WindowsHandle(WindowsHandle &&other) noexcept : handle(std::exchange(other.handle, nullptr)) {}

WindowsHandle &WindowsHandle::operator=(WindowsHandle &&other) noexcept
{
    std::swap(handle, other.handle);
    return *this;
}

WindowsHandle::~WindowsHandle()
{
    if (handle != nullptr) {
        CloseHandle(handle);
    }
}
