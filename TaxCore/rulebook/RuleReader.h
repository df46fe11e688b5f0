#pragma once

// Pulls in the JSON templates; for the sources that load rules, not for headers.

#include "TaxCore/base/JsonReader.h"
#include "TaxCore/rulebook/RuleFiles.h"

#include <optional>
#include <string>
#include <utility>

namespace taxcore {

/// Reads one rule file as one record; keys of other records in the file are passed over. The first
/// error ends the reading of all that follow.
class RuleReader {
  public:
    explicit RuleReader(const RuleFiles& files) : files_(files) {}

    template <class T>
    void read(const std::string& baseName, T& target) {
        if (error_) {
            return;
        }
        auto text = files_.read(baseName);
        if (!text) {
            error_ = std::move(text).error();
            return;
        }
        auto record = fromJson<T>(*text);
        if (!record) {
            error_ = RuleLoadError{RuleLoadError::Kind::invalid, baseName + ".json",
                                   std::move(record).error().message};
            return;
        }
        target = std::move(*record);
    }

    std::optional<RuleLoadError>& error() noexcept { return error_; }

  private:
    const RuleFiles& files_;
    std::optional<RuleLoadError> error_;
};

} // namespace taxcore
