#pragma once

#include <atomic>
#include <thread>

/// Stands in for the user in front of the boxes with which the shell itself says, before it gives up, that
/// it cannot start a program: closes each while this lives. Its words are the system's own. Windows only.
class ElevatedHelperShellBox {
public:
    ElevatedHelperShellBox();
    ElevatedHelperShellBox(const ElevatedHelperShellBox &) = delete;
    ElevatedHelperShellBox &operator=(const ElevatedHelperShellBox &) = delete;
    ~ElevatedHelperShellBox();

    /// How many there were.
    int closed() const { return count; }

private:
    void closeBoxes();

    std::atomic<int> count{0};
    std::atomic<bool> ended{false};
    std::thread user;
};
