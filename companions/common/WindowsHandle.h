#pragma once

#include <memory>

/// The only owner of a kernel object's handle; closes it on destruction. Windows only.
class WindowsHandle {
public:
    WindowsHandle() = default;
    /// Takes ownership of @p handle. Null and INVALID_HANDLE_VALUE, which Windows returns on failure, make an
    /// empty owner.
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
