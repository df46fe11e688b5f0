#pragma once

#include "TaxCore/rulebook/RuleBook.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore::testing {

/// What is wrong with a rule file, "<file>: <path of the key>: <fault>".
using Complaints = std::vector<std::string>;

/// Checks the rule files of a folder for slips of the pen: the files that ought to be there, their
/// keys, citations and ranges, and the shape that the law gives a tariff.
Complaints checkRuleFiles(const std::filesystem::path& folder);

/// The book of the rule files in the source tree; throws when it does not load.
std::shared_ptr<const RuleBook> shippedRules(int year);

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
