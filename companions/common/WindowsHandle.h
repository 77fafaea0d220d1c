#pragma once

/// The one owner of a kernel object's handle, which is closed with it. Windows only.
class WindowsHandle {
public:
    WindowsHandle() = default;
    /// Takes over @p handle. What Windows returns in place of one, null or INVALID_HANDLE_VALUE, makes an empty owner.
    explicit WindowsHandle(void *handle);
    WindowsHandle(WindowsHandle &&other) noexcept;
    WindowsHandle &operator=(WindowsHandle &&other) noexcept;
    WindowsHandle(const WindowsHandle &) = delete;
    WindowsHandle &operator=(const WindowsHandle &) = delete;
    ~WindowsHandle();

    explicit operator bool() const { return handle != nullptr; }
    /// The handle, still owned by this object; null when there is none.
    void *get() const { return handle; }

private:
    void *handle = nullptr;
};
