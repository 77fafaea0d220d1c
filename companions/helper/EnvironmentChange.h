#pragma once

#include "companions/helper/HelperRequest.h"

#include <cstdint>
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
    /// Makes or replaces a value. False when that fails; then nothing has changed.
    virtual bool write(const std::wstring &name, const StoredValue &value) = 0;
    /// Removes a value that is there. False when that fails.
    virtual bool remove(const std::wstring &name) = 0;
};

enum class EnvironmentResult {
    done,
    restored,    ///< something failed, and all values are as they were
    notRestored, ///< something failed, and so did putting a value back
};

/// Sets the variables in the order given. A value that is text keeps its type, with or without variables to expand;
/// all others become plain text. When one cannot be set, those before it are put back as they were. Throws only before
/// the first change.
EnvironmentResult changeEnvironment(EnvironmentStore &store,
                                    const std::vector<EnvironmentAssignment> &assignments);
