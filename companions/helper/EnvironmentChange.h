#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A value as the registry stores it.
struct StoredValue {
    std::uint32_t type = 0;
    std::vector<unsigned char> bytes;
};

/// The storage of the machine's variables. An exception from a call means the same as false.
class EnvironmentStore {
public:
    EnvironmentStore() = default;
    EnvironmentStore(const EnvironmentStore &) = delete;
    EnvironmentStore &operator=(const EnvironmentStore &) = delete;
    virtual ~EnvironmentStore() = default;

    /// Reads into @p value, which is empty when there is no such value. False when reading fails.
    virtual bool read(const std::wstring &name, std::optional<StoredValue> &value) = 0;
    /// Creates or replaces a value, or removes it when @p value is empty. On failure returns false and has
    /// changed nothing.
    virtual bool write(const std::wstring &name, const std::optional<StoredValue> &value) = 0;
};

/// The machine's variables in the registry; without their key, or without the right to change it, every call
/// fails. Windows only.
std::unique_ptr<EnvironmentStore> machineEnvironment();

/// Sets the variables in the order given. A string value keeps its type, REG_SZ or REG_EXPAND_SZ; any other
/// becomes REG_SZ. When one cannot be set, those before it are restored; the result tells whether all of them
/// could be. Throws only before the first change.
HelperExitCode changeEnvironment(EnvironmentStore &store,
                                 const std::vector<EnvironmentAssignment> &assignments);
