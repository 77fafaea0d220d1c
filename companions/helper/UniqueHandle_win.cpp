#include "companions/helper/UniqueHandle.h"

#include <windows.h>

#include <utility>

UniqueHandle::UniqueHandle(void *handle) : handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}

UniqueHandle::UniqueHandle(UniqueHandle &&other) noexcept : handle(std::exchange(other.handle, nullptr)) {}

UniqueHandle &UniqueHandle::operator=(UniqueHandle &&other) noexcept
{
    std::swap(handle, other.handle);
    return *this;
}

UniqueHandle::~UniqueHandle()
{
    if (handle != nullptr) {
        CloseHandle(handle);
    }
}
