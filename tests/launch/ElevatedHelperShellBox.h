#pragma once

#include <atomic>
#include <thread>

/// While it lives, closes the message boxes in which the shell itself says that it cannot start a program.
/// Their texts are the system's own. Windows only.
class ElevatedHelperShellBox {
public:
    ElevatedHelperShellBox();
    ElevatedHelperShellBox(const ElevatedHelperShellBox &) = delete;
    ElevatedHelperShellBox &operator=(const ElevatedHelperShellBox &) = delete;
    ~ElevatedHelperShellBox();

    /// How many boxes there were.
    int closed() const { return count; }

private:
    void closeBoxes();

    std::atomic<int> count{0};
    std::atomic<bool> ended{false};
    std::thread user;
};
