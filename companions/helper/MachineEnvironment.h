#pragma once

/// The variables of the machine, as Windows makes them for a process of its own: whoever started this process has no
/// say in them. Windows only.
class MachineEnvironment {
public:
    MachineEnvironment();
    MachineEnvironment(const MachineEnvironment &) = delete;
    MachineEnvironment &operator=(const MachineEnvironment &) = delete;
    ~MachineEnvironment();

    /// As CreateProcess takes them, in UTF-16; null when Windows could not make them.
    void *block() const { return variables; }

private:
    void *library = nullptr;
    void *variables = nullptr;
};
