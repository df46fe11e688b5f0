#pragma once

#include "TaxCore/base/Record.h"
#include "TaxCore/rulebook/LIRules.h"
#include "TaxCore/rulebook/RuleBook.h"

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>

namespace taxcore::testing {

/// The book of the rule files in the source tree, kept for good; throws when it does not load.
std::shared_ptr<const RuleBook> shippedRules(int year);

/// The rules of Liechtenstein in the source tree, kept for good; throws when they do not load.
std::shared_ptr<const LIRules> shippedLIRules(int year);

/// Adds the names of all fields that a file read as `T` must hold, at any depth.
template <class T>
void addRequiredKeys(std::set<std::string_view>& keys) {
    if constexpr (isList<T>) {
        addRequiredKeys<typename T::value_type>(keys);
    } else if constexpr (Record<T>) {
        const T record;
        forEachField(record, [&](std::string_view name, const auto& field) {
            using Value = std::remove_cvref_t<decltype(field)>;
            if constexpr (!isOptional<Value>) {
                keys.insert(name);
                addRequiredKeys<Value>(keys);
            }
        });
    }
}

/// A copy of the shipped rule files that a test may damage; gone with the object.
class RuleCopy {
  public:
    RuleCopy();
    ~RuleCopy();
    RuleCopy(const RuleCopy&) = delete;
    RuleCopy& operator=(const RuleCopy&) = delete;

    const std::filesystem::path& folder() const noexcept { return folder_; }
    /// A file's text.
    std::string text(const std::string& file) const;
    void write(const std::string& file, std::string_view text) const;
    void remove(const std::string& file) const;
    /// Puts `put` for the first `find`; throws when the file does not hold it, lest a test damage
    /// nothing.
    void replace(const std::string& file, std::string_view find, std::string_view put) const;

  private:
    std::filesystem::path folder_;
};

} // namespace taxcore::testing
