#pragma once

/// The one owner of a kernel object's handle, which is closed with it. Windows only.
class UniqueHandle {
public:
    UniqueHandle() = default;
    /// What Windows returns in place of a handle when it has none, makes an empty owner.
    explicit UniqueHandle(void *handle);
    UniqueHandle(UniqueHandle &&other) noexcept;
    UniqueHandle &operator=(UniqueHandle &&other) noexcept;
    UniqueHandle(const UniqueHandle &) = delete;
    UniqueHandle &operator=(const UniqueHandle &) = delete;
    ~UniqueHandle();

    explicit operator bool() const { return handle != nullptr; }
    void *get() const { return handle; }

private:
    void *handle = nullptr;
};
