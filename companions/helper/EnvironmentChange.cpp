#include "companions/helper/EnvironmentChange.h"

#include <cstddef>
#include <exception>

namespace {

// Windows' numbers for the types.
constexpr std::uint32_t plainText = 1;      // REG_SZ
constexpr std::uint32_t expandableText = 2; // REG_EXPAND_SZ

/// The string in UTF-16 with a terminating 0.
std::vector<unsigned char> textBytes(const std::wstring &text)
{
    std::vector<unsigned char> bytes;
    for (const wchar_t unit : text + L'\0') {
        bytes.push_back(static_cast<unsigned char>(unit & 0xFF));
        bytes.push_back(static_cast<unsigned char>(unit >> 8 & 0xFF));
    }
    return bytes;
}

/// The value after @p assignment, which was @p before.
StoredValue changed(const std::optional<StoredValue> &before, const EnvironmentAssignment &assignment)
{
    const bool expandable = before && before->type == expandableText;
    return {expandable ? expandableText : plainText, textBytes(assignment.value)};
}

/// False also when it throws: after the first change nothing may keep the rest from being done.
bool write(EnvironmentStore &store, const std::wstring &name, const std::optional<StoredValue> &value)
{
    try {
        return store.write(name, value);
    } catch (const std::exception &) {
        return false;
    }
}

} // namespace

HelperExitCode changeEnvironment(EnvironmentStore &store,
                                 const std::vector<EnvironmentAssignment> &assignments)
{
    // Everything that allocates memory comes before the first change.
    std::vector<std::optional<StoredValue>> before(assignments.size());
    std::vector<std::optional<StoredValue>> after;
    for (std::size_t i = 0; i < assignments.size(); ++i) {
        if (!store.read(assignments[i].name, before[i])) {
            return HelperExitCode::variablesRestored;
        }
        after.push_back(changed(before[i], assignments[i]));
    }
    for (std::size_t i = 0; i < assignments.size(); ++i) {
        if (write(store, assignments[i].name, after[i])) {
            continue;
        }
        HelperExitCode result = HelperExitCode::variablesRestored;
        while (i-- > 0) {
            if (!write(store, assignments[i].name, before[i])) {
                result = HelperExitCode::variablesNotRestored;
            }
        }
        return result;
    }
    return HelperExitCode::done;
}
