#pragma once

#include <utility>

/// Owns a handle of Windows and closes it in the end.
class WindowsHandle {
public:
    /// Takes over @p handle; null stands for none.
    explicit WindowsHandle(void *handle) : handle(handle) {}
    WindowsHandle(WindowsHandle &&other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    WindowsHandle &operator=(WindowsHandle &&other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    WindowsHandle(const WindowsHandle &) = delete;
    WindowsHandle &operator=(const WindowsHandle &) = delete;
    ~WindowsHandle();

    /// The handle, still owned by this object.
    void *get() const { return handle; }

    explicit operator bool() const { return handle != nullptr; }

private:
    void *handle;
};
