#pragma once

#include "companions/helper/EnvironmentChange.h"

#include <memory>

/// The machine's variables in the registry. Windows only.
class RegistryEnvironment : public EnvironmentStore {
public:
    /// Opens the registry key; without one, or without the right to change it, reading and writing fail.
    RegistryEnvironment();
    ~RegistryEnvironment() override;

    bool read(const std::wstring &name, std::optional<StoredValue> &value) override;
    bool write(const std::wstring &name, const StoredValue &value) override;
    bool remove(const std::wstring &name) override;

private:
    class Key;
    std::unique_ptr<Key> key;
};
