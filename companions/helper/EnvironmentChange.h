#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A value as the registry holds it.
struct StoredValue {
    std::uint32_t type = 0;
    std::vector<unsigned char> bytes;
};

/// Where the machine's variables are kept. An exception of a change says the same as false.
class EnvironmentStore {
public:
    EnvironmentStore() = default;
    EnvironmentStore(const EnvironmentStore &) = delete;
    EnvironmentStore &operator=(const EnvironmentStore &) = delete;
    virtual ~EnvironmentStore() = default;

    /// Stores what is there in @p value, nothing when there is no such value. False when that cannot be found out.
    virtual bool read(const std::wstring &name, std::optional<StoredValue> &value) = 0;
    /// Makes or replaces a value, or removes one that is there. False when that fails; then nothing has changed.
    virtual bool write(const std::wstring &name, const std::optional<StoredValue> &value) = 0;
};

/// The machine's variables in the registry; without their key, or without the right to change it, all that is asked of
/// them fails. Windows only.
std::unique_ptr<EnvironmentStore> machineEnvironment();

/// Sets the variables in the order given. A value that is text keeps its type, with or without variables to expand;
/// all others become plain text. When one cannot be set, those before it are put back as they were; the result tells
/// whether all of them could be. Throws only before the first change.
HelperExitCode changeEnvironment(EnvironmentStore &store,
                                 const std::vector<EnvironmentAssignment> &assignments);
