#pragma once

#include <memory>

/// The one owner of a kernel object's handle, which is closed with it. Windows only.
class WindowsHandle {
public:
    WindowsHandle() = default;
    /// Takes over @p handle. What Windows returns in place of one, null or INVALID_HANDLE_VALUE, makes an empty owner.
    explicit WindowsHandle(void *handle);

    explicit operator bool() const { return owned != nullptr; }
    /// The handle, still owned by this object; null when there is none.
    void *get() const { return owned.get(); }

private:
    struct Close {
        void operator()(void *handle) const;
    };
    std::unique_ptr<void, Close> owned;
};
